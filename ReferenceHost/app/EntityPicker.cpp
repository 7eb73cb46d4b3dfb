// Paints one entity after the other onto a sheet as small as the pick box, until one leaves a mark.

#include "app/EntityPicker.h"

#include <QImage>
#include <QPainter>

#include <algorithm>

namespace refhost {

namespace {

constexpr int pickBox = 9; // pixels

bool hasInk(const QImage &sheet)
{
    const uchar *bits = sheet.constBits();
    return std::any_of(bits, bits + sheet.sizeInBytes(), [](uchar byte) { return byte != 0; });
}

} // namespace

std::optional<EntityId> entityAt(const Drawing &drawing, DrawingPainter &drawingPainter,
                                 const ViewTransform &view, const QPointF &pixel)
{
    QImage sheet(pickBox, pickBox, QImage::Format_ARGB32_Premultiplied);
    sheet.fill(Qt::transparent);
    ViewTransform box;
    box.center = view.toDrawing(pixel);
    box.pixelsPerUnit = view.pixelsPerUnit;
    box.size = sheet.size();

    QPainter painter(&sheet);
    const std::vector<EntityId> entities = drawing.modelSpace();
    const auto hit = std::find_if(entities.rbegin(), entities.rend(), [&](EntityId id) {
        const BlockDefinition justThis = {{}, {}, {id}};
        drawingPainter.paintBlock(drawing, justThis, Placement(), painter, box);
        return hasInk(sheet);
    });
    return hit == entities.rend() ? std::nullopt : std::make_optional(*hit);
}

} // namespace refhost
