// The course of a shape: runs of straight lines and cubic curves, and how a transform moves them.

#pragma once

#include <QPainterPath>
#include <QPointF>
#include <QTransform>

#include <vector>

namespace svgprep {

/// A step from the end of the one before to `end`.
struct Segment {
    bool isCurve = false;
    bool endsAtVertex = true; ///< false inside of an arc, which is one step to its author
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
    /// An elliptical arc as SVG's path command A describes it, `xAxisRotation` in degrees; radii too small to
    /// reach `end` are scaled up.
    void arcTo(double rx, double ry, double xAxisRotation, bool isLargeArc, bool sweeps, QPointF end);
};

using Outline = std::vector<Subpath>;

/// The point at `t`, 0 to 1, of a curve begun at `start`.
QPointF pointAt(QPointF start, const Segment &curve, double t);

/// The whole ellipse about `center`, begun at the right, in four curves.
Outline ellipseOutline(QPointF center, double rx, double ry);

/// What `path`, lettering say, draws.
Outline outlineOf(const QPainterPath &path);

/// `first` and after it `second`. QTransform's own product takes what is below 1e-12 for 0, which a drawing
/// in very large units is not.
QTransform combined(const QTransform &first, const QTransform &second);

/// `point` under `transform`, in full accuracy like combined().
QPointF mapped(const QTransform &transform, QPointF point);

} // namespace svgprep
