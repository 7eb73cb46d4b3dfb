// Looks at a tree as the reader does: the same names, the same numbers, the same one transform.

#include "ReadingGaps.h"

#include "PathGaps.h"

#include <QSet>
#include <QStringList>

#include <algorithm>

namespace {

struct KindName {
    ReadingGap kind;
    const char *one;
    const char *several;
};

constexpr KindName kindNames[] = {
    {ReadingGap::Arc, "arc", "arcs"},
    {ReadingGap::SmoothQuadratic, "smooth quadratic", "smooth quadratics"},
    {ReadingGap::FurtherPoints, "path command with several points", "path commands with several points"},
    {ReadingGap::ClosingSide, "closing side of a path", "closing sides of paths"},
    {ReadingGap::PathShorthand, "path number in shorthand", "path numbers in shorthand"},
    {ReadingGap::PointShorthand, "list of points in shorthand", "lists of points in shorthand"},
    {ReadingGap::OtherNumber, "number with a unit or in a list", "numbers with units or in lists"},
    {ReadingGap::OtherTransform, "transform other than a matrix", "transforms other than a matrix"},
    {ReadingGap::DistantTransform, "shape with a transform further out",
     "shapes with a transform further out"},
    {ReadingGap::Use, "use", "uses"},
    {ReadingGap::NestedDrawing, "nested drawing", "nested drawings"},
    {ReadingGap::PrefixedName, "prefixed name", "prefixed names"},
    {ReadingGap::Style, "style", "styles"},
    {ReadingGap::StyleSheet, "style sheet", "style sheets"},
    {ReadingGap::NestedTextRun, "nested text run", "nested text runs"},
    {ReadingGap::TextSize, "text without a plain font size", "texts without a plain font size"},
    {ReadingGap::TextAlignment, "text alignment", "text alignments"},
    {ReadingGap::RoundCorners, "rectangle with round corners", "rectangles with round corners"},
    {ReadingGap::Marker, "marker", "markers"},
};

/// An attribute that is a gap on any element, unless it holds the initial value.
struct AttributeGap {
    QString name;
    QString initial;
    ReadingGap gap;
};

QString attributeOf(const QDomElement &element, const char *name)
{
    return element.attribute(QLatin1String(name));
}

bool hasTransform(const QDomElement &element)
{
    return element.hasAttribute(QStringLiteral("transform"));
}

bool isNumber(const QStringRef &text)
{
    bool isNumber = false;
    text.toDouble(&isNumber);
    return isNumber;
}

bool isNumber(const QString &text)
{
    return isNumber(QStringRef(&text));
}

bool isMatrix(const QString &transform)
{
    return transform.trimmed().startsWith(QLatin1String("matrix")) && transform.count(QLatin1Char('(')) == 1;
}

/// Whether the reader understands each number of a list of points. It splits the list at blanks, and each
/// part at commas.
bool isPlainPointList(const QString &points)
{
    const QVector<QStringRef> parts = points.splitRef(QLatin1Char(' '), Qt::SkipEmptyParts);
    return std::all_of(parts.begin(), parts.end(), [](const QStringRef &part) {
        const QVector<QStringRef> numbers = part.split(QLatin1Char(','));
        return std::all_of(numbers.begin(), numbers.end(),
                           [](const QStringRef &number) { return isNumber(number); });
    });
}

bool isRoundRect(const QDomElement &rect)
{
    const auto isRadius = [](const QString &text) { return !text.isEmpty() && text != QLatin1String("0"); };
    return isRadius(attributeOf(rect, "rx")) || isRadius(attributeOf(rect, "ry"));
}

/// Whether the reader passes over a transform of `shape`, its own or one of the `transformsAbove` around it.
bool hasDistantTransform(const QDomElement &shape, int transformsAbove)
{
    const QString name = shape.tagName();
    const bool asksItself = name != QLatin1String("line") && name != QLatin1String("path");
    const bool hasOwn = hasTransform(shape);
    const bool isOneRead = (asksItself && hasOwn) || hasTransform(shape.parentNode().toElement());
    return transformsAbove + (hasOwn ? 1 : 0) > (isOneRead ? 1 : 0);
}

void countShape(const QDomElement &shape, int transformsAbove, ReadingGaps &gaps)
{
    static const QStringList numbers = {"x",  "y",  "width", "height", "x1", "y1", "x2",
                                        "y2", "cx", "cy",    "r",      "rx", "ry"};
    for (const QString &number : numbers) {
        if (!isNumber(shape.attribute(number, QStringLiteral("0"))))
            gaps.count(ReadingGap::OtherNumber);
    }
    if (hasDistantTransform(shape, transformsAbove))
        gaps.count(ReadingGap::DistantTransform);
    if (!isPlainPointList(attributeOf(shape, "points")))
        gaps.count(ReadingGap::PointShorthand);

    const QString name = shape.tagName();
    if (name == QLatin1String("rect") && isRoundRect(shape))
        gaps.count(ReadingGap::RoundCorners);
    if (name == QLatin1String("text") && !isNumber(attributeOf(shape, "font-size")))
        gaps.count(ReadingGap::TextSize);
    if (name == QLatin1String("path"))
        countPathGaps(attributeOf(shape, "d"), gaps);
}

void countAttributes(const QDomElement &element, ReadingGaps &gaps)
{
    static const AttributeGap attributeGaps[] = {
        {"style", "", ReadingGap::Style},
        {"text-anchor", "start", ReadingGap::TextAlignment},
        {"dominant-baseline", "auto", ReadingGap::TextAlignment},
        {"marker-start", "none", ReadingGap::Marker},
        {"marker-mid", "none", ReadingGap::Marker},
        {"marker-end", "none", ReadingGap::Marker},
    };
    for (const AttributeGap &row : attributeGaps) {
        if (element.attribute(row.name, row.initial) != row.initial)
            gaps.count(row.gap);
    }
    const QString transform = attributeOf(element, "transform").trimmed();
    if (!transform.isEmpty() && !isMatrix(transform))
        gaps.count(ReadingGap::OtherTransform);
}

void countElement(const QDomElement &element, int transformsAbove, ReadingGaps &gaps)
{
    static const QSet<QString> shapes = {"line",     "circle",  "ellipse", "rect",
                                         "polyline", "polygon", "text",    "path"};
    static const QHash<QString, ReadingGap> elementGaps = {
        {"use", ReadingGap::Use},
        {"style", ReadingGap::StyleSheet},
        {"tspan", ReadingGap::NestedTextRun},
    };
    const QString name = element.tagName();
    if (const auto gap = elementGaps.constFind(name); gap != elementGaps.constEnd())
        gaps.count(*gap);
    if (name == QLatin1String("svg") && element.parentNode().isElement())
        gaps.count(ReadingGap::NestedDrawing);
    const int colon = name.indexOf(QLatin1Char(':'));
    if (colon >= 0 && shapes.contains(name.mid(colon + 1)))
        gaps.count(ReadingGap::PrefixedName);
    countAttributes(element, gaps);
    if (shapes.contains(name))
        countShape(element, transformsAbove, gaps);
}

} // namespace

void ReadingGaps::add(const ReadingGaps &other)
{
    for (std::size_t kind = 0; kind < m_counts.size(); ++kind)
        m_counts[kind] += other.m_counts[kind];
}

QString ReadingGaps::text() const
{
    QStringList counts;
    for (const KindName &name : kindNames) {
        const int count = m_counts[static_cast<std::size_t>(name.kind)];
        if (count > 0)
            counts << QStringLiteral("%1 %2").arg(count).arg(
                QLatin1String(count == 1 ? name.one : name.several));
    }
    return counts.join(QStringLiteral(", "));
}

QDataStream &operator<<(QDataStream &stream, const ReadingGaps &gaps)
{
    for (const int count : gaps.m_counts)
        stream << count;
    return stream;
}

QDataStream &operator>>(QDataStream &stream, ReadingGaps &gaps)
{
    for (int &count : gaps.m_counts)
        stream >> count;
    return stream;
}

ReadingGaps readingGapsOf(const QDomDocument &document)
{
    static const QSet<QString> notDrawn = {"clipPath", "mask", "pattern"}; // not drawn when prepared either

    ReadingGaps gaps;
    int transformsAbove = 0;
    const QDomElement root = document.documentElement();
    for (QDomElement element = root; !element.isNull();) {
        QDomElement child;
        if (!notDrawn.contains(element.tagName())) {
            countElement(element, transformsAbove, gaps);
            child = element.firstChildElement();
        }
        if (!child.isNull()) {
            transformsAbove += hasTransform(element) ? 1 : 0;
            element = child;
            continue;
        }
        while (element != root && element.nextSiblingElement().isNull()) {
            element = element.parentNode().toElement();
            transformsAbove -= hasTransform(element) ? 1 : 0;
        }
        element = element == root ? QDomElement() : element.nextSiblingElement();
    }
    return gaps;
}
