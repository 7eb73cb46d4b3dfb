// Natural cubic interpolation. The slopes m[i] at the fit points solve the tridiagonal system
//   2 m[0] + m[1] = 3 (p[1] - p[0])
//   m[i-1] + 4 m[i] + m[i+1] = 3 (p[i+1] - p[i-1])
//   m[n-2] + 2 m[n-1] = 3 (p[n-1] - p[n-2])
// (natural ends: no curvature there), and each cubic's inner control points lie a third of a slope from its
// ends.

#include "drawing/SplineInterpolation.h"

namespace refhost {

namespace {

Point scaled(const Point &p, double factor)
{
    return {p.x * factor, p.y * factor, p.z * factor};
}

Point sum(const Point &p, const Point &q)
{
    return {p.x + q.x, p.y + q.y, p.z + q.z};
}

Point difference(const Point &p, const Point &q)
{
    return {p.x - q.x, p.y - q.y, p.z - q.z};
}

/// Solves the tridiagonal system above in one sweep down and one up.
std::vector<Point> slopes(const std::vector<Point> &p)
{
    const std::size_t last = p.size() - 1;
    if (last == 1) // one straight cubic
        return {difference(p[1], p[0]), difference(p[1], p[0])};

    std::vector<double> upper(p.size());
    std::vector<Point> m(p.size());
    upper[0] = 0.5;
    m[0] = scaled(difference(p[1], p[0]), 3.0 * 0.5);
    for (std::size_t i = 1; i <= last; ++i) {
        const double diagonal = i == last ? 2.0 : 4.0;
        const Point right = scaled(difference(p[i == last ? last : i + 1], p[i - 1]), 3.0);
        const double pivot = 1.0 / (diagonal - upper[i - 1]);
        upper[i] = pivot;
        m[i] = scaled(difference(right, m[i - 1]), pivot);
    }
    for (std::size_t i = last; i-- > 0;)
        m[i] = difference(m[i], scaled(m[i + 1], upper[i]));
    return m;
}

} // namespace

Spline splineThrough(const std::vector<Point> &fitPoints)
{
    if (fitPoints.size() < 2)
        return {};

    const std::vector<Point> m = slopes(fitPoints);
    Spline spline;
    spline.controlPoints.reserve(3 * fitPoints.size() - 2);
    spline.controlPoints.push_back(fitPoints.front());
    for (std::size_t i = 1; i < fitPoints.size(); ++i) {
        spline.controlPoints.push_back(sum(fitPoints[i - 1], scaled(m[i - 1], 1.0 / 3.0)));
        spline.controlPoints.push_back(difference(fitPoints[i], scaled(m[i], 1.0 / 3.0)));
        spline.controlPoints.push_back(fitPoints[i]);
    }
    return spline;
}

} // namespace refhost
