// Lengths with their units, as SVG and CSS write them.

#pragma once

#include <QSizeF>
#include <QStringView>

#include <optional>

class QDomElement;
class QString;

namespace svgprep {

class Scanner;

constexpr double pixelsPerInch = 96.0;

enum class LengthUnit {
    None,
    Pixel,
    Percent,
    Em,
    Ex,
    Rem,
    Millimetre,
    Centimetre,
    Inch,
    Point,
    Pica,
    QuarterMillimetre
};

struct Length {
    double value = 0.0;
    LengthUnit unit = LengthUnit::None;
};

/// The sizes that relative lengths refer to.
struct LengthBase {
    QSizeF viewport;            ///< user units
    double fontSize = 16.0;     ///< user units
    double rootFontSize = 16.0; ///< of the outermost element
};

/// The side of the viewport that a percentage refers to. Other is its diagonal, divided by the root of 2.
enum class Along { Width, Height, Other };

/// Reads a length from the front. No value when there is none or its unit is unknown.
std::optional<Length> lengthFrom(Scanner &scanner);
/// The length in `text`. No value when `text` holds anything else but white space.
std::optional<Length> lengthFrom(QStringView text);

/// Whether the unit is a length on paper. A pixel is not: its size depends on the screen.
bool isPhysical(LengthUnit unit);

/// The length in user units; an inch has 96.
double userUnits(const Length &length, const LengthBase &base, Along along);

/// The attribute `name` in user units, or `fallback` when it is absent or no length.
double lengthAttribute(const QDomElement &element, const QString &name, const LengthBase &base, Along along,
                       double fallback = 0.0);

} // namespace svgprep
