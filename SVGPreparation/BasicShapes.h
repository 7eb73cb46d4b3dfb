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

/// A shape in its own user units: as the geometry that its element stands for.
using ShapeGeometry = std::variant<Outline, QRectF, UprightEllipse>;

/// What `element`, which must be named path, rect, circle, ellipse, line, polyline or polygon, draws; nothing
/// when its attributes draw nothing.
std::optional<ShapeGeometry> shapeOf(const QDomElement &element, const LengthBase &base);

} // namespace svgprep
