// Rounds and writes numbers by way of whole ones.

#include "SVGPreparation/DrawingGrid.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace svgprep {

namespace {

/// Up to here every whole number is a double.
constexpr double largestWhole = 9007199254740992.0;

int decimalsFor(double size)
{
    constexpr int digits = 10;
    constexpr int mostDecimals = 18;
    if (!(size > 0.0) || !std::isfinite(size))
        return digits;
    return std::clamp(digits - static_cast<int>(std::floor(std::log10(size))), 0, mostDecimals);
}

} // namespace

DrawingGrid::DrawingGrid(double size)
    : m_decimals(decimalsFor(size))
    , m_power(std::pow(10.0, m_decimals))
{
    // The rounded size must give the same grid. It may be a power of ten, or the smallest number that
    // sizeText() writes.
    if (size > 0.0)
        m_decimals = decimalsFor(std::max(snapped(size), 1.0 / m_power));
    m_power = std::pow(10.0, m_decimals);
}

double DrawingGrid::snapped(double value) const
{
    const double scaled = value * m_power;
    if (!(std::abs(scaled) < largestWhole))
        return value;                          // a double of this size is no finer than the grid
    return std::round(scaled) / m_power + 0.0; // turns -0 into 0
}

void DrawingGrid::append(QByteArray &text, double value) const
{
    std::array<char, 400> digits; // 309 before the point, for the largest double
    const double scaled = std::round(value * m_power);
    if (!(std::abs(scaled) < largestWhole)) {
        const auto end =
            std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed);
        text.append(digits.data(), static_cast<int>(end.ptr - digits.data()));
        return;
    }
    auto whole = static_cast<std::int64_t>(std::abs(scaled));
    if (whole != 0 && value < 0.0)
        text += '-';
    int decimals = m_decimals;
    while (decimals > 0 && whole % 10 == 0) {
        whole /= 10;
        --decimals;
    }
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), whole);
    const int count = static_cast<int>(end.ptr - digits.data());
    if (decimals == 0) {
        text.append(digits.data(), count);
        return;
    }
    const int before = std::max(0, count - decimals);
    if (before == 0)
        text += '0';
    text.append(digits.data(), before);
    text += '.';
    text.append(decimals - (count - before), '0');
    text.append(digits.data() + before, count - before);
}

QByteArray DrawingGrid::text(double value) const
{
    QByteArray text;
    append(text, value);
    return text;
}

QByteArray DrawingGrid::sizeText(double size) const
{
    return text(std::max(size, 1.0 / m_power));
}

} // namespace svgprep
