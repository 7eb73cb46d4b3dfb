// Reads a path's data by the whole grammar of SVG.

#pragma once

#include "SVGPreparation/Outline.h"

#include <QStringView>

namespace svgprep {

/// The outline that `data`, a path's attribute d, describes. SVG recommendation: a path with an error is
/// drawn up to the error.
Outline outlineFromPathData(QStringView data);

} // namespace svgprep
