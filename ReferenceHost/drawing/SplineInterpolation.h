// The curve the host draws through fit points.

#pragma once

#include "drawing/Entity.h"

namespace refhost {

/// The natural cubic spline through `fitPoints` with uniform parameters, as a chain of Bezier cubics: n
/// points give n - 1 cubics and 3n - 2 control points, the fit points among them. Two points give one
/// straight cubic; coincident points are accepted. Needs two points at least; fewer give an empty spline.
Spline splineThrough(const std::vector<Point> &fitPoints);

} // namespace refhost
