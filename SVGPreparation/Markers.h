// Where the markers of an outline stand, and which way they point.

#pragma once

#include "SVGPreparation/Outline.h"

#include <QDomElement>
#include <QPointF>
#include <QTransform>

#include <vector>

namespace svgprep {

struct LengthBase;

/// A vertex of an outline and the direction of a marker there.
struct MarkerPlace {
    enum class Kind { Start, Mid, End };

    Kind kind = Kind::Mid;
    QPointF position;
    double direction = 0.0; ///< degrees; halfway between both sides at a corner
};

/// The places for markers along `outline`, from its first to its last vertex.
std::vector<MarkerPlace> markerPlaces(const Outline &outline);

/// Maps the contents of `marker` to the user units of the shape at `place`; its stroke is `strokeWidth` wide.
/// All coefficients are 0 when nothing is to be drawn.
QTransform markerTransform(const QDomElement &marker, const MarkerPlace &place, double strokeWidth,
                           const LengthBase &base);

} // namespace svgprep
