// How a viewBox is fitted into the room it is given.

#pragma once

#include <QRectF>
#include <QString>
#include <QTransform>

#include <optional>

class QDomElement;

namespace svgprep {

/// The attribute viewBox; nothing when it is absent or cannot be read. It may be empty, which hides all that
/// is in it.
std::optional<QRectF> viewBoxOf(const QDomElement &element);

/// Maps `viewBox`, which must not be empty, into `room` the way that `aspectRatio`, an attribute
/// preserveAspectRatio, says.
QTransform viewBoxTransform(const QRectF &viewBox, const QRectF &room, const QString &aspectRatio);

} // namespace svgprep
