// Brings each shape into pixels in doubles before QPainter sees it. A drawing may lie millions of units from
// its origin.

#include "view/DrawingPainter.h"

#include "drawing/Explode.h"
#include "view/ShapeGeometry.h"
#include "view/VisiblePath.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace refhost {

namespace {

constexpr int elementsOfLine = 16; // path elements with the effort of a line

/// The maps of the entities in model space or in one placed block.
struct Mapping {
    Affine toDrawing;
    Affine toPixels;
    int depth = 0;
    bool keepsAngles = true; // boxes hold here
};

QPointF pixelOf(const Point &point, const Mapping &mapping)
{
    const Point pixel = mapping.toPixels.mapPoint(point);
    return {pixel.x, pixel.y};
}

QPointF pixelVector(const Point &vector, const Mapping &mapping)
{
    const Point pixels = mapping.toPixels.mapVector(vector);
    return {pixels.x, pixels.y};
}

/// Whether the straight line from `from` to `to` has a point in common with `rect`.
bool meets(const QPointF &from, const QPointF &to, const QRectF &rect)
{
    const QPointF along = to - from;
    const QPointF toCenter = rect.center() - from;
    return std::min(from.x(), to.x()) <= rect.right() && std::max(from.x(), to.x()) >= rect.left()
        && std::min(from.y(), to.y()) <= rect.bottom() && std::max(from.y(), to.y()) >= rect.top()
        && 2.0 * std::abs(along.x() * toCenter.y() - along.y() * toCenter.x())
        <= std::abs(along.x()) * rect.height() + std::abs(along.y()) * rect.width();
}

bool meets(const QPolygonF &line, const QRectF &rect)
{
    return std::adjacent_find(
               line.begin(), line.end(),
               [&rect](const QPointF &from, const QPointF &to) { return meets(from, to, rect); })
        != line.end();
}

/// One pass over a drawing. Without a painter it ends at the first line in the view.
class EntityPass {
public:
    EntityPass(const Drawing &drawing, QPainter *painter, const ViewTransform &view, Lettering &lettering,
               double lineWidth, const EntityBoxes *boxes, const std::function<bool(int)> &spend)
        : m_drawing(drawing)
        , m_painter(painter)
        , m_view(view)
        , m_lettering(lettering)
        , m_lineWidth(lineWidth)
        , m_boxes(boxes)
        , m_spend(spend)
    {
        const double margin = painter ? lineWidth + 1.0 : 0.0;
        m_visible = viewRect().adjusted(-margin, -margin, margin, margin);
    }

    bool isComplete() const { return !m_hasEnded; }
    bool hasFound() const { return m_hasFound; }

    void setColour(const QColor &colour)
    {
        QPen pen(colour, m_lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
        pen.setCosmetic(true);
        m_painter->setPen(pen);
        m_painter->setBrush(Qt::NoBrush);
        m_colour = colour;
    }

    void paint(EntityId id, const Mapping &mapping)
    {
        const Entity *entity = m_drawing.find(id);
        if (entity && spend(1) && !isOutside(id, mapping))
            std::visit([&](const auto &shape) { show(shape, mapping); }, *entity);
    }

    void paint(const BlockDefinition &block, const Placement &placement, const Mapping &outer)
    {
        if (outer.depth >= deepestNesting)
            return;
        Mapping mapping;
        mapping.toDrawing = combined(Affine::fromPlacement(placement, block.base), outer.toDrawing);
        mapping.toPixels = combined(mapping.toDrawing, m_view.toPixels());
        mapping.depth = outer.depth + 1;
        mapping.keepsAngles = keepsAngles(mapping.toDrawing);
        for (const EntityId id : block.entities) {
            if (m_hasEnded || (mapping.depth > 1 && !countNested()))
                return;
            paint(id, mapping);
        }
    }

private:
    void show(const Line &line, const Mapping &mapping)
    {
        VisiblePath path(m_visible);
        path.addLine(pixelOf(line.start, mapping), pixelOf(line.end, mapping));
        stroke(path);
    }

    void show(const Circle &circle, const Mapping &mapping) { show(asEllipse(circle), mapping); }

    void show(const Ellipse &ellipse, const Mapping &mapping)
    {
        VisiblePath path(m_visible);
        const QPointF center = pixelOf(ellipse.center, mapping);
        path.addEllipse(center, pixelVector(ellipse.axis, mapping), pixelVector(otherAxis(ellipse), mapping));
        stroke(path);
    }

    void show(const Polyline &polyline, const Mapping &mapping);
    void show(const Spline &spline, const Mapping &mapping);
    void show(const Note &note, const Mapping &mapping);

    void show(const BlockInstance &instance, const Mapping &mapping)
    {
        if (const BlockDefinition *block = m_drawing.block(instance.blockName))
            paint(*block, instance.placement, mapping);
    }

    void stroke(const VisiblePath &path);
    void strokeIfLong(VisiblePath &path);
    void search(const QPainterPath &path, bool isFilled);
    QRectF viewRect() const { return {QPointF(), m_view.size}; }
    bool isOutside(EntityId id, const Mapping &mapping) const;
    bool spend(int effort);
    bool countNested();

    const Drawing &m_drawing;
    QPainter *m_painter;
    const ViewTransform m_view;
    Lettering &m_lettering;
    const double m_lineWidth;
    const EntityBoxes *m_boxes;
    const std::function<bool(int)> m_spend;
    bool m_hasEnded = false;
    bool m_hasFound = false;
    QRectF m_visible;
    QColor m_colour;
    int m_nestedLeft = 2000000;
};

void EntityPass::show(const Polyline &polyline, const Mapping &mapping)
{
    const std::vector<double> &points = polyline.points;
    if (points.size() < 2)
        return;
    VisiblePath path(m_visible);
    const QPointF first = pixelOf({points[0], points[1], 0.0}, mapping);
    QPointF from = first;
    for (std::size_t i = 2; i + 1 < points.size() && !m_hasEnded; i += 2) {
        const QPointF to = pixelOf({points[i], points[i + 1], 0.0}, mapping);
        path.addLine(from, to);
        from = to;
        strokeIfLong(path);
    }
    if (polyline.closed)
        path.addLine(from, first);
    stroke(path);
}

void EntityPass::show(const Spline &spline, const Mapping &mapping)
{
    const std::vector<Point> &control = spline.controlPoints;
    VisiblePath path(m_visible);
    for (std::size_t i = 0; i + 3 < control.size() && !m_hasEnded; i += 3) {
        path.addCubic(pixelOf(control[i], mapping), pixelOf(control[i + 1], mapping),
                      pixelOf(control[i + 2], mapping), pixelOf(control[i + 3], mapping));
        strokeIfLong(path);
    }
    stroke(path);
}

void EntityPass::show(const Note &note, const Mapping &mapping)
{
    constexpr double smallestLegible = 2.0; // pixels
    constexpr double widestLetter = 20.0;   // letter heights; some scripts have whole words in one letter
    const Note shown = std::get<Note>(transformed(note, mapping.toDrawing));
    const QPointF start = m_view.toPixels(shown.position);
    const double height = shown.height * m_view.pixelsPerUnit;
    VisiblePath path(m_visible);
    if (!path.mayShow(start, height * widestLetter * (1 + shown.text.size())))
        return;

    const bool isLegible = m_painter && height >= smallestLegible;
    const double scale = height / m_lettering.outlineHeight();
    const double cosine = scale * std::cos(shown.rotation);
    const double sine = scale * std::sin(shown.rotation);
    const QTransform toPixels(cosine, -sine, sine, cosine, start.x(), start.y());
    path.addLetters(toPixels.map(isLegible ? m_lettering.outline(shown.text) : m_lettering.bar(shown.text)));
    spend(path.path().elementCount() / elementsOfLine);
    if (!m_painter) {
        search(path.path(), true);
        return;
    }

    QColor colour = m_colour;
    if (!isLegible)
        colour.setAlphaF(0.4); // about as much ink as letters have
    m_painter->fillPath(path.path(), colour);
}

/// A shape too small for a line leaves a dot.
void EntityPass::stroke(const VisiblePath &path)
{
    constexpr double dot = 0.1; // pixels
    if (path.path().elementCount() == 0)
        return;
    spend(path.path().elementCount() / elementsOfLine);
    const QRectF box = path.path().controlPointRect();
    const bool isDot = box.width() < dot && box.height() < dot;
    if (!m_painter)
        search(path.path(), false);
    else if (isDot)
        m_painter->drawPoint(box.center());
    else
        m_painter->drawPath(path.path());
}

/// Strokes a long path in parts. QPainter finds the outline of a path as a whole, which takes 3 s for a
/// spiral of 100,000 points. Round line ends hide the joints.
void EntityPass::strokeIfLong(VisiblePath &path)
{
    constexpr int manyPoints = 128;
    if (path.path().elementCount() < manyPoints)
        return;
    stroke(path);
    path = VisiblePath(m_visible);
}

/// A path of no length has no polygons.
void EntityPass::search(const QPainterPath &path, bool isFilled)
{
    const QRectF rect = viewRect();
    const QList<QPolygonF> lines = path.toSubpathPolygons();
    const QPointF center = path.controlPointRect().center();
    m_hasFound =
        m_hasFound || (lines.isEmpty() && path.elementCount() > 0 && meets(center, center, rect))
        || std::any_of(lines.begin(), lines.end(), [&](const QPolygonF &line) {
               return meets(line, rect) || (isFilled && line.containsPoint(rect.center(), Qt::WindingFill));
           });
    m_hasEnded = m_hasEnded || m_hasFound;
}

/// Uses the boxes and allows for rounding and the width of lines.
bool EntityPass::isOutside(EntityId id, const Mapping &mapping) const
{
    if (!m_boxes || !mapping.keepsAngles)
        return false;
    const Affine &map = mapping.toPixels;
    const Extents box = m_boxes->of(id).mapped(map);
    const double rounding = 1e-14 * (std::abs(map.e) + std::abs(map.f));
    return box.maxX < m_visible.left() - rounding || box.minX > m_visible.right() + rounding
        || box.maxY < m_visible.top() - rounding || box.minY > m_visible.bottom() + rounding;
}

bool EntityPass::spend(int effort)
{
    if (!m_hasEnded && m_spend && !m_spend(effort))
        m_hasEnded = true;
    return !m_hasEnded;
}

/// Counts an entity of a nested block; false when there are too many. Blocks that hold one another twice on
/// every level would otherwise be painted for ever.
bool EntityPass::countNested()
{
    return m_nestedLeft > 0 && m_nestedLeft-- > 0;
}

} // namespace

DrawingColours DrawingColours::light()
{
    return {QColor(255, 255, 255), QColor(24, 28, 34), QColor(0, 102, 204)};
}

DrawingColours DrawingColours::dark()
{
    return {QColor(33, 37, 43), QColor(226, 230, 236), QColor(255, 176, 32)};
}

DrawingPainter::DrawingPainter(const DrawingColours &colours)
    : m_colours(colours)
{
}

bool DrawingPainter::paint(const Drawing &drawing, QPainter &painter, const ViewTransform &view,
                           const std::unordered_set<EntityId> &selection)
{
    painter.save();
    EntityPass entityPass(drawing, &painter, view, m_lettering, m_lineWidth, m_boxes, m_spend);
    const Mapping mapping{{}, view.toPixels()};
    bool wasSelected = false;
    entityPass.setColour(m_colours.ink);
    for (const EntityId id : drawing.modelSpace()) {
        const bool isSelected = selection.count(id) > 0;
        if (isSelected != wasSelected)
            entityPass.setColour(isSelected ? m_colours.selected : m_colours.ink);
        wasSelected = isSelected;
        entityPass.paint(id, mapping);
    }
    painter.restore();
    return entityPass.isComplete();
}

bool DrawingPainter::paintBlock(const Drawing &drawing, const BlockDefinition &block,
                                const Placement &placement, QPainter &painter, const ViewTransform &view)
{
    painter.save();
    EntityPass entityPass(drawing, &painter, view, m_lettering, m_lineWidth, m_boxes, m_spend);
    entityPass.setColour(m_colours.selected);
    entityPass.paint(block, placement, Mapping{{}, view.toPixels()});
    painter.restore();
    return entityPass.isComplete();
}

bool DrawingPainter::isInView(const Drawing &drawing, EntityId id, const ViewTransform &view)
{
    EntityPass entityPass(drawing, nullptr, view, m_lettering, m_lineWidth, m_boxes, {});
    entityPass.paint(id, Mapping{{}, view.toPixels()});
    return entityPass.hasFound();
}

} // namespace refhost
