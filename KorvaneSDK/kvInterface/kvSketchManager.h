// Draws entities into the model space of one document.

#pragma once

#include "kvArray.h"
#include "kvEntities.h"

/// Every call fails on a number that is not finite. The handle that comes back belongs to the caller;
/// deleting it leaves the entity in the drawing. Lengths and coordinates are in drawing units, angles in
/// radians.
class KVINTERFACE_EXPORT kvSketchManager_c : public kvBaseObject_c {
public:
    virtual kvResult InsertLine(double x1, double y1, double z1, double x2, double y2, double z2,
                                kvLine_c **line) = 0;

    /// Fails on a radius of 0 or less.
    virtual kvResult InsertCircle(double x, double y, double z, double radius, kvCircle_c **circle) = 0;

    /// Inserts the full ellipse one axis of which runs from (x1, y1) to (x2, y2): the middle is the centre,
    /// half the distance one radius, `distanceToOtherAxis` the other. The sign of the distance is ignored.
    /// Fails on a distance of 0 and on an axis of length 0.
    virtual kvResult InsertEllipseDistanceToOtherAxis(double x1, double y1, double x2, double y2,
                                                      double distanceToOtherAxis,
                                                      kvEllipseArc_c **ellipse) = 0;

    /// Inserts a polyline through `points` (x, y pairs). Fails on an odd count and on fewer than two points.
    virtual kvResult InsertPolyline2D(const kvDoubleArray &points, bool closed, kvPolyLine_c **polyline) = 0;

    /// Inserts a spline through `points` (x, y, z triples): one cubic fewer than points. The two vectors are
    /// the tangents at its ends and count only when `useTangents` is true. Fails on fewer than two points.
    virtual kvResult InsertSpline(const kvDoubleArray &points, bool useTangents, double startX, double startY,
                                  double startZ, double endX, double endY, double endZ,
                                  kvSpline_c **spline) = 0;

    /// Inserts a one-line text standing on its position. A height of 0 or less shows in the host's default
    /// height.
    virtual kvResult InsertSimpleNote(double x, double y, double z, double height, double angle,
                                      const kvString &text, kvSimpleNote_c **note) = 0;

    /// Inserts one instance of the block definition `blockName`. Any finite scale is accepted, 0 too; an
    /// unknown name is refused.
    virtual kvResult InsertBlock2(const kvString &blockName, double x, double y, double z, double scaleX,
                                  double scaleY, double scaleZ, double rotation,
                                  kvBlockInstance_c **instance) = 0;
};
