// Changes single entities of a drawing.

#include "api/EntityHandles.h"

#include "drawing/Explode.h"

#include <cmath>

namespace refhost {

kvResult EllipseHandle::SetCenter(double x, double y, double z)
{
    const auto body = [&] {
        auto *ellipse = state().edit<Ellipse>();
        const Point center = {x, y, z};
        if (!ellipse || !isFinite(center))
            return kvResult_Failed;
        ellipse->center = center;
        return kvResult_Success;
    };
    return call("kvEllipseArc_c::SetCenter", body, x, y, z);
}

kvResult EllipseHandle::put_MajorRadius(double radius)
{
    const auto body = [&] {
        auto *ellipse = state().edit<Ellipse>();
        if (!ellipse || !std::isfinite(radius) || radius == 0.0)
            return kvResult_Failed;
        ellipse->axis = withLength(ellipse->axis, std::abs(radius));
        return kvResult_Success;
    };
    return call("kvEllipseArc_c::put_MajorRadius", body, radius);
}

kvResult SplineHandle::SetControlPointCoordinate(int index, double x, double y, double z, bool *done)
{
    const auto body = [&] {
        auto *spline = state().edit<Spline>();
        const auto position = static_cast<std::size_t>(index);
        const Point point = {x, y, z};
        if (!spline || index < 0 || position >= spline->controlPoints.size() || !isFinite(point))
            return kvResult_Failed;
        spline->controlPoints[position] = point;
        *done = true;
        return kvResult_Success;
    };
    return call("kvSpline_c::SetControlPointCoordinate", body, index, x, y, z);
}

kvResult BlockInstanceHandle::Explode()
{
    const auto body = [&] {
        const HostDocumentPtr document = state().document.lock();
        if (!document || !explode(document->drawing, state().id))
            return kvResult_Failed;
        session().notifyDocumentsChanged();
        return kvResult_Success;
    };
    return call("kvBlockInstance_c::Explode", body);
}

const EntityRef *entityBehind(const HandleRegister &handles, const kvBaseObject_c *object)
{
    const HandleBase *handle = handles.find(object);
    return handle ? handle->entity() : nullptr;
}

} // namespace refhost
