// The course of a shape: runs of straight lines and cubic curves, and how a transform moves them.

#pragma once

#include <QPainterPath>
#include <QPointF>
#include <QTransform>

#include <vector>

namespace svgprep {

/// One step from the end of the previous one to `end`.
struct Segment {
    bool isCurve = false;
    bool endsAtVertex = true; ///< false within an arc: an arc is one step
    QPointF control1;
    QPointF control2;
    QPointF end;
};

struct Subpath {
    QPointF start;
    std::vector<Segment> segments;
    bool isClosed = false; ///< a straight line leads from the last end back to the start

    QPointF end() const { return segments.empty() ? start : segments.back().end; }
    void lineTo(QPointF end) { segments.push_back({false, true, {}, {}, end}); }
    void curveTo(QPointF control1, QPointF control2, QPointF end, bool endsAtVertex = true)
    {
        segments.push_back({true, endsAtVertex, control1, control2, end});
    }
    /// Appends an elliptical arc like SVG's path command A, `xAxisRotation` in degrees. Radii that do not
    /// reach `end` are scaled up.
    void arcTo(double rx, double ry, double xAxisRotation, bool isLargeArc, bool sweeps, QPointF end);
};

using Outline = std::vector<Subpath>;

/// The point at `t` (0 to 1) of a curve from `start`.
QPointF pointAt(QPointF start, const Segment &curve, double t);

/// The whole ellipse about `center` in four curves, from its right end.
Outline ellipseOutline(QPointF center, double rx, double ry);

/// The outline of `path`, letters for example; every subpath is closed.
Outline outlineOf(const QPainterPath &path);

/// `first` followed by `second`. QTransform's own product rounds numbers below 1e-12 to 0, and drawings in
/// very large units have such numbers.
QTransform combined(const QTransform &first, const QTransform &second);

/// `point` under `transform`, as exact as combined().
QPointF mapped(const QTransform &transform, QPointF point);

} // namespace svgprep
