// Where the markers of an outline stand, and which way they point.

#pragma once

#include "SVGPreparation/Outline.h"

#include <QDomElement>
#include <QPointF>
#include <QTransform>

#include <vector>

namespace svgprep {

struct LengthBase;

/// A vertex of an outline, with the direction in which a marker there points.
struct MarkerPlace {
    enum class Kind { Start, Mid, End };

    Kind kind = Kind::Mid;
    QPointF position;
    double direction = 0.0; ///< degrees; at corners halfway between both sides
};

/// All places for markers along `outline`, from its first to its last vertex.
std::vector<MarkerPlace> markerPlaces(const Outline &outline);

/// What maps the contents of `marker` to the user units of the shape at `place`, whose stroke is
/// `strokeWidth` wide. A transform that flattens everything means that nothing is to be drawn.
QTransform markerTransform(const QDomElement &marker, const MarkerPlace &place, double strokeWidth,
                           const LengthBase &base);

} // namespace svgprep
