// Reads path data by the whole grammar of SVG.

#pragma once

#include "SVGPreparation/Outline.h"

#include <QStringView>

namespace svgprep {

/// The outline of `data`, the attribute d of a path. SVG recommendation: a path with an error is drawn up to
/// the error.
Outline outlineFromPathData(QStringView data);

} // namespace svgprep
