// How many entities of each kind there are.

#pragma once

#include "drawing/Drawing.h"

#include <array>

namespace refhost {

/// Counts by kind, in the order of Entity.
struct EntityCounts {
    std::array<int, std::variant_size_v<Entity>> byKind = {};

    int total() const;
    void add(const EntityCounts &other);
};

/// The kinds that an SVG file can turn into, in the order of Entity, named as a reader counts them.
constexpr const char *entityKindNames[] = {"lines", "circles", "ellipses", "polylines", "splines", "notes"};

/// Counts the entities of `block`, a definition in `drawing`; those of blocks within it are not among them.
EntityCounts countEntities(const Drawing &drawing, const BlockDefinition &block);

/// The kinds of `counts` that there are: "605 lines, 1 circle".
QString textFromCounts(const EntityCounts &counts);

} // namespace refhost
