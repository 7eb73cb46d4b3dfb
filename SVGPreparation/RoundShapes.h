// Circles and ellipses: how a transform changes them, and which closed curves are circles.

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

/// The ellipse under `transform`. No value when its axes are no longer parallel to x and y.
std::optional<UprightEllipse> transformedEllipse(const UprightEllipse &ellipse, const QTransform &transform);

struct Circle {
    QPointF center;
    double radius = 0.0;
};

/// The circle that curves from `start` run around once. No value when they do not end at `start`, or leave
/// the circle by more than a thousandth of its radius.
std::optional<Circle> circleAlong(QPointF start, const Segment *first, const Segment *last);

} // namespace svgprep
