// Fits a viewBox into its room.

#pragma once

#include <QRectF>
#include <QString>
#include <QTransform>

#include <optional>

class QDomElement;

namespace svgprep {

/// The attribute viewBox. No value when it is absent or cannot be read. An empty viewBox hides its content.
std::optional<QRectF> viewBoxOf(const QDomElement &element);

/// Maps `viewBox` into `room` by the rules of `aspectRatio`, an attribute preserveAspectRatio. `viewBox` must
/// not be empty.
QTransform viewBoxTransform(const QRectF &viewBox, const QRectF &room, const QString &aspectRatio);

} // namespace svgprep
