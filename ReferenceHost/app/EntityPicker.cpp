// Looks for lines within the pick box.

#include "app/EntityPicker.h"

#include "view/DrawingPainter.h"

#include <QRectF>

#include <algorithm>

namespace refhost {

namespace {

constexpr double pickBox = 9.0; // pixels

/// The view that shows what `view` shows in `pixels`.
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

} // namespace refhost
