// Transforms as an attribute and as a CSS property.

#pragma once

#include "SVGPreparation/Length.h"

#include <QStringView>
#include <QTransform>

#include <optional>

namespace svgprep {

/// The notation of a list of transforms. The numbers of an attribute have no units; the lengths and angles of
/// a property must have them.
enum class TransformSyntax { Attribute, Property };

/// The product of all transforms in `text`. No value when any part cannot be read: browsers then apply none
/// of them. An empty list and "none" move nothing.
std::optional<QTransform> transformFrom(QStringView text, TransformSyntax syntax, const LengthBase &base);

/// The point of a transform-origin, in user units. No value when `text` cannot be read.
std::optional<QPointF> transformOriginFrom(QStringView text, const LengthBase &base);

} // namespace svgprep
