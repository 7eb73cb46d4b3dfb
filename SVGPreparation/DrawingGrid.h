// The grid of all coordinates of a plain SVG: decimal fractions fine enough for the drawing's size.

#pragma once

#include <QByteArray>
#include <QPointF>

namespace svgprep {

/// Rounds numbers so that the text holds exactly what was computed with. A plain SVG read again gives the
/// same numbers.
class DrawingGrid {
public:
    /// Makes a grid for a drawing of this size (its larger side), some ten digits finer.
    explicit DrawingGrid(double size);

    /// The number of the grid that is nearest to `value`.
    double snapped(double value) const;
    QPointF snapped(QPointF point) const { return {snapped(point.x()), snapped(point.y())}; }

    /// Appends `value` as a decimal number without exponent and without needless zeros.
    void append(QByteArray &text, double value) const;
    QByteArray text(double value) const;
    /// A size above 0 as text, at least the smallest number of the grid: a size of 0 would mean none.
    QByteArray sizeText(double size) const;

private:
    int m_decimals;
    double m_power; // ten to the number of decimals
};

} // namespace svgprep
