// The sheet of a drawing, from the size and units of the outermost element.

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
    QTransform toUserUnits; ///< from pixels of the sheet to user units
    QSizeF pixels;          ///< the sheet's size
    QSizeF viewport;        ///< percentages refer to it, user units
    bool hasSize = true;    ///< there is a viewBox, or a width and a height
    bool hasPhysicalSize = true;
    bool isHidden = false; ///< an empty viewBox shows nothing
};

/// Reads the attributes of `root`; its font has `fontSize` pixels.
PageSetup pageSetup(const QDomElement &root, double fontSize, DrawingUnit unit);

/// The page of a file without a size: the room of its shapes, in whole units.
Page pageAround(const QRectF &extents);

} // namespace svgprep
