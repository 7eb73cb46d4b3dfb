// Boxes around the entities of a drawing, by which a painter leaves out entities far from the view.

#pragma once

#include "view/Extents.h"

#include <mutex>
#include <vector>

namespace refhost {

/// A rectangle around each entity of a drawing, in the coordinates of its model space or block. All are
/// measured at the first call, in linear time and in the calling thread. Needs a QGuiApplication.
class EntityBoxes {
public:
    explicit EntityBoxes(Drawing drawing)
        : m_drawing(std::move(drawing))
    {
    }

    const Drawing &drawing() const { return m_drawing; }

    /// The rectangle of the entity named `id`. It holds under maps that keep angles. It is empty when the
    /// entity shows nothing, and without bounds for an instance that does not keep angles or is nested too
    /// deep.
    const Extents &of(EntityId id) const;

private:
    Drawing m_drawing;
    mutable std::once_flag m_isMeasured;
    mutable std::vector<Extents> m_boxes; // by id
};

/// Whether `map` scales all lengths alike; it may turn, mirror and move.
bool keepsAngles(const Affine &map);

} // namespace refhost
