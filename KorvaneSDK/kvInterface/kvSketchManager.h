// Draws entities in the model space of one document.

#pragma once

#include "kvArray.h"
#include "kvEntities.h"

/// Lengths and coordinates are in drawing units, angles in radians. The handle that comes back belongs to the
/// caller; deleting it leaves the entity in the drawing. Every call fails on a number that is not finite. A
/// call that fails draws nothing and leaves its out-parameter untouched.
class KVINTERFACE_EXPORT kvSketchManager_c : public kvBaseObject_c {
public:
    /// Inserts a line from (x1, y1, z1) to (x2, y2, z2).
    virtual kvResult InsertLine(double x1, double y1, double z1, double x2, double y2, double z2,
                                kvLine_c **line) = 0;

    /// Inserts a circle about (x, y, z). Fails on a radius of 0 or less.
    virtual kvResult InsertCircle(double x, double y, double z, double radius, kvCircle_c **circle) = 0;

    /// Inserts the full ellipse with one axis from (x1, y1) to (x2, y2): the middle is the centre, half the
    /// distance is one radius, `distanceToOtherAxis` is the other. The sign of that distance is ignored.
    /// Fails on a distance of 0 and on an axis of length 0.
    virtual kvResult InsertEllipseDistanceToOtherAxis(double x1, double y1, double x2, double y2,
                                                      double distanceToOtherAxis,
                                                      kvEllipseArc_c **ellipse) = 0;

    /// Inserts a polyline through `points` (x, y pairs), closed when `closed` is true. Fails on an odd count
    /// and on fewer than two points.
    virtual kvResult InsertPolyline2D(const kvDoubleArray &points, bool closed, kvPolyLine_c **polyline) = 0;

    /// Inserts a spline through `points` (x, y, z triples); it has one cubic fewer than points. The two
    /// vectors are the tangents at its ends and count only when `useTangents` is true. Fails on fewer than
    /// two points.
    virtual kvResult InsertSpline(const kvDoubleArray &points, bool useTangents, double startX, double startY,
                                  double startZ, double endX, double endY, double endZ,
                                  kvSpline_c **spline) = 0;

    /// Inserts one line of text that stands on its position, turned by `angle`. A height of 0 or less shows
    /// in the host's default height.
    virtual kvResult InsertSimpleNote(double x, double y, double z, double height, double angle,
                                      const kvString &text, kvSimpleNote_c **note) = 0;

    /// Inserts one instance of the block definition `blockName` at (x, y, z), turned by `rotation`. Any
    /// finite scale is accepted, 0 too. Fails on an unknown name.
    virtual kvResult InsertBlock2(const kvString &blockName, double x, double y, double z, double scaleX,
                                  double scaleY, double scaleZ, double rotation,
                                  kvBlockInstance_c **instance) = 0;
};
