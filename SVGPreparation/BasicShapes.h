// The shapes of SVG by their attributes.

#pragma once

#include "SVGPreparation/Length.h"
#include "SVGPreparation/Outline.h"
#include "SVGPreparation/RoundShapes.h"

#include <QDomElement>
#include <QRectF>

#include <optional>
#include <variant>

namespace svgprep {

/// The geometry of one shape, in its own user units.
using ShapeGeometry = std::variant<Outline, QRectF, UprightEllipse>;

/// The geometry of `element`, named path, rect, circle, ellipse, line, polyline or polygon. No value when its
/// attributes draw nothing.
std::optional<ShapeGeometry> shapeOf(const QDomElement &element, const LengthBase &base);

} // namespace svgprep
