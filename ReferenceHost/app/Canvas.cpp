// Keeps the painted drawing as a picture, so that crosshair and preview can follow the cursor at any size of
// drawing.

#include "app/Canvas.h"

#include "app/CanvasGrid.h"
#include "app/EntityPicker.h"

#include <QMouseEvent>
#include <QPainter>
#include <QtMath>

#include <algorithm>
#include <cmath>
#include <utility>

namespace refhost {

namespace {

constexpr double extentsMargin = 24.0; // pixels

} // namespace

void Canvas::paintEvent(QPaintEvent * /*event*/)
{
    if (m_sheet.isNull())
        paintSheet();
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_sheet);
    painter.setRenderHint(QPainter::Antialiasing);
    paintPreview(painter);
    paintCrosshair(painter);
}

Canvas::Canvas(const DrawingColours &colours, QWidget *parent)
    : QWidget(parent)
    , m_painter(colours)
{
    setObjectName(QStringLiteral("canvas"));
    setMouseTracking(true);
    setFocusPolicy(Qt::ClickFocus);
    setMinimumSize(160, 120);
    setCursor(Qt::BlankCursor);
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_view.size = size();
}

void Canvas::setDocument(const HostDocumentPtr &document)
{
    if (document == m_document)
        return;
    if (m_document && !m_showsNothingYet)
        m_earlierViews[m_document.get()] = m_view;
    m_document = document;

    const auto earlier = m_earlierViews.find(document.get());
    m_showsNothingYet = earlier == m_earlierViews.end();
    m_view = m_showsNothingYet ? ViewTransform() : earlier->second;
    m_view.size = size();
    drawingChanged();
}

void Canvas::keepViewsOf(const std::vector<HostDocumentPtr> &open)
{
    std::unordered_map<const HostDocument *, ViewTransform> kept;
    for (const HostDocumentPtr &document : open) {
        const auto view = m_earlierViews.find(document.get());
        if (view != m_earlierViews.end())
            kept.insert(*view);
    }
    m_earlierViews = std::move(kept);
}

void Canvas::drawingChanged()
{
    m_sheet = {};
    if (m_showsNothingYet && m_document && !m_document->drawing.modelSpace().empty())
        zoomToExtents();
    update();
}

void Canvas::zoomToExtents()
{
    if (!m_document)
        return;
    setView(ViewTransform::fitting(extentsOf(m_document->drawing), size(), extentsMargin));
}

void Canvas::setView(const ViewTransform &view)
{
    m_view = view;
    m_sheet = {};
    m_showsNothingYet = m_document && m_document->drawing.modelSpace().empty();
    update();
    if (m_cursor)
        emit cursorMoved(m_view.toDrawing(*m_cursor));
}

void Canvas::setPickingPoint(bool picking)
{
    m_isPickingPoint = picking;
    update();
}

void Canvas::setPreview(const std::optional<BlockPreview> &preview)
{
    m_preview = preview;
    update();
}

void Canvas::paintSheet()
{
    const double ratio = devicePixelRatioF();
    m_sheet = QPixmap(size() * ratio);
    m_sheet.setDevicePixelRatio(ratio);
    m_sheet.fill(m_painter.colours().paper);
    QPainter painter(&m_sheet);
    if (!m_document)
        return;
    paintGrid(painter, m_view, m_painter.colours());
    painter.setRenderHint(QPainter::Antialiasing);
    const std::vector<EntityId> &selection = m_document->selection;
    m_painter.paint(m_document->drawing, painter, m_view, {selection.begin(), selection.end()});
}

void Canvas::paintPreview(QPainter &painter)
{
    if (!m_preview || !m_document)
        return;
    const BlockDefinition *block = m_document->drawing.block(m_preview->blockName);
    if (!block || (m_preview->followsCursor && !m_cursor))
        return;
    Placement placement = m_preview->placement;
    if (m_preview->followsCursor)
        placement.position = m_view.toDrawing(*m_cursor);
    m_painter.paintBlock(m_document->drawing, *block, placement, painter, m_view);
}

void Canvas::paintCrosshair(QPainter &painter) const
{
    if (!m_cursor || m_panFrom)
        return;
    constexpr double box = 4.0; // half of the pick box, in pixels
    const double x = std::floor(m_cursor->x()) + 0.5;
    const double y = std::floor(m_cursor->y()) + 0.5;
    QColor colour = m_painter.colours().ink;
    colour.setAlphaF(0.65);
    painter.setPen(QPen(colour, 1.0));
    painter.setRenderHint(QPainter::Antialiasing, false);
    const double gap = m_isPickingPoint ? 0.0 : box;
    painter.drawLine(QPointF(0.0, y), QPointF(x - gap, y));
    painter.drawLine(QPointF(x + gap, y), QPointF(width(), y));
    painter.drawLine(QPointF(x, 0.0), QPointF(x, y - gap));
    painter.drawLine(QPointF(x, y + gap), QPointF(x, height()));
    if (!m_isPickingPoint)
        painter.drawRect(QRectF(x - box, y - box, 2.0 * box, 2.0 * box));
}

void Canvas::resizeEvent(QResizeEvent * /*event*/)
{
    m_view.size = size();
    m_sheet = {};
}

void Canvas::wheelEvent(QWheelEvent *event)
{
    constexpr double factorPerNotch = 1.25;
    constexpr double unitsPerNotch = 120.0;
    m_cursor = event->position();
    const double factor = std::pow(factorPerNotch, event->angleDelta().y() / unitsPerNotch);
    setView(magnified(m_view, event->position(), factor));
}

void Canvas::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::MiddleButton) {
        m_panFrom = event->localPos();
        setCursor(Qt::ClosedHandCursor);
        return;
    }
    if (event->button() != Qt::LeftButton || !m_document)
        return;
    m_cursor = event->localPos();
    if (m_isPickingPoint) {
        m_isPressed = true;
        return;
    }
    const auto hit = entityAt(m_document->drawing, m_painter, m_view, event->localPos());
    emit entityPicked(hit.value_or(0), event->modifiers().testFlag(Qt::ShiftModifier));
}

void Canvas::mouseMoveEvent(QMouseEvent *event)
{
    m_cursor = event->localPos();
    if (m_panFrom && !event->buttons().testFlag(Qt::MiddleButton))
        endPanning(); // it was let go over a dialog
    if (m_panFrom) {
        const Point from = m_view.toDrawing(*m_panFrom);
        const Point to = m_view.toDrawing(event->localPos());
        ViewTransform view = m_view;
        view.center.x += from.x - to.x;
        view.center.y += from.y - to.y;
        m_panFrom = event->localPos();
        setView(view);
        return;
    }
    emit cursorMoved(m_view.toDrawing(event->localPos()));
    update();
}

void Canvas::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::MiddleButton)
        endPanning();
    if (event->button() != Qt::LeftButton || !std::exchange(m_isPressed, false) || !m_isPickingPoint)
        return;
    // Not at the press: what answers it must find the canvas done with its mouse button.
    emit pointPicked(m_view.toDrawing(event->localPos()));
}

void Canvas::endPanning()
{
    m_panFrom.reset();
    setCursor(Qt::BlankCursor);
    update();
}

void Canvas::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::MiddleButton)
        zoomToExtents();
    else
        mousePressEvent(event);
}

/// The cursor may come in without moving: a dialog that lay over it was closed.
void Canvas::enterEvent(QEvent *event)
{
    m_cursor = static_cast<QEnterEvent *>(event)->localPos();
    update();
}

void Canvas::leaveEvent(QEvent * /*event*/)
{
    m_cursor.reset();
    update();
}

ViewTransform magnified(const ViewTransform &view, const QPointF &pixel, double factor)
{
    constexpr double smallest = 1e-12;
    constexpr double largest = 1e12;
    const Point fixed = view.toDrawing(pixel);
    ViewTransform result = view;
    // Drawings beyond all measure are shown beyond these, and stay so.
    result.pixelsPerUnit = std::clamp(view.pixelsPerUnit * factor, std::min(smallest, view.pixelsPerUnit),
                                      std::max(largest, view.pixelsPerUnit));
    const Point moved = result.toDrawing(pixel);
    result.center.x += fixed.x - moved.x;
    result.center.y += fixed.y - moved.y;
    return result;
}

} // namespace refhost
