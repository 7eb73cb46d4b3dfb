// Finds the entities that the user points at.

#pragma once

#include "view/EntityBoxes.h"
#include "view/ViewTransform.h"

#include <QRectF>

#include <optional>

namespace refhost {

/// The topmost entity of model space that has a line or letters within a few pixels of `pixel`; a block
/// instance counts as one entity.
std::optional<EntityId> entityAt(const EntityBoxes &boxes, const ViewTransform &view, const QPointF &pixel);

/// How much of an entity a window has to hold.
enum class Within { Wholly, Partly };

/// The entities of model space that are in the window `pixels` of `view`, in drawing order. Partly: with a
/// line, or the room that letters take.
std::vector<EntityId> entitiesIn(const EntityBoxes &boxes, const ViewTransform &view, const QRectF &pixels,
                                 Within within);

} // namespace refhost
