// Which part of the drawing plane a window or a picture shows, and how large.

#pragma once

#include "view/Extents.h"

#include <QPointF>
#include <QSizeF>

namespace refhost {

/// A view onto the drawing plane. The drawing's y axis points up, that of pixels down.
struct ViewTransform {
    Point center;               ///< what stands in the middle of the view, drawing units
    double pixelsPerUnit = 1.0; ///< above 0
    QSizeF size;                ///< of the view, in pixels

    /// The view of `size` pixels that shows `extents` as large as they fit inside a margin of `margin`
    /// pixels. A single point stands in the middle at one pixel per unit.
    static ViewTransform fitting(const Extents &extents, const QSizeF &size, double margin);

    bool operator==(const ViewTransform &other) const;
    bool operator!=(const ViewTransform &other) const { return !(*this == other); }

    /// From drawing units to pixels.
    Affine toPixels() const;
    QPointF toPixels(const Point &point) const;
    /// The drawing point under `pixel`, with z 0.
    Point toDrawing(const QPointF &pixel) const;
};

} // namespace refhost
