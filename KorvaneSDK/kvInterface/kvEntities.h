// Handles of drawing entities. Every operation on an entity that has left the drawing fails.

#pragma once

#include "kvBaseObject.h"
#include "kvEnumerations.h"

class KVINTERFACE_EXPORT kvLine_c : public kvBaseObject_c {};

class KVINTERFACE_EXPORT kvCircle_c : public kvBaseObject_c {};

class KVINTERFACE_EXPORT kvPolyLine_c : public kvBaseObject_c {};

class KVINTERFACE_EXPORT kvSimpleNote_c : public kvBaseObject_c {};

class KVINTERFACE_EXPORT kvEllipseArc_c : public kvBaseObject_c {
public:
    /// Moves the centre to (x, y, z) in drawing units; both axes keep their direction and length. Fails on a
    /// number that is not finite; the ellipse then stays as it is.
    virtual kvResult SetCenter(double x, double y, double z) = 0;

    /// Sets the radius along the axis that the ellipse was drawn with, in drawing units, and keeps the other
    /// radius. The sign is ignored. Fails on 0 and on a number that is not finite; the ellipse then stays as
    /// it is.
    virtual kvResult put_MajorRadius(double radius) = 0;
};

class KVINTERFACE_EXPORT kvSpline_c : public kvBaseObject_c {
public:
    /// Moves the control point `index`, counted from 0, to (x, y, z) in drawing units; points 1 and 2 are the
    /// inner ones of the first cubic. `done` tells whether it moved. Fails on an index out of range and on a
    /// number that is not finite; the spline then stays as it is.
    virtual kvResult SetControlPointCoordinate(int index, double x, double y, double z, bool *done) = 0;
};

class KVINTERFACE_EXPORT kvBlockInstance_c : public kvBaseObject_c {
public:
    /// Replaces the instance by transformed copies of its block's entities. Fails when the instance has left
    /// the drawing.
    virtual kvResult Explode() = 0;
};
