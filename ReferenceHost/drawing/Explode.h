// Explodes block instances into transformed copies of their entities.

#pragma once

#include "drawing/Drawing.h"

namespace refhost {

/// Replaces the block instance `id` of model space by transformed copies of its block's entities, in their
/// order. Fails (false, nothing changed) when `id` is no block instance in model space, when its block is
/// unknown and when a copy's numbers would not be finite.
bool explode(Drawing &drawing, EntityId id);

/// `entity` as `map` shows it. A circle under an uneven scale becomes an ellipse, one pressed flat a line. A
/// note keeps readable letters: it is turned and sized, never mirrored. A nested block instance that `map`
/// would shear cannot be placed; see explodedEntities().
Entity transformed(const Entity &entity, const Affine &map);

/// Transformed copies of all entities of `block`. Instances of other blocks stay instances, unless the map
/// would shear them: then they are taken apart.
std::vector<Entity> explodedEntities(const Drawing &drawing, const BlockDefinition &block, const Affine &map);

} // namespace refhost
