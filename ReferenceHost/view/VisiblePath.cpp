// Halves large curves until each piece can be dropped or handed on. The number of steps grows with the
// logarithm of the curve's size.

#include "view/VisiblePath.h"

#include <algorithm>
#include <cmath>

namespace refhost {

namespace {

/// How far a curve may reach out of the view on each side before it is halved.
constexpr double nearView = 2000.0;
/// Products of two positions beyond this may overflow.
constexpr double furthest = 1e100;
constexpr int mostHalvings = 400; // from `furthest` down to a pixel it takes 333
constexpr double halfPi = 1.57079632679489661923;

bool isUsable(const QPointF &point)
{
    return std::abs(point.x()) < furthest && std::abs(point.y()) < furthest;
}

QPointF middle(const QPointF &a, const QPointF &b)
{
    return 0.5 * a + 0.5 * b;
}

} // namespace

struct VisiblePath::Arc {
    QPointF center;
    QPointF p;
    QPointF q;
    double start;
    double end;

    QPointF at(double angle) const { return center + p * std::cos(angle) + q * std::sin(angle); }
    QPointF directionAt(double angle) const { return q * std::cos(angle) - p * std::sin(angle); }
    Cubic asCubic() const
    {
        const double reach = 4.0 / 3.0 * std::tan(0.25 * (end - start));
        return {
            {at(start), at(start) + reach * directionAt(start), at(end) - reach * directionAt(end), at(end)}};
    }
    /// How far asCubic() is from the arc at most, for an ellipse of no more than `radius`.
    double error(double radius) const
    {
        constexpr double ofQuarterCircle = 2.8e-4;
        return ofQuarterCircle * std::pow((end - start) / halfPi, 6.0) * radius;
    }
};

VisiblePath::Box VisiblePath::Box::around(const QPointF *points, int count)
{
    Box box{points[0].x(), points[0].y(), points[0].x(), points[0].y()};
    for (int i = 1; i < count; ++i) {
        box.left = std::min(box.left, points[i].x());
        box.top = std::min(box.top, points[i].y());
        box.right = std::max(box.right, points[i].x());
        box.bottom = std::max(box.bottom, points[i].y());
    }
    return box;
}

bool VisiblePath::Box::meets(const Box &other) const
{
    return left <= other.right && right >= other.left && top <= other.bottom && bottom >= other.top;
}

bool VisiblePath::Box::contains(const Box &other) const
{
    return left <= other.left && right >= other.right && top <= other.top && bottom >= other.bottom;
}

VisiblePath::VisiblePath(const QRectF &visible)
    : m_visible(Box::around(visible))
    , m_near(m_visible.grown(nearView))
{
}

void VisiblePath::addLine(const QPointF &from, const QPointF &to)
{
    if (!isUsable(from) || !isUsable(to))
        return;
    const QPointF ends[] = {from, to};
    if (!m_visible.meets(Box::around(ends, 2)))
        return;
    moveTo(from);
    m_path.lineTo(to);
}

void VisiblePath::addCubic(const QPointF &from, const QPointF &control1, const QPointF &control2,
                           const QPointF &to)
{
    const Cubic cubic{{from, control1, control2, to}};
    if (std::all_of(std::begin(cubic.points), std::end(cubic.points), isUsable))
        add(cubic, 0);
}

void VisiblePath::addEllipse(const QPointF &center, const QPointF &p, const QPointF &q)
{
    if (!isUsable(center) || !isUsable(p) || !isUsable(q))
        return;
    const double radius = std::hypot(std::hypot(p.x(), p.y()), std::hypot(q.x(), q.y()));
    for (int quarter = 0; quarter < 4; ++quarter)
        add(Arc{center, p, q, quarter * halfPi, (quarter + 1) * halfPi}, radius, 0);
}

void VisiblePath::addLetters(const QPainterPath &letters)
{
    if (m_visible.meets(Box::around(letters.controlPointRect())))
        m_path.addPath(letters);
}

bool VisiblePath::mayShow(const QPointF &center, double reach) const
{
    return m_visible.grown(reach).contains(Box::around(&center, 1));
}

void VisiblePath::add(const Cubic &cubic, int depth)
{
    const QPointF *p = cubic.points;
    const Box hull = Box::around(p, 4);
    if (!m_visible.meets(hull) || depth > mostHalvings)
        return;
    if (m_near.contains(hull)) {
        moveTo(p[0]);
        m_path.cubicTo(p[1], p[2], p[3]);
        return;
    }

    const QPointF a = middle(p[0], p[1]);
    const QPointF b = middle(p[1], p[2]);
    const QPointF c = middle(p[2], p[3]);
    const QPointF ab = middle(a, b);
    const QPointF bc = middle(b, c);
    const QPointF center = middle(ab, bc);
    add(Cubic{{p[0], a, ab, center}}, depth + 1);
    add(Cubic{{center, bc, c, p[3]}}, depth + 1);
}

void VisiblePath::add(const Arc &arc, double radius, int depth)
{
    constexpr double tolerance = 0.05; // pixels
    const Cubic cubic = arc.asCubic();
    const double error = arc.error(radius);
    if (!m_visible.grown(error).meets(Box::around(cubic.points, 4)))
        return;
    if (error <= tolerance || depth > mostHalvings) {
        add(cubic, 0);
        return;
    }
    const double half = 0.5 * (arc.start + arc.end);
    add(Arc{arc.center, arc.p, arc.q, arc.start, half}, radius, depth + 1);
    add(Arc{arc.center, arc.p, arc.q, half, arc.end}, radius, depth + 1);
}

void VisiblePath::moveTo(const QPointF &point)
{
    if (m_path.isEmpty() || m_path.currentPosition() != point)
        m_path.moveTo(point);
}

} // namespace refhost
