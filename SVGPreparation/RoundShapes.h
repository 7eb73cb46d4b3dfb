// Circles and ellipses: what a transform makes of them, and which closed curves are circles.

#pragma once

#include "SVGPreparation/Outline.h"

#include <optional>

namespace svgprep {

/// An ellipse whose axes are parallel to x and y; a circle when its radii are equal.
struct UprightEllipse {
    QPointF center;
    double rx = 0.0;
    double ry = 0.0;
};

/// What `transform` makes of an ellipse; nothing when its axes are no longer parallel to x and y.
std::optional<UprightEllipse> transformedEllipse(const UprightEllipse &ellipse, const QTransform &transform);

struct Circle {
    QPointF center;
    double radius = 0.0;
};

/// The circle that curves, begun at `start`, run once around; nothing when they do not end where they began,
/// or leave the circle by more than a thousandth of its radius.
std::optional<Circle> circleAlong(QPointF start, const Segment *first, const Segment *last);

} // namespace svgprep
