// Geometry that measuring and painting share.

#pragma once

#include "drawing/Entity.h"

#include <cmath>

namespace refhost {

/// Blocks nested deeper than this are neither measured nor painted; it bounds the recursion.
constexpr int deepestNesting = 64;

inline Ellipse asEllipse(const Circle &circle)
{
    return {circle.center, {circle.radius, 0.0, 0.0}, circle.radius};
}

/// The map from letters one unit high that begin at the origin to the letters of `note`, which has been
/// transformed().
inline Affine placeOfLetters(const Note &note)
{
    const double cosine = note.height * std::cos(note.rotation);
    const double sine = note.height * std::sin(note.rotation);
    return {cosine, sine, -sine, cosine, note.position.x, note.position.y, 1.0, 0.0};
}

/// From the centre of `ellipse` to one end of the axis that is not `ellipse.axis`.
inline Point otherAxis(const Ellipse &ellipse)
{
    const double length = planarLength(ellipse.axis);
    const double factor = length > 0.0 ? ellipse.otherRadius / length : 0.0;
    return {-ellipse.axis.y * factor, ellipse.axis.x * factor, 0.0};
}

} // namespace refhost
