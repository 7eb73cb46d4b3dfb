// Measures a drawing: every shape by its own extreme points, so that the rectangle is tight.

#include "view/Extents.h"

#include "drawing/Explode.h"
#include "view/Lettering.h"
#include "view/ShapeGeometry.h"

#include <QHash>

#include <algorithm>
#include <cmath>
#include <optional>

namespace refhost {

namespace {

/// Measures entities as one map shows them.
class Measurement {
public:
    explicit Measurement(const Drawing &drawing)
        : m_drawing(drawing)
    {
    }

    void measure(const std::vector<EntityId> &entities, const Affine &map, int depth, Extents &extents)
    {
        for (const EntityId id : entities) {
            if (const Entity *entity = m_drawing.find(id))
                std::visit([&](const auto &shape) { add(shape, map, depth, extents); }, *entity);
        }
    }

private:
    static void add(const Line &line, const Affine &map, int /*depth*/, Extents &extents)
    {
        extents.add(map.mapPoint(line.start));
        extents.add(map.mapPoint(line.end));
    }

    static void add(const Circle &circle, const Affine &map, int depth, Extents &extents)
    {
        add(asEllipse(circle), map, depth, extents);
    }

    static void add(const Ellipse &ellipse, const Affine &map, int /*depth*/, Extents &extents)
    {
        const Point center = map.mapPoint(ellipse.center);
        const Point p = map.mapVector(ellipse.axis);
        const Point q = map.mapVector(otherAxis(ellipse));
        const double x = std::hypot(p.x, q.x);
        const double y = std::hypot(p.y, q.y);
        extents.add({center.x - x, center.y - y, 0.0});
        extents.add({center.x + x, center.y + y, 0.0});
    }

    static void add(const Polyline &polyline, const Affine &map, int /*depth*/, Extents &extents)
    {
        for (std::size_t i = 0; i + 1 < polyline.points.size(); i += 2)
            extents.add(map.mapPoint({polyline.points[i], polyline.points[i + 1], 0.0}));
    }

    static void add(const Spline &spline, const Affine &map, int /*depth*/, Extents &extents);

    void add(const Note &note, const Affine &map, int /*depth*/, Extents &extents)
    {
        const Note shown = std::get<Note>(transformed(note, map));
        if (!m_lettering)
            m_lettering.emplace();
        const double width = m_lettering->width(shown.text);
        if (width > 0.0)
            extents.add(Extents{0.0, -m_lettering->descent(), width, m_lettering->ascent()},
                        placeOfLetters(shown));
    }

    void add(const BlockInstance &instance, const Affine &map, int depth, Extents &extents)
    {
        const BlockDefinition *block = m_drawing.block(instance.blockName);
        if (!block)
            return;
        const Affine placed = combined(Affine::fromPlacement(instance.placement, block->base), map);
        // Following every instance through all levels takes exponential time when blocks double from level to
        // level; the first level is enough to make a turned block fit tightly.
        if (depth == 0)
            measure(block->entities, placed, 1, extents);
        else
            extents.add(ownExtents(*block, depth), placed);
    }

    /// The extents of `block` in its own coordinates, measured once.
    Extents ownExtents(const BlockDefinition &block, int depth)
    {
        const auto known = m_blocks.constFind(&block);
        if (known != m_blocks.constEnd())
            return known.value();
        Extents extents;
        if (depth < deepestNesting)
            measure(block.entities, {}, depth + 1, extents);
        m_blocks.insert(&block, extents);
        return extents;
    }

    const Drawing &m_drawing;
    std::optional<Lettering> m_lettering; // costs more than most entities
    QHash<const BlockDefinition *, Extents> m_blocks;
};

/// The inner places, as curve parameters, where a coordinate of a cubic with these control values turns
/// round.
std::vector<double> turningPoints(double v0, double v1, double v2, double v3)
{
    const double a = v3 - 3.0 * v2 + 3.0 * v1 - v0;
    const double b = 2.0 * (v2 - 2.0 * v1 + v0);
    const double c = v1 - v0;
    const double discriminant = b * b - 4.0 * a * c;
    if (!(discriminant >= 0.0))
        return {};

    // The form that subtracts no nearly equal numbers.
    const double q = -0.5 * (b + std::copysign(std::sqrt(discriminant), b));
    std::vector<double> inner;
    for (const double t : {q / a, c / q}) {
        if (t > 0.0 && t < 1.0)
            inner.push_back(t);
    }
    return inner;
}

Point pointOnCubic(const Point *p, double t)
{
    const double s = 1.0 - t;
    const double weights[] = {s * s * s, 3.0 * s * s * t, 3.0 * s * t * t, t * t * t};
    Point point;
    for (int i = 0; i < 4; ++i) {
        point.x += weights[i] * p[i].x;
        point.y += weights[i] * p[i].y;
    }
    return point;
}

void addCubic(const Point *p, Extents &extents)
{
    extents.add(p[0]);
    extents.add(p[3]);
    for (const double t : turningPoints(p[0].x, p[1].x, p[2].x, p[3].x))
        extents.add(pointOnCubic(p, t));
    for (const double t : turningPoints(p[0].y, p[1].y, p[2].y, p[3].y))
        extents.add(pointOnCubic(p, t));
}

void Measurement::add(const Spline &spline, const Affine &map, int /*depth*/, Extents &extents)
{
    for (std::size_t i = 0; i + 3 < spline.controlPoints.size(); i += 3) {
        Point cubic[4];
        std::transform(&spline.controlPoints[i], &spline.controlPoints[i] + 4, cubic,
                       [&map](const Point &point) { return map.mapPoint(point); });
        addCubic(cubic, extents);
    }
}

} // namespace

void Extents::add(const Point &point)
{
    if (!std::isfinite(point.x) || !std::isfinite(point.y))
        return;
    minX = std::min(minX, point.x);
    minY = std::min(minY, point.y);
    maxX = std::max(maxX, point.x);
    maxY = std::max(maxY, point.y);
}

void Extents::add(const Extents &other, const Affine &map)
{
    if (other.isEmpty())
        return;
    for (const double x : {other.minX, other.maxX}) {
        for (const double y : {other.minY, other.maxY})
            add(map.mapPoint({x, y, 0.0}));
    }
}

Extents Extents::mapped(const Affine &map) const
{
    const Point middle = map.mapPoint(center());
    const double x = std::abs(map.a) * halfWidth() + std::abs(map.c) * halfHeight();
    const double y = std::abs(map.b) * halfWidth() + std::abs(map.d) * halfHeight();
    return {middle.x - x, middle.y - y, middle.x + x, middle.y + y};
}

Extents extentsOf(const Drawing &drawing)
{
    return extentsOf(drawing, drawing.modelSpace());
}

Extents extentsOf(const Drawing &drawing, const std::vector<EntityId> &entities)
{
    Extents extents;
    Measurement(drawing).measure(entities, {}, 0, extents);
    return extents;
}

Extents extentsOf(const Drawing &drawing, const BlockDefinition &block, const Placement &placement)
{
    Extents extents;
    Measurement(drawing).measure(block.entities, Affine::fromPlacement(placement, block.base), 1, extents);
    return extents;
}

} // namespace refhost
