// Transforms, as an attribute and as a CSS property.

#pragma once

#include "SVGPreparation/Length.h"

#include <QStringView>
#include <QTransform>

#include <optional>

namespace svgprep {

/// How a list of transforms is written: an attribute's numbers have no units, a property's lengths and angles
/// must have them.
enum class TransformSyntax { Attribute, Property };

/// The product of all transforms in `text`; nothing when anything in it cannot be read, as browsers do, which
/// then apply none of them. An empty list and "none" move nothing.
std::optional<QTransform> transformFrom(QStringView text, TransformSyntax syntax, const LengthBase &base);

/// The point that `text`, a transform-origin, names, in user units; nothing when it cannot be read.
std::optional<QPointF> transformOriginFrom(QStringView text, const LengthBase &base);

} // namespace svgprep
