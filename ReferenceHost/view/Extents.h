// The rectangle that a drawing fills.

#pragma once

#include "drawing/Drawing.h"

#include <limits>
#include <vector>

namespace refhost {

/// A rectangle in drawing units that grows point by point and starts empty. Half lengths are given because
/// whole ones of a drawing with huge coordinates may be beyond what a double can hold.
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
    /// Whether it holds all of `other`, and that is something.
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

/// What model space fills, with curves and texts as they are painted; empty for an empty drawing. Blocks
/// within blocks count with the corners of their own extents. Texts are measured: needs a QGuiApplication.
Extents extentsOf(const Drawing &drawing);

/// The same of some entities, as if they stood in model space.
Extents extentsOf(const Drawing &drawing, const std::vector<EntityId> &entities);

/// What an instance of `block`, a definition in `drawing`, fills at `placement`.
Extents extentsOf(const Drawing &drawing, const BlockDefinition &block, const Placement &placement);

} // namespace refhost
