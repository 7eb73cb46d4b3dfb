// How many entities of each kind a drawing got.

#pragma once

#include "drawing/Drawing.h"

#include <array>

/// Counts by kind, in the order of refhost::Entity.
struct EntityCounts {
    std::array<int, std::variant_size_v<refhost::Entity>> byKind = {};

    int total() const;
    void add(const EntityCounts &other);
};

/// The kinds that an SVG file can turn into, in the order of refhost::Entity, named as a reader counts them.
constexpr const char *entityKindNames[] = {"lines", "circles", "ellipses", "polylines", "splines", "notes"};

/// Counts the entities of all block definitions of `drawing`.
EntityCounts countBlockEntities(const refhost::Drawing &drawing);
