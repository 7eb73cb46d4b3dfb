// Measures each entity once, and each block once however often it is used.

#include "view/EntityBoxes.h"

#include "drawing/Explode.h"
#include "view/Lettering.h"
#include "view/ShapeGeometry.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <utility>

namespace refhost {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr Extents everywhere = {-infinity, -infinity, infinity, infinity};

void unite(Extents &all, const Extents &one)
{
    all = {std::min(all.minX, one.minX), std::min(all.minY, one.minY), std::max(all.maxX, one.maxX),
           std::max(all.maxY, one.maxY)};
}

/// `box` as `map` shows it; without bounds when that is not finite.
Extents placed(const Extents &box, const Affine &map)
{
    if (box.isEmpty())
        return box;
    const Extents result = box.mapped(map);
    const bool isFinite = std::isfinite(result.minX + result.minY + result.maxX + result.maxY);
    return isFinite && keepsAngles(map) ? result : everywhere;
}

/// The box of the control points, which holds the curve too. Its turning points could overflow.
Extents hullOf(const Spline &spline)
{
    Extents hull;
    for (const Point &point : spline.controlPoints)
        hull.add(point);
    return hull;
}

/// Measures all entities of a drawing.
class BoxMeasurement {
public:
    explicit BoxMeasurement(const Drawing &drawing)
        : m_drawing(drawing)
    {
    }

    std::vector<Extents> boxes()
    {
        for (const BlockDefinitionPtr &block : m_drawing.blocks())
            boxOf(*block, 0);
        for (const EntityId id : m_drawing.modelSpace())
            measure(id, 0);
        return std::move(m_boxes);
    }

private:
    Extents boxOf(const BlockDefinition &block, int depth)
    {
        // Without bounds until it is measured. A block that holds itself keeps that box.
        const auto [known, isNew] = m_blocks.emplace(&block, everywhere);
        Extents &box = known->second;
        if (!isNew || depth >= deepestNesting)
            return box;
        Extents all;
        for (const EntityId id : block.entities)
            unite(all, measure(id, depth));
        return box = all;
    }

    Extents measure(EntityId id, int depth)
    {
        const Extents box = m_drawing.find(id) ? boxOf(id, *m_drawing.find(id), depth) : Extents();
        if (id >= m_boxes.size())
            m_boxes.resize(id + 1, everywhere);
        return m_boxes[id] = box;
    }

    Extents boxOf(EntityId id, const Entity &entity, int depth)
    {
        if (const auto *spline = std::get_if<Spline>(&entity))
            return hullOf(*spline);
        if (const auto *note = std::get_if<Note>(&entity))
            return boxOf(*note);
        const auto *instance = std::get_if<BlockInstance>(&entity);
        if (!instance)
            return extentsOf(m_drawing, {id});
        const BlockDefinition *block = m_drawing.block(instance->blockName);
        return block
            ? placed(boxOf(*block, depth + 1), Affine::fromPlacement(instance->placement, block->base))
            : Extents();
    }

    Extents boxOf(const Note &note);

    const Drawing &m_drawing;
    Lettering m_lettering;
    std::vector<Extents> m_boxes;
    std::unordered_map<const BlockDefinition *, Extents> m_blocks;
};

/// The box of a note on both sides of its line, since a mirrored block leaves its letters upright.
Extents BoxMeasurement::boxOf(const Note &note)
{
    constexpr double overhang = 3.0; // letter heights; rare scripts reach beyond the sizes in fonts
    const double width = m_lettering.width(note.text);
    const double up = std::max(m_lettering.ascent(), m_lettering.descent()) + overhang;
    return width > 0.0 ? placed({-overhang, -up, width + overhang, up},
                                placeOfLetters(std::get<Note>(transformed(note, {}))))
                       : Extents();
}

} // namespace

const Extents &EntityBoxes::of(EntityId id) const
{
    std::call_once(m_isMeasured, [this] { m_boxes = BoxMeasurement(m_drawing).boxes(); });
    return id < m_boxes.size() ? m_boxes[id] : everywhere;
}

bool keepsAngles(const Affine &map)
{
    const double tolerance = 1e-9 * (std::abs(map.a) + std::abs(map.b));
    const auto isSame = [tolerance](double x, double y) { return std::abs(x - y) <= tolerance; };
    return (isSame(map.a, map.d) && isSame(map.b, -map.c)) || (isSame(map.a, -map.d) && isSame(map.b, map.c));
}

} // namespace refhost
