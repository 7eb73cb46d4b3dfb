// The seven kinds of entity a drawing holds, as plain values.

#pragma once

#include "drawing/Geometry.h"

#include <QString>

#include <variant>
#include <vector>

namespace refhost {

struct Line {
    Point start;
    Point end;
};

struct Circle {
    Point center;
    double radius = 0.0;
};

/// A full ellipse. `axis` runs from the centre to one end of the axis it was drawn with; the other axis
/// stands at right angles to it. Either of the two may be the longer one.
struct Ellipse {
    Point center;
    Point axis;
    double otherRadius = 0.0;
};

struct Polyline {
    std::vector<double> points; ///< x, y pairs
    bool closed = false;
};

/// A chain of cubic Bezier curves: n cubics have 3n + 1 control points, neighbours share one.
struct Spline {
    std::vector<Point> controlPoints;
};

/// A one-line text standing on its position.
struct Note {
    Point position;
    double height = 0.0;   ///< letter height; 0 or less means the host's default, see effectiveHeight()
    double rotation = 0.0; ///< radians
    QString text;
};

/// One placed copy of a block definition.
struct BlockInstance {
    QString blockName;
    Placement placement;
};

using Entity = std::variant<Line, Circle, Ellipse, Polyline, Spline, Note, BlockInstance>;

/// The letter height with which `note` is shown and saved: a note without a height of its own gets the host's
/// default of 2.5 drawing units.
inline double effectiveHeight(const Note &note)
{
    constexpr double defaultTextHeight = 2.5;
    return note.height > 0.0 ? note.height : defaultTextHeight;
}

/// Whether every number of `entity` is finite. A drawing never takes one that is not.
bool isFinite(const Entity &entity);

/// `ellipse` with its longer axis first, the shape unchanged. Drawing formats want it so.
Ellipse normalised(const Ellipse &ellipse);

} // namespace refhost
