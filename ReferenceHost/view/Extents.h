// The rectangle that a drawing fills.

#pragma once

#include "drawing/Drawing.h"

#include <limits>
#include <vector>

namespace refhost {

/// A rectangle in drawing units that starts empty and grows point by point. It gives half lengths, since a
/// double may be too small for the whole length of a huge drawing.
struct Extents {
    double minX = std::numeric_limits<double>::infinity();
    double minY = std::numeric_limits<double>::infinity();
    double maxX = -std::numeric_limits<double>::infinity();
    double maxY = -std::numeric_limits<double>::infinity();

    /// Grows to hold `point`; one that is not finite is ignored.
    void add(const Point &point);
    /// Grows to hold the corners of `other` as `map` shows them.
    void add(const Extents &other, const Affine &map);

    /// The rectangle round its corners as `map` shows them; not finite where they are not.
    Extents mapped(const Affine &map) const;

    bool isEmpty() const { return minX > maxX; }
    /// Whether it holds all of `other`, which is not empty.
    bool contains(const Extents &other) const
    {
        return !other.isEmpty() && minX <= other.minX && minY <= other.minY && maxX >= other.maxX
            && maxY >= other.maxY;
    }
    /// Whether the two have a place in common.
    bool meets(const Extents &other) const
    {
        return minX <= other.maxX && minY <= other.maxY && maxX >= other.minX && maxY >= other.minY;
    }
    /// Whether it holds one place only.
    bool isPoint() const { return minX == maxX && minY == maxY; }
    Point center() const { return {0.5 * minX + 0.5 * maxX, 0.5 * minY + 0.5 * maxY, 0.0}; }
    double halfWidth() const { return 0.5 * maxX - 0.5 * minX; }
    double halfHeight() const { return 0.5 * maxY - 0.5 * minY; }
};

/// The extents of model space as it is painted; empty for an empty drawing. Blocks within blocks count with
/// the corners of their own extents. Needs a QGuiApplication to measure texts.
Extents extentsOf(const Drawing &drawing);

/// The extents of some entities, taken as entities of model space.
Extents extentsOf(const Drawing &drawing, const std::vector<EntityId> &entities);

/// The extents of an instance of `block`, a definition in `drawing`, at `placement`.
Extents extentsOf(const Drawing &drawing, const BlockDefinition &block, const Placement &placement);

} // namespace refhost
