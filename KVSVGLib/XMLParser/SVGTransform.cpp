// Reads matrix(a b c d e f) and applies it to coordinate lists.

#include "SVGTransform.h"

#include <QVector>

namespace svgread {

std::optional<SVGMatrix> matrixFromAttribute(const QString &transform)
{
    constexpr int wordAndParenthesis = 7; // "matrix("
    if (transform.size() <= wordAndParenthesis + 1)
        return std::nullopt;
    const QString cut = transform.mid(wordAndParenthesis, transform.size() - wordAndParenthesis - 1);
    // Blanks become commas first: files write matrix(1 0 0 1 5 5) as well.
    const QString commas = QString(cut).replace(QLatin1Char(' '), QLatin1Char(','));
    const QVector<QStringRef> parts = commas.splitRef(QLatin1Char(','), Qt::SkipEmptyParts);
    if (parts.isEmpty())
        return std::nullopt;

    SVGMatrix matrix;
    double *const coefficients[] = {&matrix.a, &matrix.b, &matrix.c, &matrix.d, &matrix.e, &matrix.f};
    for (int i = 0; i < qMin(6, parts.size()); ++i)
        *coefficients[i] = parts[i].toDouble();
    return matrix;
}

kvDoubleArray flipped(kvDoubleArray values)
{
    for (int i = 1; i < values.getSize(); i += 2)
        values[i] = -values[i];
    return values;
}

kvDoubleArray mapped(const SVGMatrix &matrix, kvDoubleArray values)
{
    const int size = values.getSize();
    for (int i = 0; i < size; i += 2) {
        const bool hasY = i + 1 < size;
        const double x = values[i];
        const double y = hasY ? values[i + 1] : 0.0;
        values[i] = matrix.a * x + matrix.c * y + matrix.e;
        if (hasY)
            values[i + 1] = (-matrix.b) * x + matrix.d * (-y) - matrix.f;
    }
    return values;
}

} // namespace svgread

const SVGTransforms::Transform &SVGTransforms::of(const QString &text)
{
    constexpr int shortText = 256; // reading it takes no longer than finding it
    Transform &known = text.size() > shortText ? m_long[text.constData()] : m_short;
    if (known.text != text) {
        const QString hostText = text.left(text.indexOf(QChar::Null));
        known = {text, hostText.contains(QLatin1String("matrix")), svgread::matrixFromAttribute(hostText)};
    }
    return known;
}
