// Qt's conversion takes longer for a number than its parser takes for the same text. Coordinates are short,
// so nearly all of them are a whole number below 2^53 divided by a power of ten, and that quotient of two
// exact doubles is the nearest double already.

#include "SVGNumber.h"

namespace {

constexpr double powersOfTen[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                  1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
constexpr int mostDigits = 15;

} // namespace

double plainNumber(const QStringRef &text)
{
    const QChar *character = text.begin();
    const QChar *const end = text.end();
    const bool negative = character != end && *character == QLatin1Char('-');
    if (negative)
        ++character;

    qint64 digits = 0;
    int digitCount = 0;
    int fractionDigits = 0;
    bool inFraction = false;
    for (; character != end && digitCount <= mostDigits; ++character) {
        const int digit = character->unicode() - '0';
        if (digit >= 0 && digit <= 9) {
            digits = digits * 10 + digit;
            ++digitCount;
            fractionDigits += inFraction ? 1 : 0;
        } else if (*character == QLatin1Char('.') && !inFraction) {
            inFraction = true;
        } else {
            return text.toDouble();
        }
    }
    if (digitCount == 0 || digitCount > mostDigits)
        return text.toDouble();

    const double value = static_cast<double>(digits) / powersOfTen[fractionDigits];
    return negative ? -value : value;
}
