// The grid behind a drawing and the mark of its axes.

#pragma once

#include "view/DrawingPainter.h"

namespace refhost {

/// Paints grid lines 1, 2 or 5 times a power of ten apart, the two axes through the origin and, in the lower
/// left corner, which way x and y go.
void paintGrid(QPainter &painter, const ViewTransform &view, const DrawingColours &colours);

} // namespace refhost
