// Where the entities of a drawing are, roughly: enough to leave out what is far from a view.

#pragma once

#include "view/Extents.h"

#include <mutex>
#include <vector>

namespace refhost {

/// For each entity of a drawing a rectangle that it does not leave, in the coordinates of the model space or
/// block that holds it. Measured once, by the thread that asks first: linear in all entities. Needs a
/// QGuiApplication.
class EntityBoxes {
public:
    explicit EntityBoxes(Drawing drawing)
        : m_drawing(std::move(drawing))
    {
    }

    const Drawing &drawing() const { return m_drawing; }

    /// The rectangle of the entity named `id`, to be mapped by maps that keep angles only, as letters do.
    /// Empty when it shows nothing; without bounds for an instance that does not keep angles or is nested too
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
