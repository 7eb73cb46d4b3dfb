// Arcs become cubics, each of at most a quarter turn, as SVG's implementation notes compute them.

#include "SVGPreparation/Outline.h"

#include <QtMath>

#include <cmath>

namespace svgprep {

namespace {

/// The length of a cubic's handles for an arc of `angle` (radians) on the unit circle.
double handleLength(double angle)
{
    return 4.0 / 3.0 * std::tan(angle / 4.0);
}

/// An arc as a part of the unit circle; `toEllipse` maps the circle to the arc's ellipse.
struct ArcCircle {
    QTransform toEllipse;
    double startAngle = 0.0; // radians
    double sweep = 0.0;      // radians, negative for decreasing angles
};

double angleOf(QPointF point)
{
    return std::atan2(point.y(), point.x());
}

/// SVG recommendation, implementation notes: the end points give the centre, and radii are scaled up when
/// needed.
ArcCircle arcCircle(QPointF start, double rx, double ry, double xAxisRotation, bool isLargeArc, bool sweeps,
                    QPointF end)
{
    const double cosine = std::cos(qDegreesToRadians(xAxisRotation));
    const double sine = std::sin(qDegreesToRadians(xAxisRotation));
    const QPointF half = (start - end) / 2.0;
    // Both points are half the chord away from its middle on the unit circle.
    QPointF chord((cosine * half.x() + sine * half.y()) / rx, (cosine * half.y() - sine * half.x()) / ry);
    const double reach = std::hypot(chord.x(), chord.y());
    QPointF center;
    if (reach > 1.0) {
        rx *= reach;
        ry *= reach;
        chord /= reach;
    } else {
        const double height = std::sqrt((1.0 - reach) * (1.0 + reach)) / reach;
        const double side = isLargeArc == sweeps ? -1.0 : 1.0;
        center = side * height * QPointF(chord.y(), -chord.x());
    }

    ArcCircle circle;
    circle.startAngle = angleOf(chord - center);
    circle.sweep = angleOf(-chord - center) - circle.startAngle;
    if (sweeps && circle.sweep < 0.0)
        circle.sweep += 2.0 * M_PI;
    if (!sweeps && circle.sweep > 0.0)
        circle.sweep -= 2.0 * M_PI;
    const QPointF middle = (start + end) / 2.0;
    const QTransform turned(cosine * rx, sine * rx, -sine * ry, cosine * ry, middle.x(), middle.y());
    circle.toEllipse = combined(QTransform(1.0, 0.0, 0.0, 1.0, center.x(), center.y()), turned);
    return circle;
}

QPointF onUnitCircle(double angle)
{
    return {std::cos(angle), std::sin(angle)};
}

QPointF tangent(double angle)
{
    return {-std::sin(angle), std::cos(angle)};
}

} // namespace

void Subpath::arcTo(double rx, double ry, double xAxisRotation, bool isLargeArc, bool sweeps, QPointF end)
{
    const QPointF from = this->end();
    rx = std::abs(rx);
    ry = std::abs(ry);
    if (from.x() == end.x() && from.y() == end.y())
        return;
    if (!(rx > 0.0 && ry > 0.0)) {
        lineTo(end);
        return;
    }

    const ArcCircle circle = arcCircle(from, rx, ry, xAxisRotation, isLargeArc, sweeps, end);
    if (!std::isfinite(circle.sweep)) { // the numbers are too large to compute with
        lineTo(end);
        return;
    }
    constexpr double slack = 1e-9; // a quarter turn computed slightly too large is still one
    const int pieces = std::max(1, static_cast<int>(std::ceil(std::abs(circle.sweep) / M_PI_2 - slack)));
    const double step = circle.sweep / pieces;
    const double handle = handleLength(step);
    for (int i = 0; i < pieces; ++i) {
        const double angle1 = circle.startAngle + i * step;
        const double angle2 = angle1 + step;
        const bool isLast = i == pieces - 1;
        curveTo(mapped(circle.toEllipse, onUnitCircle(angle1) + handle * tangent(angle1)),
                mapped(circle.toEllipse, onUnitCircle(angle2) - handle * tangent(angle2)),
                isLast ? end : mapped(circle.toEllipse, onUnitCircle(angle2)), isLast);
    }
}

QPointF pointAt(QPointF start, const Segment &curve, double t)
{
    const double s = 1.0 - t;
    return s * s * s * start + 3.0 * s * s * t * curve.control1 + 3.0 * s * t * t * curve.control2
        + t * t * t * curve.end;
}

Outline ellipseOutline(QPointF center, double rx, double ry)
{
    constexpr double kappa = 0.55228474983079340; // 4/3 (sqrt(2) - 1)
    const double x = center.x();
    const double y = center.y();
    const double hx = kappa * rx;
    const double hy = kappa * ry;
    Subpath ellipse;
    ellipse.start = {x + rx, y};
    ellipse.curveTo({x + rx, y + hy}, {x + hx, y + ry}, {x, y + ry});
    ellipse.curveTo({x - hx, y + ry}, {x - rx, y + hy}, {x - rx, y});
    ellipse.curveTo({x - rx, y - hy}, {x - hx, y - ry}, {x, y - ry});
    ellipse.curveTo({x + hx, y - ry}, {x + rx, y - hy}, {x + rx, y});
    ellipse.isClosed = true;
    return {ellipse};
}

Outline outlineOf(const QPainterPath &path)
{
    Outline outline;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        if (element.isMoveTo()) {
            outline.emplace_back();
            outline.back().start = element;
        } else if (element.isLineTo()) {
            outline.back().lineTo(element);
        } else if (i + 2 < path.elementCount()) { // Qt: the end of a curve follows as two data elements
            outline.back().curveTo(element, path.elementAt(i + 1), path.elementAt(i + 2));
            i += 2;
        }
    }
    for (Subpath &subpath : outline)
        subpath.isClosed = true; // letters are filled
    return outline;
}

QTransform combined(const QTransform &first, const QTransform &second)
{
    return {first.m11() * second.m11() + first.m12() * second.m21(),
            first.m11() * second.m12() + first.m12() * second.m22(),
            first.m21() * second.m11() + first.m22() * second.m21(),
            first.m21() * second.m12() + first.m22() * second.m22(),
            first.dx() * second.m11() + first.dy() * second.m21() + second.dx(),
            first.dx() * second.m12() + first.dy() * second.m22() + second.dy()};
}

QPointF mapped(const QTransform &transform, QPointF point)
{
    return {transform.m11() * point.x() + transform.m21() * point.y() + transform.dx(),
            transform.m12() * point.x() + transform.m22() * point.y() + transform.dy()};
}

} // namespace svgprep
