// Fits a view to extents and maps points through it.

#include "view/ViewTransform.h"

#include <algorithm>
#include <limits>

namespace refhost {

namespace {

/// How many pixels a unit may have for `halfLength` units to fit into `pixels`.
double fittingScale(double halfLength, double pixels)
{
    constexpr double largest = 1e307;
    return halfLength > 0.0 ? std::min(0.5 * std::max(pixels, 1.0) / halfLength, largest)
                            : std::numeric_limits<double>::infinity();
}

} // namespace

ViewTransform ViewTransform::fitting(const Extents &extents, const QSizeF &size, double margin)
{
    ViewTransform view;
    view.size = size;
    if (extents.isEmpty())
        return view;

    view.center = extents.center();
    if (extents.isPoint())
        return view;
    view.pixelsPerUnit = std::min(fittingScale(extents.halfWidth(), size.width() - 2.0 * margin),
                                  fittingScale(extents.halfHeight(), size.height() - 2.0 * margin));
    return view;
}

bool ViewTransform::operator==(const ViewTransform &other) const
{
    return center.x == other.center.x && center.y == other.center.y && pixelsPerUnit == other.pixelsPerUnit
        && size == other.size;
}

Affine ViewTransform::toPixels() const
{
    Affine map;
    map.a = pixelsPerUnit;
    map.d = -pixelsPerUnit;
    map.e = 0.5 * size.width() - center.x * pixelsPerUnit;
    map.f = 0.5 * size.height() + center.y * pixelsPerUnit;
    return map;
}

QPointF ViewTransform::toPixels(const Point &point) const
{
    return {0.5 * size.width() + (point.x - center.x) * pixelsPerUnit,
            0.5 * size.height() - (point.y - center.y) * pixelsPerUnit};
}

Point ViewTransform::toDrawing(const QPointF &pixel) const
{
    return {center.x + (pixel.x() - 0.5 * size.width()) / pixelsPerUnit,
            center.y - (pixel.y() - 0.5 * size.height()) / pixelsPerUnit, 0.0};
}

} // namespace refhost
