// Decides by the boxes of entities, and looks at their lines where these leave it open.

#include "app/EntityPicker.h"

#include "view/DrawingPainter.h"

#include <algorithm>

namespace refhost {

namespace {

constexpr double pickBox = 9.0; // pixels

/// The part of `view` within the rectangle `pixels`.
ViewTransform partOf(const ViewTransform &view, const QRectF &pixels)
{
    return {view.toDrawing(pixels.center()), view.pixelsPerUnit, pixels.size()};
}

} // namespace

std::optional<EntityId> entityAt(const EntityBoxes &boxes, const ViewTransform &view, const QPointF &pixel)
{
    DrawingPainter painter;
    painter.setBoxes(&boxes);
    const QPointF corner(0.5 * pickBox, 0.5 * pickBox);
    const ViewTransform box = partOf(view, {pixel - corner, pixel + corner});
    const std::vector<EntityId> entities = boxes.drawing().modelSpace();
    const auto hit = std::find_if(entities.rbegin(), entities.rend(),
                                  [&](EntityId id) { return painter.isInView(boxes.drawing(), id, box); });
    return hit == entities.rend() ? std::nullopt : std::make_optional(*hit);
}

std::vector<EntityId> entitiesIn(const EntityBoxes &boxes, const ViewTransform &view, const QRectF &pixels,
                                 Within within)
{
    DrawingPainter painter;
    painter.setBoxes(&boxes);
    const ViewTransform windowView = partOf(view, pixels);
    Extents window;
    window.add(view.toDrawing(pixels.topLeft()));
    window.add(view.toDrawing(pixels.bottomRight()));

    const auto isIn = [&](EntityId id) {
        const Extents &box = boxes.of(id);
        if (window.contains(box) || !window.meets(box))
            return window.contains(box);
        return within == Within::Wholly ? window.contains(extentsOf(boxes.drawing(), {id}))
                                        : painter.isInView(boxes.drawing(), id, windowView);
    };
    std::vector<EntityId> entities = boxes.drawing().modelSpace();
    entities.erase(std::remove_if(entities.begin(), entities.end(), [&](EntityId id) { return !isIn(id); }),
                   entities.end());
    return entities;
}

} // namespace refhost
