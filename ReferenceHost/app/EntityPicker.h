// Finds the entity that the user points at.

#pragma once

#include "view/DrawingPainter.h"

#include <optional>

namespace refhost {

/// The topmost entity of model space that leaves ink within a few pixels of `pixel`; a block instance counts
/// as one entity. It is found by painting, so that exactly what can be seen can be picked.
std::optional<EntityId> entityAt(const Drawing &drawing, DrawingPainter &drawingPainter,
                                 const ViewTransform &view, const QPointF &pixel);

} // namespace refhost
