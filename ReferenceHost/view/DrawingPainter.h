// Paints drawings, for the window and for pictures.

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

/// Paints drawings with lines of the same width at every scale. It remembers the letters it has set, so one
/// painter should serve a drawing for as long as it is shown. Needs a QGuiApplication.
class DrawingPainter {
public:
    explicit DrawingPainter(const DrawingColours &colours = DrawingColours::light());

    const DrawingColours &colours() const { return m_colours; }
    /// In pixels.
    void setLineWidth(double width) { m_lineWidth = width; }
    /// Sets the boxes of the drawing to be painted. Entities outside the view then cost next to nothing.
    void setBoxes(const EntityBoxes *boxes) { m_boxes = boxes; }
    /// `spend` is called at each entity and stroke; the effort of a line is 1. Painting ends early when it
    /// returns false.
    void setLimit(std::function<bool(int effort)> spend) { m_spend = std::move(spend); }

    /// Paints model space in drawing order, the entities in `selection` in the colour for selected ones. The
    /// paper is left to the caller. False when painting has ended early.
    bool paint(const Drawing &drawing, QPainter &painter, const ViewTransform &view,
               const std::unordered_set<EntityId> &selection = {});

    /// Paints an instance of `block` at `placement` in the colour for selected entities, as the preview of an
    /// insertion. False when painting has ended early.
    bool paintBlock(const Drawing &drawing, const BlockDefinition &block, const Placement &placement,
                    QPainter &painter, const ViewTransform &view);

    /// Whether the entity named `id` in model space has a line or the room of its letters within `view`.
    bool isInView(const Drawing &drawing, EntityId id, const ViewTransform &view);

private:
    DrawingColours m_colours;
    double m_lineWidth = 1.0;
    const EntityBoxes *m_boxes = nullptr;
    std::function<bool(int)> m_spend;
    Lettering m_lettering;
};

} // namespace refhost
