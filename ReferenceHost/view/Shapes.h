// What measuring a drawing and painting it have in common.

#pragma once

#include "drawing/Entity.h"

namespace refhost {

/// Blocks nested deeper than this are neither measured nor painted; it bounds the recursion.
constexpr int deepestNesting = 64;

inline Ellipse asEllipse(const Circle &circle)
{
    return {circle.center, {circle.radius, 0.0, 0.0}, circle.radius};
}

/// From the centre of `ellipse` to one end of the axis that is not `ellipse.axis`.
inline Point otherAxis(const Ellipse &ellipse)
{
    const double length = planarLength(ellipse.axis);
    const double factor = length > 0.0 ? ellipse.otherRadius / length : 0.0;
    return {-ellipse.axis.y * factor, ellipse.axis.x * factor, 0.0};
}

} // namespace refhost
