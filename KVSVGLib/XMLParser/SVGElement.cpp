// Reads numbers and transform texts of one element.

#include "SVGElement.h"

namespace svgread {

namespace {

// Qt converts a number more slowly than its XML parser reads it. Nearly all coordinates are short: a whole
// number below 2^53 divided by a power of ten. Both are exact doubles, so their quotient is the nearest
// double.
constexpr double powersOfTen[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                  1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
constexpr int mostDigits = 15;

} // namespace

double plainNumber(const QStringRef &text)
{
    const bool isNegative = text.startsWith(QLatin1Char('-'));
    qint64 digits = 0;
    int count = 0;
    int beforePoint = -1;
    for (int i = isNegative ? 1 : 0; i < text.size() && count <= mostDigits; ++i) {
        const int digit = text.at(i).unicode() - '0';
        if (digit >= 0 && digit <= 9) {
            digits = digits * 10 + digit;
            ++count;
        } else if (text.at(i) == QLatin1Char('.') && beforePoint < 0) {
            beforePoint = count;
        } else {
            return text.toDouble();
        }
    }
    if (count == 0 || count > mostDigits)
        return text.toDouble();
    const double value = static_cast<double>(digits) / powersOfTen[beforePoint < 0 ? 0 : count - beforePoint];
    return isNegative ? -value : value;
}

double attributeNumber(const QDomElement &element, const QString &name)
{
    const QString text = element.attribute(name);
    return plainNumber(QStringRef(&text));
}

QString parentTransform(const QDomElement &element)
{
    return ownTransform(element.parentNode().toElement());
}

QString ownTransform(const QDomElement &element)
{
    return element.attribute(QStringLiteral("transform"));
}

} // namespace svgread
