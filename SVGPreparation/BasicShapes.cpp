// Reads the attributes of each kind of shape.

#include "SVGPreparation/BasicShapes.h"

#include "SVGPreparation/PathData.h"
#include "SVGPreparation/Scanner.h"

#include <algorithm>

namespace svgprep {

namespace {

using ReadShape = std::optional<ShapeGeometry> (*)(const QDomElement &element, const LengthBase &base);

std::optional<ShapeGeometry> pathShape(const QDomElement &element, const LengthBase & /*base*/)
{
    return outlineFromPathData(element.attribute(QStringLiteral("d")));
}

/// The radius of a corner or an ellipse. No value when it is left open: the other radius then counts for
/// both.
std::optional<double> radius(const QDomElement &element, const QString &name, const LengthBase &base,
                             Along along)
{
    const QString text = element.attribute(name);
    if (!element.hasAttribute(name) || text == QLatin1String("auto"))
        return {};
    const std::optional<Length> length = lengthFrom(text);
    if (length && length->value < 0.0)
        return {};
    return length ? userUnits(*length, base, along) : 0.0;
}

Outline roundedRectangle(const QRectF &box, double rx, double ry)
{
    Subpath outline;
    outline.start = {box.left() + rx, box.top()};
    struct Corner {
        QPointF before;
        QPointF after;
    };
    const Corner corners[] = {
        {{box.right() - rx, box.top()}, {box.right(), box.top() + ry}},
        {{box.right(), box.bottom() - ry}, {box.right() - rx, box.bottom()}},
        {{box.left() + rx, box.bottom()}, {box.left(), box.bottom() - ry}},
        {{box.left(), box.top() + ry}, {box.left() + rx, box.top()}},
    };
    for (const Corner &corner : corners) {
        outline.lineTo(corner.before);
        outline.arcTo(rx, ry, 0.0, false, true, corner.after);
    }
    outline.isClosed = true;
    return {outline};
}

std::optional<ShapeGeometry> rectShape(const QDomElement &element, const LengthBase &base)
{
    const QRectF box(lengthAttribute(element, QStringLiteral("x"), base, Along::Width),
                     lengthAttribute(element, QStringLiteral("y"), base, Along::Height),
                     lengthAttribute(element, QStringLiteral("width"), base, Along::Width),
                     lengthAttribute(element, QStringLiteral("height"), base, Along::Height));
    if (!(box.width() > 0.0 && box.height() > 0.0))
        return {};
    const std::optional<double> ownRx = radius(element, QStringLiteral("rx"), base, Along::Width);
    const std::optional<double> ownRy = radius(element, QStringLiteral("ry"), base, Along::Height);
    const double rx = std::min(ownRx.value_or(ownRy.value_or(0.0)), box.width() / 2.0);
    const double ry = std::min(ownRy.value_or(ownRx.value_or(0.0)), box.height() / 2.0);
    if (!(rx > 0.0 && ry > 0.0))
        return box;
    return roundedRectangle(box, rx, ry);
}

std::optional<ShapeGeometry> ellipseAt(const QDomElement &element, const LengthBase &base, double rx,
                                       double ry)
{
    if (!(rx > 0.0 && ry > 0.0))
        return {};
    const QPointF center(lengthAttribute(element, QStringLiteral("cx"), base, Along::Width),
                         lengthAttribute(element, QStringLiteral("cy"), base, Along::Height));
    return UprightEllipse{center, rx, ry};
}

std::optional<ShapeGeometry> circleShape(const QDomElement &element, const LengthBase &base)
{
    const double r = lengthAttribute(element, QStringLiteral("r"), base, Along::Other);
    return ellipseAt(element, base, r, r);
}

std::optional<ShapeGeometry> ellipseShape(const QDomElement &element, const LengthBase &base)
{
    const std::optional<double> rx = radius(element, QStringLiteral("rx"), base, Along::Width);
    const std::optional<double> ry = radius(element, QStringLiteral("ry"), base, Along::Height);
    return ellipseAt(element, base, rx.value_or(ry.value_or(0.0)), ry.value_or(rx.value_or(0.0)));
}

std::optional<ShapeGeometry> lineShape(const QDomElement &element, const LengthBase &base)
{
    Subpath line;
    line.start = {lengthAttribute(element, QStringLiteral("x1"), base, Along::Width),
                  lengthAttribute(element, QStringLiteral("y1"), base, Along::Height)};
    line.lineTo({lengthAttribute(element, QStringLiteral("x2"), base, Along::Width),
                 lengthAttribute(element, QStringLiteral("y2"), base, Along::Height)});
    return Outline{line};
}

/// Reads the points up to the first error and drops a last number without a partner.
std::optional<ShapeGeometry> pointsShape(const QDomElement &element, bool isClosed)
{
    const QString points = element.attribute(QStringLiteral("points"));
    Scanner scanner(points);
    Subpath outline;
    bool hasStart = false;
    scanner.skipBlanks();
    for (;;) {
        const std::optional<double> x = scanner.number();
        scanner.skipSeparator();
        const std::optional<double> y = scanner.number();
        scanner.skipSeparator();
        if (!x || !y)
            break;
        if (hasStart)
            outline.lineTo({*x, *y});
        else
            outline.start = {*x, *y};
        hasStart = true;
    }
    outline.isClosed = isClosed;
    return Outline{outline};
}

std::optional<ShapeGeometry> polylineShape(const QDomElement &element, const LengthBase & /*base*/)
{
    return pointsShape(element, false);
}

std::optional<ShapeGeometry> polygonShape(const QDomElement &element, const LengthBase & /*base*/)
{
    return pointsShape(element, true);
}

struct ShapeRow {
    const char *name;
    ReadShape read;
};

constexpr ShapeRow shapeRows[] = {
    {"path", pathShape}, {"rect", rectShape},         {"circle", circleShape},   {"ellipse", ellipseShape},
    {"line", lineShape}, {"polyline", polylineShape}, {"polygon", polygonShape},
};

} // namespace

std::optional<ShapeGeometry> shapeOf(const QDomElement &element, const LengthBase &base)
{
    const QString name = element.tagName();
    for (const ShapeRow &row : shapeRows) {
        if (name == QLatin1String(row.name))
            return row.read(element, base);
    }
    return {};
}

} // namespace svgprep
