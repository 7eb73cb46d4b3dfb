// A frame shows ready pictures and a few lines, so that it costs the same for every drawing.

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
constexpr int restMilliseconds = 100;
constexpr double previewReach = 2.0; // in sizes of the canvas, for a block that is moved about

} // namespace

void Canvas::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), m_colours.paper);
    if (m_document) {
        paintGrid(painter, m_view, m_colours);
        m_sheet.show(painter, m_view, isAtRest());
        if (const auto view = previewView())
            m_previewSheet.show(painter, *view, isAtRest());
    }
    painter.setRenderHint(QPainter::Antialiasing);
    paintWindow(painter);
    paintCrosshair(painter);
}

Canvas::Canvas(const DrawingColours &colours, QWidget *parent)
    : QWidget(parent)
    , m_colours(colours)
    , m_sheet(colours)
    , m_previewSheet(colours, previewReach)
{
    setObjectName(QStringLiteral("canvas"));
    setMouseTracking(true);
    setFocusPolicy(Qt::ClickFocus);
    setMinimumSize(160, 120);
    setCursor(Qt::BlankCursor);
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_view.size = size();
    m_rest.setSingleShot(true);
    m_rest.setInterval(restMilliseconds);
    connect(&m_rest, &QTimer::timeout, this, QOverload<>::of(&Canvas::update));
    for (const Sheet *sheet : {&m_sheet, &m_previewSheet})
        connect(sheet, &Sheet::painted, this, QOverload<>::of(&Canvas::update));
}

void Canvas::setDocument(const HostDocumentPtr &document)
{
    if (document == m_document)
        return;
    if (m_document && !m_showsNothingYet)
        m_earlierViews[m_document.get()] = m_view;
    m_document = document;
    m_state.reset();
    m_sheet.clear();
    m_previewSheet.clear();
    cancelDrag();

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
    takeState();
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
    m_showsNothingYet = m_document && m_document->drawing.modelSpace().empty();
    update();
    if (m_cursor)
        emit cursorMoved(m_view.toDrawing(*m_cursor));
}

void Canvas::setPickingPoint(bool picking)
{
    m_isPickingPoint = picking;
    cancelDrag();
    update();
}

void Canvas::setPreview(const std::optional<BlockPreview> &preview)
{
    m_preview = preview;
    takeState();
    setPreviewContent();
    update();
}

/// Gives the sheets a copy of the drawing to show, so that later changes do not affect them.
void Canvas::takeState()
{
    if (!m_document)
        return;
    const bool isNew = !m_state || m_state->drawing().revision() != m_document->drawing.revision();
    if (isNew)
        m_state = std::make_shared<EntityBoxes>(m_document->drawing);
    if (isNew || m_selection != m_document->selection) {
        m_selection = m_document->selection;
        m_sheet.setContent(m_state,
                           [state = m_state,
                            selected = std::unordered_set<EntityId>(m_selection.begin(), m_selection.end())](
                               DrawingPainter &drawingPainter, QPainter &painter, const ViewTransform &view) {
                               return drawingPainter.paint(state->drawing(), painter, view, selected);
                           });
    }
    if (isNew)
        setPreviewContent();
}

void Canvas::setPreviewContent()
{
    m_previewSheet.clear();
    const BlockDefinition *block =
        m_preview && m_state ? m_state->drawing().block(m_preview->blockName) : nullptr;
    if (!block)
        return;
    Placement atOrigin = m_preview->placement;
    atOrigin.position = {};
    m_previewSheet.setContent(
        m_state,
        [state = m_state, block, atOrigin](DrawingPainter &drawingPainter, QPainter &painter,
                                           const ViewTransform &view) {
            return drawingPainter.paintBlock(state->drawing(), *block, atOrigin, painter, view);
        });
}

/// The canvas's view in the coordinates of the preview's block.
std::optional<ViewTransform> Canvas::previewView() const
{
    if (!m_preview || (m_preview->followsCursor && !m_cursor))
        return {};
    const Point position =
        m_preview->followsCursor ? m_view.toDrawing(*m_cursor) : m_preview->placement.position;
    ViewTransform view = m_view;
    view.center.x -= position.x;
    view.center.y -= position.y;
    return view;
}

/// From where the drag began to the cursor; a drag to the left has a negative width.
QRectF Canvas::window() const
{
    return {m_view.toPixels(*m_dragFrom), *m_cursor};
}

/// The window is solid when it selects entities inside it, and dashed when it also selects those it touches.
void Canvas::paintWindow(QPainter &painter) const
{
    if (!m_dragFrom || !m_cursor)
        return;
    QColor fill = m_colours.selected;
    fill.setAlphaF(0.15);
    painter.setPen(QPen(m_colours.selected, 1.0, window().width() < 0.0 ? Qt::DashLine : Qt::SolidLine));
    painter.setBrush(fill);
    painter.drawRect(window().normalized());
    painter.setBrush(Qt::NoBrush);
}

void Canvas::paintCrosshair(QPainter &painter) const
{
    if (!m_cursor || m_panFrom)
        return;
    constexpr double box = 4.0; // half of the pick box, in pixels
    const double x = std::floor(m_cursor->x()) + 0.5;
    const double y = std::floor(m_cursor->y()) + 0.5;
    QColor colour = m_colours.ink;
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
}

void Canvas::wheelEvent(QWheelEvent *event)
{
    constexpr double factorPerNotch = 1.25;
    constexpr double unitsPerNotch = 120.0;
    m_cursor = event->position();
    m_rest.start();
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
    takeState();
    if (const auto hit = entityAt(*m_state, m_view, event->localPos()))
        emit entitiesPicked({*hit}, event->modifiers().testFlag(Qt::ShiftModifier));
    else
        m_dragFrom = m_view.toDrawing(event->localPos());
}

void Canvas::mouseMoveEvent(QMouseEvent *event)
{
    m_cursor = event->localPos();
    m_rest.start();
    if (!event->buttons().testFlag(Qt::LeftButton))
        cancelDrag();
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
    if (event->button() == Qt::LeftButton && m_dragFrom) {
        m_cursor = event->localPos();
        endDrag(event->modifiers().testFlag(Qt::ShiftModifier));
    }
    if (event->button() != Qt::LeftButton || !std::exchange(m_isPressed, false) || !m_isPickingPoint)
        return;
    // The point is picked at the release, when the canvas has finished with the mouse button.
    emit pointPicked(m_view.toDrawing(event->localPos()));
}

void Canvas::endPanning()
{
    m_panFrom.reset();
    setCursor(Qt::BlankCursor);
    update();
}

/// A drag of a few pixels counts as a click at nothing.
void Canvas::endDrag(bool removes)
{
    constexpr double leastDrag = 4.0; // pixels
    const QRectF dragged = window();
    cancelDrag();
    takeState();
    if (std::hypot(dragged.width(), dragged.height()) < leastDrag) {
        emit entitiesPicked({}, removes);
        return;
    }
    const Within within = dragged.width() < 0.0 ? Within::Partly : Within::Wholly;
    const std::vector<EntityId> ids = entitiesIn(*m_state, m_view, dragged.normalized(), within);
    if (!ids.empty())
        emit entitiesPicked(ids, removes);
}

bool Canvas::cancelDrag()
{
    update();
    return std::exchange(m_dragFrom, std::nullopt).has_value();
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
    emit cursorMoved(m_view.toDrawing(*m_cursor));
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
