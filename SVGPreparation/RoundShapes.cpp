// Finds the axes of transformed ellipses, and circles in curves.

#include "SVGPreparation/RoundShapes.h"

#include <QtMath>

#include <algorithm>
#include <cmath>

namespace svgprep {

namespace {

constexpr double circleTolerance = 1e-3; // of the radius

double cross(QPointF a, QPointF b)
{
    return a.x() * b.y() - a.y() * b.x();
}

/// The circle through three points; its radius is not finite when they lie on a line.
Circle circleThrough(QPointF a, QPointF b, QPointF c)
{
    const QPointF ab = b - a;
    const QPointF ac = c - a;
    const double area = 2.0 * cross(ab, ac);
    const double ab2 = QPointF::dotProduct(ab, ab);
    const double ac2 = QPointF::dotProduct(ac, ac);
    const QPointF fromA((ac.y() * ab2 - ab.y() * ac2) / area, (ab.x() * ac2 - ac.x() * ab2) / area);
    return {a + fromA, std::hypot(fromA.x(), fromA.y())};
}

} // namespace

std::optional<UprightEllipse> transformedEllipse(const UprightEllipse &ellipse, const QTransform &transform)
{
    // The half axes become conjugate half diameters u and v; the ellipse reaches as far as both together.
    const QPointF u(transform.m11() * ellipse.rx, transform.m12() * ellipse.rx);
    const QPointF v(transform.m21() * ellipse.ry, transform.m22() * ellipse.ry);
    const double rx = std::hypot(u.x(), v.x());
    const double ry = std::hypot(u.y(), v.y());
    const double slant = u.x() * u.y() + v.x() * v.y();
    constexpr double noise = 1e-11; // of the larger radius, squared
    const double larger = std::max(rx, ry);
    if (!(std::abs(slant) <= noise * larger * larger))
        return {};
    const QPointF center = mapped(transform, ellipse.center);
    if (std::abs(rx - ry) <= noise * larger)
        return UprightEllipse{center, rx, rx};
    return UprightEllipse{center, rx, ry};
}

std::optional<Circle> circleAlong(QPointF start, const Segment *first, const Segment *last)
{
    const auto count = last - first;
    const bool isCurved = std::all_of(first, last, [](const Segment &segment) { return segment.isCurve; });
    if (count < 2 || !isCurved || (last - 1)->end != start)
        return {};
    const QPointF second = count == 2 ? pointAt(start, first[0], 0.5) : first[count / 3 - 1].end;
    const QPointF third = count == 2 ? first[0].end : first[count * 2 / 3 - 1].end;
    const Circle circle = circleThrough(start, second, third);
    if (!(circle.radius > 0.0) || !std::isfinite(circle.radius))
        return {};

    constexpr int samples = 8; // for each curve
    double turned = 0.0;
    QPointF from = start;
    QPointF before = start - circle.center;
    double direction = 0.0;
    for (const Segment *curve = first; curve != last; ++curve) {
        for (int i = 1; i <= samples; ++i) {
            const QPointF point = pointAt(from, *curve, double(i) / samples) - circle.center;
            const double distance = std::hypot(point.x(), point.y());
            if (!(std::abs(distance - circle.radius) <= circleTolerance * circle.radius))
                return {};
            const double turn = std::atan2(cross(before, point), QPointF::dotProduct(before, point));
            if (turn * direction < 0.0)
                return {}; // the curve runs back
            direction = turn;
            turned += turn;
            before = point;
        }
        from = curve->end;
    }
    const bool isOneTurn = std::abs(std::abs(turned) - 2.0 * M_PI) < 1e-6;
    return isOneTurn ? std::optional<Circle>(circle) : std::nullopt;
}

} // namespace svgprep
