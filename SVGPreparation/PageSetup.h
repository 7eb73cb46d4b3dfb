// The sheet of a drawing: what the outermost element says of size and units.

#pragma once

#include "SVGPreparation/PlainSVG.h"
#include "SVGPreparation/SVGPreparation.h"

#include <QDomElement>
#include <QRectF>
#include <QSizeF>
#include <QTransform>

namespace svgprep {

struct PageSetup {
    Page page;
    QTransform toDrawing;   ///< from user units of the outermost viewBox to drawing units
    QTransform toPixels;    ///< from user units to pixels of the sheet
    QTransform toUserUnits; ///< and back
    QSizeF pixels;          ///< the sheet's size
    QSizeF viewport;        ///< what percentages are of, user units
    bool hasSize = true;    ///< there is a viewBox, or a width and a height
    bool hasPhysicalSize = true;
    bool isHidden = false; ///< an empty viewBox shows nothing
};

/// Reads the attributes of `root`, whose font has this size in pixels.
PageSetup pageSetup(const QDomElement &root, double fontSize, DrawingUnit unit);

/// The page of a file that states no size: what was drawn, in whole units.
Page pageAround(const QRectF &extents);

} // namespace svgprep
