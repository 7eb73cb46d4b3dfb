// The readers of line, circle, ellipse, rect, polyline, polygon and text. Path data has a file of its own.

#include "SVGDocument.h"

#include "SVGElement.h"

#include <utility>

namespace {

/// One record for each element `tag`, in document order. `fill(element, record)` says whether the record
/// counts.
template <class Record, class Fill>
QList<Record> readAll(const QDomDocument &document, const char *tag, Fill fill)
{
    QList<Record> records;
    const QDomNodeList elements = document.elementsByTagName(QLatin1String(tag));
    const int count = elements.size();
    for (int i = 0; i < count; ++i) {
        Record record;
        if (fill(elements.item(i).toElement(), record))
            records.append(std::move(record));
    }
    return records;
}

QString ownOrParentTransform(const QDomElement &element)
{
    const QString own = ownTransform(element);
    return own.isEmpty() ? parentTransform(element) : own;
}

/// Unlike the other shapes an ellipse lets its own translate(...) not hide the matrix of its parent.
QString ownOrParentMatrix(const QDomElement &element)
{
    for (const QString &transform : {ownTransform(element), parentTransform(element)}) {
        if (transform.contains(QLatin1String("matrix")))
            return transform;
    }
    return QString();
}

/// Fills `record` from the points attribute. Only blanks and commas separate; between two commas, and between
/// a comma and a blank, stands an empty number that counts as 0. False when there is nothing between the
/// blanks at all.
bool readPoints(const QDomElement &element, SVGPolylineRecord &record)
{
    const QString points = element.attribute(QStringLiteral("points"));
    const QVector<QStringRef> parts = points.splitRef(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (parts.isEmpty())
        return false;

    record.setTransform(ownOrParentTransform(element));
    for (const QStringRef &part : parts) {
        for (const QStringRef &token : part.split(QLatin1Char(',')))
            record.addValue(token.toDouble());
    }
    return true;
}

} // namespace

SVGDocument::SVGDocument(const QDomDocument &document)
    : m_document(document)
{
}

QList<SVGLineRecord> SVGDocument::lines() const
{
    return readAll<SVGLineRecord>(m_document, "line", [](const QDomElement &element, SVGLineRecord &line) {
        line.setTransform(parentTransform(element)); // a line's own transform is never asked for
        for (const char *name : {"x1", "y1", "x2", "y2"})
            line.addValue(number(element, name));
        return true;
    });
}

QList<SVGCircleRecord> SVGDocument::circles() const
{
    return readAll<SVGCircleRecord>(m_document, "circle",
                                    [](const QDomElement &element, SVGCircleRecord &circle) {
                                        circle.setTransform(ownOrParentTransform(element));
                                        circle.addCenterValue(number(element, "cx"));
                                        circle.addCenterValue(number(element, "cy"));
                                        circle.setRadius(number(element, "r"));
                                        return true;
                                    });
}

QList<SVGEllipseRecord> SVGDocument::ellipses() const
{
    return readAll<SVGEllipseRecord>(m_document, "ellipse",
                                     [](const QDomElement &element, SVGEllipseRecord &ellipse) {
                                         const double rx = number(element, "rx");
                                         const double ry = number(element, "ry");
                                         const double cx = number(element, "cx");
                                         const double cy = number(element, "cy");
                                         ellipse.setTransform(ownOrParentMatrix(element));
                                         for (const double value : {0.0, 0.0, cx + rx, 0.0, rx, ry, cx, cy})
                                             ellipse.addValue(value);
                                         return true;
                                     });
}

QList<SVGPolylineRecord> SVGDocument::rects() const
{
    return readAll<SVGPolylineRecord>(
        m_document, "rect", [](const QDomElement &element, SVGPolylineRecord &rect) {
            const double width = number(element, "width");
            const double height = number(element, "height");
            const double x = number(element, "x");
            const double y = number(element, "y");
            rect.setTransform(ownOrParentTransform(element));
            for (const double value : {x, y, x + width, y, x + width, y + height, x, y + height})
                rect.addValue(value);
            return true;
        });
}

QList<SVGPolylineRecord> SVGDocument::polylines() const
{
    return readAll<SVGPolylineRecord>(m_document, "polyline", readPoints);
}

QList<SVGPolylineRecord> SVGDocument::polygons() const
{
    return readAll<SVGPolylineRecord>(m_document, "polygon", readPoints);
}

QList<SVGTextRecord> SVGDocument::texts() const
{
    return readAll<SVGTextRecord>(m_document, "text", [](const QDomElement &element, SVGTextRecord &text) {
        text.setTransform(ownOrParentTransform(element));
        // The first child alone, whatever it is: a comment gives its text, a tspan gives none.
        text.addText(toKvString(element.firstChild().nodeValue()));
        text.setFontSize(toKvString(element.attribute(QStringLiteral("font-size"))));
        text.addValue(number(element, "x"));
        text.addValue(number(element, "y"));
        return true;
    });
}
