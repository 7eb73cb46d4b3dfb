// The visible parts of strokes and filled shapes, in pixels.

#pragma once

#include <QPainterPath>
#include <QRectF>

namespace refhost {

/// Gathers the visible lines and curves of one shape. QPainter cuts straight lines at any distance, measured
/// up to 1e15 pixels. It flattens a curve to some thousand lines at most and draws a circle as four cubics,
/// so the visible part of a large curve is handed on in pieces. Parts that are not finite, or too far away to
/// compute with, are left out.
class VisiblePath {
public:
    /// Everything outside `visible` may be left out; it has to include the width of the pen.
    explicit VisiblePath(const QRectF &visible);

    void addLine(const QPointF &from, const QPointF &to);
    void addCubic(const QPointF &from, const QPointF &control1, const QPointF &control2, const QPointF &to);
    /// A full ellipse by two conjugate radii: center + p cos t + q sin t.
    void addEllipse(const QPointF &center, const QPointF &p, const QPointF &q);
    /// `letters`, which are closed shapes, all or none of them.
    void addLetters(const QPainterPath &letters);

    const QPainterPath &path() const { return m_path; }

    /// Whether anything within `reach` pixels of `center` can be seen.
    bool mayShow(const QPointF &center, double reach) const;

private:
    struct Box {
        double left;
        double top;
        double right;
        double bottom;

        static Box around(const QPointF *points, int count);
        static Box around(const QRectF &rect)
        {
            return {rect.left(), rect.top(), rect.right(), rect.bottom()};
        }
        Box grown(double by) const { return {left - by, top - by, right + by, bottom + by}; }
        bool meets(const Box &other) const;
        bool contains(const Box &other) const;
    };
    struct Cubic {
        QPointF points[4];
    };
    struct Arc;

    void add(const Cubic &cubic, int depth);
    void add(const Arc &arc, double radius, int depth);
    void moveTo(const QPointF &point);

    Box m_visible;
    Box m_near; // curves within it are handed on whole
    QPainterPath m_path;
};

} // namespace refhost
