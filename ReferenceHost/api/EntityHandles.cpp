// Changes single entities of a drawing.

#include "api/EntityHandles.h"

#include "drawing/Explode.h"

#include <cmath>

namespace refhost {

kvResult EllipseHandle::SetCenter(double x, double y, double z)
{
    const auto move = [center = Point{x, y, z}](Ellipse &ellipse) {
        if (!isFinite(center))
            return false;
        ellipse.center = center;
        return true;
    };
    return call(
        "kvEllipseArc_c::SetCenter", [&] { return state().change<Ellipse>(move); }, x, y, z);
}

kvResult EllipseHandle::put_MajorRadius(double radius)
{
    const auto resize = [radius](Ellipse &ellipse) {
        if (!std::isfinite(radius) || radius == 0.0)
            return false;
        ellipse.axis = withLength(ellipse.axis, std::abs(radius));
        return true;
    };
    return call(
        "kvEllipseArc_c::put_MajorRadius", [&] { return state().change<Ellipse>(resize); }, radius);
}

kvResult SplineHandle::SetControlPointCoordinate(int index, double x, double y, double z, bool *done)
{
    const auto move = [index, point = Point{x, y, z}, done](Spline &spline) {
        const auto position = static_cast<std::size_t>(index);
        if (index < 0 || position >= spline.controlPoints.size() || !isFinite(point))
            return false;
        spline.controlPoints[position] = point;
        *done = true;
        return true;
    };
    return call(
        "kvSpline_c::SetControlPointCoordinate", [&] { return state().change<Spline>(move); }, index, x, y,
        z);
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
