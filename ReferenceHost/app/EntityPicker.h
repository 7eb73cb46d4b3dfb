// Finds the entities under the cursor or in a window.

#pragma once

#include "view/EntityBoxes.h"
#include "view/ViewTransform.h"

#include <QRectF>

#include <optional>

namespace refhost {

/// The topmost entity of model space that has a line or letters within a few pixels of `pixel`; a block
/// instance counts as one entity.
std::optional<EntityId> entityAt(const EntityBoxes &boxes, const ViewTransform &view, const QPointF &pixel);

/// Whether a window has to hold all of an entity or a part of it.
enum class Within { Wholly, Partly };

/// The entities of model space within the window `pixels` of `view`, in drawing order. A line or the room of
/// letters is enough for `Partly`.
std::vector<EntityId> entitiesIn(const EntityBoxes &boxes, const ViewTransform &view, const QRectF &pixels,
                                 Within within);

} // namespace refhost
