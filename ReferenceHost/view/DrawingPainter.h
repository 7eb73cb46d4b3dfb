// Paints a drawing; window and pictures show it through the same painter.

#pragma once

#include "view/EntityBoxes.h"
#include "view/Lettering.h"
#include "view/ViewTransform.h"

#include <QColor>

#include <functional>
#include <unordered_set>

class QPainter;

namespace refhost {

/// The colours of a drawing and of the sheet behind it.
struct DrawingColours {
    QColor paper;
    QColor ink;
    QColor selected;

    static DrawingColours light();
    static DrawingColours dark();
};

/// Paints drawings with lines of the same width at every scale. Remembers the letters it has set: keep one
/// for as long as a drawing is shown. Needs a QGuiApplication.
class DrawingPainter {
public:
    explicit DrawingPainter(const DrawingColours &colours = DrawingColours::light());

    void setColours(const DrawingColours &colours) { m_colours = colours; }
    const DrawingColours &colours() const { return m_colours; }
    /// In pixels.
    void setLineWidth(double width) { m_lineWidth = width; }
    /// What lies outside the view by `boxes`, those of the drawing to be painted, costs next to nothing.
    void setBoxes(const EntityBoxes *boxes) { m_boxes = boxes; }
    /// Painting ends early when `spend` says so. It is asked at each entity and stroke; 1 is the effort of
    /// a line.
    void setLimit(std::function<bool(int effort)> spend) { m_spend = std::move(spend); }

    /// Paints model space in drawing order, the entities in `selection` with all they hold in the colour for
    /// selected ones. The paper is the caller's to fill. False when it has ended early.
    bool paint(const Drawing &drawing, QPainter &painter, const ViewTransform &view,
               const std::unordered_set<EntityId> &selection = {});

    /// Paints `block` as an instance at `placement` would show it, in the colour for selected entities: where
    /// an insertion is about to go. False when it has ended early.
    bool paintBlock(const Drawing &drawing, const BlockDefinition &block, const Placement &placement,
                    QPainter &painter, const ViewTransform &view);

    /// Whether the entity named `id` in model space has a line, or the room its letters take, within the
    /// rectangle that `view` shows.
    bool isInView(const Drawing &drawing, EntityId id, const ViewTransform &view);

private:
    DrawingColours m_colours;
    double m_lineWidth = 1.0;
    const EntityBoxes *m_boxes = nullptr;
    std::function<bool(int)> m_spend;
    Lettering m_lettering;
};

} // namespace refhost
