// The drawing area, which shows the active drawing. The user moves the view and picks entities and points.

#pragma once

#include "api/HostDocument.h"
#include "app/Sheet.h"

#include <QTimer>
#include <QWidget>

#include <optional>
#include <unordered_map>

namespace refhost {

/// The preview of a block before its insertion.
struct BlockPreview {
    QString blockName;
    Placement placement;
    bool followsCursor = false;
};

class Canvas : public QWidget {
    Q_OBJECT

public:
    explicit Canvas(const DrawingColours &colours, QWidget *parent = nullptr);

    /// Shows `document` in its last view; null shows nothing.
    void setDocument(const HostDocumentPtr &document);
    /// Forgets the views of drawings that are not among `open`.
    void keepViewsOf(const std::vector<HostDocumentPtr> &open);
    /// Shows the drawing and its selection as they are now. One that was empty before is shown as a whole.
    void drawingChanged();

    const ViewTransform &view() const { return m_view; }
    /// False while a better picture is being painted.
    bool isUpToDate() const { return isAtRest() && !m_sheet.isPainting() && !m_previewSheet.isPainting(); }
    void zoomToExtents();

    /// While true, a click picks a point instead of an entity.
    void setPickingPoint(bool picking);
    void setPreview(const std::optional<BlockPreview> &preview);

    /// Ends the drag of a window; false when there is none.
    bool cancelDrag();

signals:
    void cursorMoved(const refhost::Point &point);
    void pointPicked(const refhost::Point &point);
    /// The user has clicked at an entity or at nothing, or has dragged a window. `removes` is true with the
    /// shift key.
    void entitiesPicked(const std::vector<refhost::EntityId> &ids, bool removes);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void enterEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    void setView(const ViewTransform &view);
    void endPanning();
    void endDrag(bool removes);
    void takeState();
    void setPreviewContent();
    bool isAtRest() const { return !m_rest.isActive(); }
    std::optional<ViewTransform> previewView() const;
    void paintWindow(QPainter &painter) const;
    void paintCrosshair(QPainter &painter) const;
    /// From where the drag began to the cursor; to the left its width is negative.
    QRectF window() const;

    const DrawingColours m_colours;
    HostDocumentPtr m_document;
    std::shared_ptr<const EntityBoxes> m_state; // the drawing as it is shown
    std::vector<EntityId> m_selection;          // as it is shown
    ViewTransform m_view;
    std::unordered_map<const HostDocument *, ViewTransform> m_earlierViews;
    Sheet m_sheet;
    Sheet m_previewSheet; // with the preview's block at the origin
    QTimer m_rest;        // runs until the mouse has rested
    std::optional<BlockPreview> m_preview;
    std::optional<QPointF> m_cursor;
    std::optional<QPointF> m_panFrom;
    std::optional<Point> m_dragFrom; // in the drawing
    bool m_showsNothingYet = true;
    bool m_isPickingPoint = false;
    bool m_isPressed = false; // for a point to be picked at the release
};

/// `view` magnified by `factor`; the point under `pixel` stays there.
ViewTransform magnified(const ViewTransform &view, const QPointF &pixel, double factor);

} // namespace refhost
