// Draws into the model space of one drawing.

#pragma once

#include "api/HostHandle.h"

#include "kvSketchManager.h"

namespace refhost {

class SketchManagerHandle final
    : public HostHandle<SketchManagerHandle, kvSketchManager_c, std::weak_ptr<HostDocument>> {
public:
    static constexpr const char *type = "kvSketchManager_c";
    using HostHandle::HostHandle;

    kvResult InsertLine(double x1, double y1, double z1, double x2, double y2, double z2,
                        kvLine_c **line) override;
    kvResult InsertCircle(double x, double y, double z, double radius, kvCircle_c **circle) override;
    kvResult InsertEllipseDistanceToOtherAxis(double x1, double y1, double x2, double y2,
                                              double distanceToOtherAxis, kvEllipseArc_c **ellipse) override;
    kvResult InsertPolyline2D(const kvDoubleArray &points, bool closed, kvPolyLine_c **polyline) override;

    /// Ends are always natural here: a call that asks for tangents fails.
    kvResult InsertSpline(const kvDoubleArray &points, bool useTangents, double startX, double startY,
                          double startZ, double endX, double endY, double endZ, kvSpline_c **spline) override;
    kvResult InsertSimpleNote(double x, double y, double z, double height, double angle, const kvString &text,
                              kvSimpleNote_c **note) override;
    kvResult InsertBlock2(const kvString &blockName, double x, double y, double z, double scaleX,
                          double scaleY, double scaleZ, double rotation,
                          kvBlockInstance_c **instance) override;

private:
    /// Adds `entity` to model space and hands out its handle; fails when a number is not finite.
    template <class Handle, class Out>
    kvResult insert(Entity entity, Out **out);
};

} // namespace refhost
