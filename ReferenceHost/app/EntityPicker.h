// Finds the entity that the user points at.

#pragma once

#include "view/EntityBoxes.h"
#include "view/ViewTransform.h"

#include <optional>

namespace refhost {

/// The topmost entity of model space that has a line or letters within a few pixels of `pixel`; a block
/// instance counts as one entity.
std::optional<EntityId> entityAt(const EntityBoxes &boxes, const ViewTransform &view, const QPointF &pixel);

} // namespace refhost
