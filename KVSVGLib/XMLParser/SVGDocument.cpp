// Reads line, circle, ellipse, rect, polyline, polygon and text elements. Path data has a file of its own.

#include "SVGDocument.h"

#include "SVGElement.h"
#include "SVGTransform.h"

#include <utility>

namespace {

/// The node after `node` in document order; null after the last one.
QDomNode next(QDomNode node)
{
    const QDomNode child = node.firstChild();
    if (!child.isNull())
        return child;
    while (!node.isNull() && node.nextSibling().isNull())
        node = node.parentNode();
    return node.nextSibling();
}

QString ownOrParentTransform(const QDomElement &element)
{
    const QString own = svgread::ownTransform(element);
    return own.isEmpty() ? svgread::parentTransform(element) : own;
}

/// Fills `polyline` from the points attribute. Only blanks and commas separate numbers. An empty place
/// between two commas, or between a comma and a blank, is a number that counts as 0. False when the attribute
/// holds nothing but blanks.
bool readPoints(const QDomElement &element, SVGPolylineRecord &polyline)
{
    const QString points = element.attribute(QStringLiteral("points"));
    kvDoubleArray values;
    int partStart = 0;
    int numberStart = 0;
    for (int i = 0; i <= points.size(); ++i) {
        const bool partEnds = i == points.size() || points.at(i) == QLatin1Char(' ');
        if (!partEnds && points.at(i) != QLatin1Char(','))
            continue;
        if (!partEnds || partStart < i)
            values.add(svgread::plainNumber(QStringRef(&points, numberStart, i - numberStart)));
        numberStart = i + 1;
        if (partEnds)
            partStart = i + 1;
    }
    if (values.getSize() == 0)
        return false;

    polyline.setTransform(ownOrParentTransform(element));
    polyline.setValues(std::move(values));
    return true;
}

} // namespace

// Finds what QDomDocument::elementsByTagName() finds for each name, in one walk for all names. A large tree
// does not fit into the processor's cache, and each walk costs as much as reading all numbers of a kind.
SVGDocument::SVGDocument(const QDomDocument &document)
    : m_document(document)
{
    for (const char *tag : {"line", "circle", "ellipse", "rect", "polyline", "polygon", "text", "path"})
        m_elements.insert(QLatin1String(tag), {});

    for (QDomNode node = document.firstChild(); !node.isNull(); node = next(node)) {
        if (!node.isElement())
            continue;
        const auto found = m_elements.find(node.nodeName());
        if (found != m_elements.end())
            found->push_back(node.toElement());
    }
}

const std::vector<QDomElement> &SVGDocument::elements(const char *tag) const
{
    return *m_elements.constFind(QLatin1String(tag));
}

/// One record for each element `tag`, in document order. `fill(element, record)` tells whether the record
/// counts.
template <class Record, class Fill>
QList<Record> SVGDocument::readAll(const char *tag, Fill fill) const
{
    QList<Record> records;
    for (const QDomElement &element : elements(tag)) {
        records.append(Record());
        if (!fill(element, records.last()))
            records.removeLast();
    }
    return records;
}

QList<SVGLineRecord> SVGDocument::lines() const
{
    return readAll<SVGLineRecord>("line", [](const QDomElement &element, SVGLineRecord &line) {
        line.setTransform(svgread::parentTransform(element)); // a line's own transform is never read
        for (const QString &name :
             {QStringLiteral("x1"), QStringLiteral("y1"), QStringLiteral("x2"), QStringLiteral("y2")})
            line.addValue(svgread::attributeNumber(element, name));
        return true;
    });
}

QList<SVGCircleRecord> SVGDocument::circles() const
{
    return readAll<SVGCircleRecord>("circle", [](const QDomElement &element, SVGCircleRecord &circle) {
        circle.setTransform(ownOrParentTransform(element));
        circle.addCenterValue(svgread::attributeNumber(element, QStringLiteral("cx")));
        circle.addCenterValue(svgread::attributeNumber(element, QStringLiteral("cy")));
        circle.setRadius(svgread::attributeNumber(element, QStringLiteral("r")));
        return true;
    });
}

QList<SVGEllipseRecord> SVGDocument::ellipses() const
{
    SVGTransforms transforms;
    // An ellipse with a translate(...) of its own still takes the matrix of its parent; other shapes do not.
    const auto ownOrParentMatrix = [&transforms](const QDomElement &element) {
        QString own = svgread::ownTransform(element);
        const QString parent = svgread::parentTransform(element);
        if (own.contains(QLatin1String("matrix")))
            return own;
        return transforms.of(parent).saysMatrix ? parent : QString();
    };
    return readAll<SVGEllipseRecord>("ellipse", [&](const QDomElement &element, SVGEllipseRecord &ellipse) {
        const double rx = svgread::attributeNumber(element, QStringLiteral("rx"));
        const double ry = svgread::attributeNumber(element, QStringLiteral("ry"));
        const double cx = svgread::attributeNumber(element, QStringLiteral("cx"));
        const double cy = svgread::attributeNumber(element, QStringLiteral("cy"));
        ellipse.setTransform(ownOrParentMatrix(element));
        for (const double value : {0.0, 0.0, cx + rx, 0.0, rx, ry, cx, cy})
            ellipse.addValue(value);
        return true;
    });
}

QList<SVGPolylineRecord> SVGDocument::rects() const
{
    return readAll<SVGPolylineRecord>("rect", [](const QDomElement &element, SVGPolylineRecord &rect) {
        const double width = svgread::attributeNumber(element, QStringLiteral("width"));
        const double height = svgread::attributeNumber(element, QStringLiteral("height"));
        const double x = svgread::attributeNumber(element, QStringLiteral("x"));
        const double y = svgread::attributeNumber(element, QStringLiteral("y"));
        rect.setTransform(ownOrParentTransform(element));
        for (const double value : {x, y, x + width, y, x + width, y + height, x, y + height})
            rect.addValue(value);
        return true;
    });
}

QList<SVGPolylineRecord> SVGDocument::polylines() const
{
    return readAll<SVGPolylineRecord>("polyline", readPoints);
}

QList<SVGPolylineRecord> SVGDocument::polygons() const
{
    return readAll<SVGPolylineRecord>("polygon", readPoints);
}

QList<SVGTextRecord> SVGDocument::texts() const
{
    return readAll<SVGTextRecord>("text", [](const QDomElement &element, SVGTextRecord &text) {
        text.setTransform(ownOrParentTransform(element));
        // Only the first child counts, whatever it is: a comment gives its text, a tspan gives none.
        text.addText(toKvString(element.firstChild().nodeValue()));
        text.setFontSize(toKvString(element.attribute(QStringLiteral("font-size"))));
        text.addValue(svgread::attributeNumber(element, QStringLiteral("x")));
        text.addValue(svgread::attributeNumber(element, QStringLiteral("y")));
        return true;
    });
}
