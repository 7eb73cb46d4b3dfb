// Turns the calls of an add-in into entities, and refuses invalid ones.

#include "api/SketchManagerHandle.h"

#include "api/EntityHandles.h"
#include "drawing/SplineInterpolation.h"

#include "kvTextConversion.h"

#include <cmath>
#include <utility>

namespace refhost {

template <class Handle, class Out>
kvResult SketchManagerHandle::insert(Entity entity, Out **out)
{
    const HostDocumentPtr document = state().lock();
    if (!document || !isFinite(entity))
        return kvResult_Failed;
    const EntityId id = document->drawing.add(std::move(entity));
    return handOutNew<Handle>(out, EntityRef{document, id, document->entityNumbers});
}

kvResult SketchManagerHandle::InsertLine(double x1, double y1, double z1, double x2, double y2, double z2,
                                         kvLine_c **line)
{
    const auto body = [&] { return insert<LineHandle>(Line{{x1, y1, z1}, {x2, y2, z2}}, line); };
    return call("kvSketchManager_c::InsertLine", body, x1, y1, z1, x2, y2, z2);
}

kvResult SketchManagerHandle::InsertCircle(double x, double y, double z, double radius, kvCircle_c **circle)
{
    const auto body = [&] {
        return radius > 0.0 ? insert<CircleHandle>(Circle{{x, y, z}, radius}, circle) : kvResult_Failed;
    };
    return call("kvSketchManager_c::InsertCircle", body, x, y, z, radius);
}

kvResult SketchManagerHandle::InsertEllipseDistanceToOtherAxis(double x1, double y1, double x2, double y2,
                                                               double distanceToOtherAxis,
                                                               kvEllipseArc_c **ellipse)
{
    const auto body = [&] {
        const Point axis = {x2 / 2 - x1 / 2, y2 / 2 - y1 / 2, 0.0};
        if (planarLength(axis) == 0.0 || distanceToOtherAxis == 0.0)
            return kvResult_Failed;
        const Point center = {x1 + axis.x, y1 + axis.y, 0.0};
        return insert<EllipseHandle>(Ellipse{center, axis, std::abs(distanceToOtherAxis)}, ellipse);
    };
    return call("kvSketchManager_c::InsertEllipseDistanceToOtherAxis", body, x1, y1, x2, y2,
                distanceToOtherAxis);
}

kvResult SketchManagerHandle::InsertPolyline2D(const kvDoubleArray &points, bool closed,
                                               kvPolyLine_c **polyline)
{
    const auto body = [&] {
        const int count = points.getSize();
        if (count < 4 || count % 2 != 0)
            return kvResult_Failed;
        return insert<PolylineHandle>(Polyline{{&points[0], &points[0] + count}, closed}, polyline);
    };
    return call("kvSketchManager_c::InsertPolyline2D", body, points, closed);
}

kvResult SketchManagerHandle::InsertSpline(const kvDoubleArray &points, bool useTangents, double startX,
                                           double startY, double startZ, double endX, double endY,
                                           double endZ, kvSpline_c **spline)
{
    const auto body = [&] {
        const Point start = {startX, startY, startZ};
        const Point end = {endX, endY, endZ};
        if (useTangents || points.getSize() % 3 != 0 || !isFinite(start) || !isFinite(end))
            return kvResult_Failed;
        std::vector<Point> fitPoints;
        fitPoints.reserve(static_cast<std::size_t>(points.getSize() / 3));
        for (int i = 0; i + 2 < points.getSize(); i += 3)
            fitPoints.push_back({points[i], points[i + 1], points[i + 2]});
        if (fitPoints.size() < 2)
            return kvResult_Failed;
        return insert<SplineHandle>(splineThrough(fitPoints), spline);
    };
    return call("kvSketchManager_c::InsertSpline", body, points, useTangents, startX, startY, startZ, endX,
                endY, endZ);
}

kvResult SketchManagerHandle::InsertSimpleNote(double x, double y, double z, double height, double angle,
                                               const kvString &text, kvSimpleNote_c **note)
{
    const auto body = [&] {
        return insert<NoteHandle>(Note{{x, y, z}, height, angle, toQString(text)}, note);
    };
    return call("kvSketchManager_c::InsertSimpleNote", body, x, y, z, height, angle, text);
}

kvResult SketchManagerHandle::InsertBlock2(const kvString &blockName, double x, double y, double z,
                                           double scaleX, double scaleY, double scaleZ, double rotation,
                                           kvBlockInstance_c **instance)
{
    const auto body = [&] {
        const HostDocumentPtr document = state().lock();
        const BlockDefinition *block = document ? document->drawing.block(toQString(blockName)) : nullptr;
        if (!block)
            return kvResult_NotFound;
        const Placement placement = {{x, y, z}, {scaleX, scaleY, scaleZ}, rotation};
        const kvResult result = insert<BlockInstanceHandle>(BlockInstance{block->name, placement}, instance);
        if (CommandRecord *record = session().record(); record && result == kvResult_Success)
            record->insertions.push_back({document, block->name, placement});
        session().notifyDocumentsChanged();
        return result;
    };
    return call("kvSketchManager_c::InsertBlock2", body, blockName, x, y, z, scaleX, scaleY, scaleZ,
                rotation);
}

} // namespace refhost
