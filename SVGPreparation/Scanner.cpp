// Reads numbers and words.

#include "SVGPreparation/Scanner.h"

#include <QByteArray>
#include <QString>

#include <array>
#include <charconv>
#include <limits>

namespace svgprep {

namespace {

bool isDigit(const QChar *position, const QChar *end)
{
    return position != end && *position >= QLatin1Char('0') && *position <= QLatin1Char('9');
}

const QChar *skipDigits(const QChar *position, const QChar *end)
{
    while (isDigit(position, end))
        ++position;
    return position;
}

bool isSign(const QChar *position, const QChar *end)
{
    return position != end && (*position == QLatin1Char('+') || *position == QLatin1Char('-'));
}

/// The end of the exponent at `position`; `position` itself without one, as in "1em".
const QChar *skipExponent(const QChar *position, const QChar *end)
{
    if (position == end || (*position != QLatin1Char('e') && *position != QLatin1Char('E')))
        return position;
    const QChar *digits = position + 1;
    if (isSign(digits, end))
        ++digits;
    return isDigit(digits, end) ? skipDigits(digits, end) : position;
}

/// The value of a number beyond the range of doubles: 0 when it is too small, infinite when it is too large.
double beyondDouble(const char *begin, const char *end)
{
    const QByteArray text = QByteArray(begin, static_cast<int>(end - begin)).toLower();
    const int exponentAt = text.indexOf('e');
    const bool isNegative = text.startsWith('-');
    const bool isSmall =
        exponentAt >= 0 ? text.indexOf('-', exponentAt) > 0 : text.mid(isNegative).startsWith("0.");
    const double size = isSmall ? 0.0 : std::numeric_limits<double>::infinity();
    return isNegative ? -size : size;
}

double valueOf(const char *begin, const char *end)
{
    double value = 0.0;
    const auto result = std::from_chars(begin, end, value);
    return result.ec == std::errc::result_out_of_range ? beyondDouble(begin, end) : value;
}

} // namespace

bool isBlank(QChar character)
{
    switch (character.unicode()) {
    case ' ':
    case '\t':
    case '\n':
    case '\r':
    case '\f':
        return true;
    default:
        return false;
    }
}

QStringView withoutBlanks(QStringView text)
{
    while (!text.isEmpty() && isBlank(text.front()))
        text = text.mid(1);
    while (!text.isEmpty() && isBlank(text.back()))
        text.chop(1);
    return text;
}

void Scanner::skipBlanks()
{
    while (m_position != m_end && isBlank(*m_position))
        ++m_position;
}

void Scanner::skipSeparator()
{
    skipBlanks();
    if (take(','))
        skipBlanks();
}

bool Scanner::take(char character)
{
    if (next() != QLatin1Char(character) || atEnd())
        return false;
    ++m_position;
    return true;
}

std::optional<double> Scanner::number()
{
    const QChar *begin = m_position;
    if (isSign(begin, m_end))
        ++begin;
    const QChar *end = skipDigits(begin, m_end);
    if (end != m_end && *end == QLatin1Char('.') && isDigit(end + 1, m_end))
        end = skipDigits(end + 1, m_end);
    if (end == begin)
        return {};
    end = skipExponent(end, m_end);

    if (*m_position != QLatin1Char('+'))
        begin = m_position; // std::from_chars knows no plus sign
    m_position = end;
    std::array<char, 64> digits;
    const auto length = static_cast<std::size_t>(end - begin);
    if (length > digits.size()) {
        const QByteArray longNumber = QString(begin, static_cast<int>(length)).toLatin1();
        return valueOf(longNumber.constData(), longNumber.constData() + longNumber.size());
    }
    for (std::size_t i = 0; i < length; ++i)
        digits[i] = begin[i].toLatin1();
    return valueOf(digits.data(), digits.data() + length);
}

std::optional<bool> Scanner::flag()
{
    const QChar digit = next();
    if (digit != QLatin1Char('0') && digit != QLatin1Char('1'))
        return {};
    ++m_position;
    return digit == QLatin1Char('1');
}

QStringView Scanner::word()
{
    const QChar *begin = m_position;
    while (m_position != m_end
           && (m_position->isLetterOrNumber() || *m_position == QLatin1Char('-')
               || *m_position == QLatin1Char('_')))
        ++m_position;
    return {begin, m_position};
}

QStringView Scanner::until(char character)
{
    const QChar *begin = m_position;
    while (m_position != m_end && *m_position != QLatin1Char(character))
        ++m_position;
    const QStringView text(begin, m_position);
    if (m_position != m_end)
        ++m_position;
    return text;
}

QStringView Scanner::untilBlank()
{
    const QChar *begin = m_position;
    while (m_position != m_end && !isBlank(*m_position))
        ++m_position;
    return {begin, m_position};
}

} // namespace svgprep
