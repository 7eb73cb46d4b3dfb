// One table of units serves reading and converting.

#include "SVGPreparation/Length.h"

#include "SVGPreparation/Scanner.h"

#include <QDomElement>

#include <cmath>

namespace svgprep {

namespace {

struct UnitRow {
    const char *name;
    LengthUnit unit;
    double pixels; // 0 for relative units
};

constexpr UnitRow unitRows[] = {
    {"", LengthUnit::None, 1.0},
    {"px", LengthUnit::Pixel, 1.0},
    {"mm", LengthUnit::Millimetre, pixelsPerInch / 25.4},
    {"cm", LengthUnit::Centimetre, pixelsPerInch / 2.54},
    {"in", LengthUnit::Inch, pixelsPerInch},
    {"pt", LengthUnit::Point, pixelsPerInch / 72.0},
    {"pc", LengthUnit::Pica, pixelsPerInch / 6.0},
    {"q", LengthUnit::QuarterMillimetre, pixelsPerInch / 101.6},
    {"em", LengthUnit::Em, 0.0},
    {"ex", LengthUnit::Ex, 0.0},
    {"rem", LengthUnit::Rem, 0.0},
};

double reference(const QSizeF &viewport, Along along)
{
    switch (along) {
    case Along::Width:
        return viewport.width();
    case Along::Height:
        return viewport.height();
    case Along::Other:
        break;
    }
    return std::hypot(viewport.width(), viewport.height()) / std::sqrt(2.0);
}

} // namespace

std::optional<Length> lengthFrom(Scanner &scanner)
{
    const std::optional<double> value = scanner.number();
    if (!value)
        return {};
    if (scanner.take('%'))
        return Length{*value, LengthUnit::Percent};
    const QStringView name = scanner.word();
    for (const UnitRow &row : unitRows) {
        if (name.compare(QLatin1String(row.name), Qt::CaseInsensitive) == 0)
            return Length{*value, row.unit};
    }
    return {};
}

std::optional<Length> lengthFrom(QStringView text)
{
    Scanner scanner(withoutBlanks(text));
    const std::optional<Length> length = lengthFrom(scanner);
    return scanner.atEnd() ? length : std::nullopt;
}

bool isPhysical(LengthUnit unit)
{
    switch (unit) {
    case LengthUnit::Millimetre:
    case LengthUnit::Centimetre:
    case LengthUnit::Inch:
    case LengthUnit::Point:
    case LengthUnit::Pica:
    case LengthUnit::QuarterMillimetre:
        return true;
    default:
        return false;
    }
}

double userUnits(const Length &length, const LengthBase &base, Along along)
{
    switch (length.unit) {
    case LengthUnit::Percent:
        return length.value / 100.0 * reference(base.viewport, along);
    case LengthUnit::Em:
        return length.value * base.fontSize;
    case LengthUnit::Ex:
        return length.value * base.fontSize / 2.0;
    case LengthUnit::Rem:
        return length.value * base.rootFontSize;
    default:
        break;
    }
    for (const UnitRow &row : unitRows) {
        if (row.unit == length.unit)
            return length.value * row.pixels;
    }
    return length.value;
}

double lengthAttribute(const QDomElement &element, const QString &name, const LengthBase &base, Along along,
                       double fallback)
{
    const QString text = element.attribute(name);
    if (text.isEmpty())
        return fallback;
    const std::optional<Length> length = lengthFrom(text);
    return length ? userUnits(*length, base, along) : fallback;
}

} // namespace svgprep
