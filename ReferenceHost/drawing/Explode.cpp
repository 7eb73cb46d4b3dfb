// Explodes a block instance. Circles and ellipses are mapped by a pair of conjugate radii, whose principal
// axes give the new ellipse.

#include "drawing/Explode.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace refhost {

namespace {

constexpr double relativeTolerance = 1e-9;
/// Blocks nested deeper than this are not taken apart. Definitions cannot hold themselves, so only chains
/// made on purpose are so deep.
constexpr int deepestNesting = 64;

/// The ellipse or, pressed flat, the line with the conjugate radii `p` and `q`: center + p cos t + q sin t.
Entity ellipseFromConjugateRadii(const Point &center, const Point &p, const Point &q)
{
    const double angle =
        0.5 * std::atan2(2.0 * (p.x * q.x + p.y * q.y), p.x * p.x + p.y * p.y - q.x * q.x - q.y * q.y);
    const double cosine = std::cos(angle);
    const double sine = std::sin(angle);
    const Point major = {p.x * cosine + q.x * sine, p.y * cosine + q.y * sine, 0.0};
    const Point minor = {q.x * cosine - p.x * sine, q.y * cosine - p.y * sine, 0.0};

    const double majorRadius = planarLength(major);
    const double minorRadius = planarLength(minor);
    if (minorRadius <= relativeTolerance * majorRadius) {
        return Line{{center.x - major.x, center.y - major.y, center.z},
                    {center.x + major.x, center.y + major.y, center.z}};
    }
    return Ellipse{center, major, minorRadius};
}

Entity mapped(const Line &line, const Affine &map)
{
    return Line{map.mapPoint(line.start), map.mapPoint(line.end)};
}

Entity mapped(const Circle &circle, const Affine &map)
{
    const Point center = map.mapPoint(circle.center);
    const Point p = map.mapVector({circle.radius, 0.0, 0.0});
    const Point q = map.mapVector({0.0, circle.radius, 0.0});
    const double length = planarLength(p);
    const bool sameLength = std::abs(length - planarLength(q)) <= relativeTolerance * length;
    const bool square = std::abs(p.x * q.x + p.y * q.y) <= relativeTolerance * length * length;
    if (length > 0.0 && sameLength && square)
        return Circle{center, length};
    return ellipseFromConjugateRadii(center, p, q);
}

Entity mapped(const Ellipse &ellipse, const Affine &map)
{
    const Point other = withLength({-ellipse.axis.y, ellipse.axis.x, 0.0}, ellipse.otherRadius);
    return ellipseFromConjugateRadii(map.mapPoint(ellipse.center), map.mapVector(ellipse.axis),
                                     map.mapVector(other));
}

Entity mapped(const Polyline &polyline, const Affine &map)
{
    Polyline result = polyline;
    for (std::size_t i = 0; i + 1 < result.points.size(); i += 2) {
        const Point point = map.mapPoint({result.points[i], result.points[i + 1], 0.0});
        result.points[i] = point.x;
        result.points[i + 1] = point.y;
    }
    return result;
}

Entity mapped(const Spline &spline, const Affine &map)
{
    Spline result = spline;
    for (Point &point : result.controlPoints)
        point = map.mapPoint(point);
    return result;
}

Entity mapped(const Note &note, const Affine &map)
{
    Note result = note;
    result.position = map.mapPoint(note.position);
    const Point along = map.mapVector({std::cos(note.rotation), std::sin(note.rotation), 0.0});
    const Point up = map.mapVector({-std::sin(note.rotation), std::cos(note.rotation), 0.0});
    if (planarLength(along) > 0.0)
        result.rotation = std::atan2(along.y, along.x);
    result.height = effectiveHeight(note) * planarLength(up);
    return result;
}

/// The placement of a mapped instance; nothing when `map` would shear it.
std::optional<Placement> mappedPlacement(const Placement &placement, const Affine &map)
{
    const Affine all = combined(Affine::fromPlacement(placement, {}), map);
    const double xScale = std::hypot(all.a, all.b);
    const double yScale = std::hypot(all.c, all.d);
    if (std::abs(all.a * all.c + all.b * all.d) > relativeTolerance * xScale * yScale)
        return {};

    Placement result;
    result.position = {all.e, all.f, all.zOffset};
    result.rotation = xScale > 0.0 ? std::atan2(all.b, all.a) : std::atan2(-all.c, all.d);
    result.scale = {xScale, std::copysign(yScale, all.determinant()), all.zScale};
    return result;
}

Entity mapped(const BlockInstance &instance, const Affine &map)
{
    BlockInstance result = instance;
    if (const auto placement = mappedPlacement(instance.placement, map))
        result.placement = *placement;
    return result;
}

void appendExploded(const Drawing &drawing, const BlockDefinition &block, const Affine &map, int depth,
                    std::vector<Entity> &result)
{
    for (const EntityId id : block.entities) {
        const Entity *entity = drawing.find(id);
        if (!entity)
            continue;
        const auto *instance = std::get_if<BlockInstance>(entity);
        const BlockDefinition *inner = instance ? drawing.block(instance->blockName) : nullptr;
        if (inner && depth < deepestNesting && !mappedPlacement(instance->placement, map)) {
            const Affine placed = Affine::fromPlacement(instance->placement, inner->base);
            appendExploded(drawing, *inner, combined(placed, map), depth + 1, result);
            continue;
        }
        result.push_back(transformed(*entity, map));
    }
}

} // namespace

bool explode(Drawing &drawing, EntityId id)
{
    if (!drawing.isInModelSpace(id))
        return false;
    const auto *instance = std::get_if<BlockInstance>(drawing.find(id));
    const BlockDefinition *block = instance ? drawing.block(instance->blockName) : nullptr;
    if (!block)
        return false;

    std::vector<Entity> copies =
        explodedEntities(drawing, *block, Affine::fromPlacement(instance->placement, block->base));
    if (!std::all_of(copies.begin(), copies.end(), [](const Entity &copy) { return isFinite(copy); }))
        return false;
    drawing.erase(id);
    for (Entity &copy : copies)
        drawing.add(std::move(copy));
    return true;
}

Entity transformed(const Entity &entity, const Affine &map)
{
    return std::visit([&map](const auto &shape) { return mapped(shape, map); }, entity);
}

std::vector<Entity> explodedEntities(const Drawing &drawing, const BlockDefinition &block, const Affine &map)
{
    std::vector<Entity> result;
    result.reserve(block.entities.size());
    appendExploded(drawing, block, map, 0, result);
    return result;
}

} // namespace refhost
