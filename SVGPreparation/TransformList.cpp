// Reads a list of transforms, function by function.

#include "SVGPreparation/TransformList.h"

#include "SVGPreparation/Outline.h"
#include "SVGPreparation/Scanner.h"

#include <QtMath>

#include <array>
#include <cmath>

namespace svgprep {

namespace {

enum class Argument { Number, LengthX, LengthY, Angle };

using Values = std::array<double, 6>;

struct Function {
    const char *name;
    std::array<Argument, 6> arguments;
    int fewest;
    int most;
    bool propertyOnly;
    QTransform (*make)(const Values &values, int count);
};

QTransform rotation(double degrees)
{
    // Qt's rotate() is exact at right angles; the sine of 180 degrees would leave noise behind.
    QTransform transform;
    transform.rotate(degrees);
    return transform;
}

QTransform skewed(double degreesX, double degreesY)
{
    return {1.0, std::tan(qDegreesToRadians(degreesY)), std::tan(qDegreesToRadians(degreesX)), 1.0, 0.0, 0.0};
}

QTransform makeMatrix(const Values &v, int /*count*/)
{
    return {v[0], v[1], v[2], v[3], v[4], v[5]};
}
QTransform makeTranslate(const Values &v, int count)
{
    return QTransform::fromTranslate(v[0], count > 1 ? v[1] : 0.0);
}
QTransform makeTranslateY(const Values &v, int /*count*/)
{
    return QTransform::fromTranslate(0.0, v[0]);
}
QTransform makeScale(const Values &v, int count)
{
    return QTransform::fromScale(v[0], count > 1 ? v[1] : v[0]);
}
QTransform makeScaleX(const Values &v, int /*count*/)
{
    return QTransform::fromScale(v[0], 1.0);
}
QTransform makeScaleY(const Values &v, int /*count*/)
{
    return QTransform::fromScale(1.0, v[0]);
}
QTransform makeRotate(const Values &v, int count)
{
    if (count < 3)
        return rotation(v[0]);
    const QTransform back = QTransform::fromTranslate(v[1], v[2]);
    return combined(combined(QTransform::fromTranslate(-v[1], -v[2]), rotation(v[0])), back);
}
QTransform makeSkew(const Values &v, int count)
{
    return skewed(v[0], count > 1 ? v[1] : 0.0);
}
QTransform makeSkewY(const Values &v, int /*count*/)
{
    return skewed(0.0, v[0]);
}

constexpr auto N = Argument::Number;
constexpr auto X = Argument::LengthX;
constexpr auto Y = Argument::LengthY;
constexpr auto A = Argument::Angle;

const Function functions[] = {
    // name       arguments           fewest most  property only
    {"matrix", {N, N, N, N, N, N}, 6, 6, false, makeMatrix},
    {"translate", {X, Y}, 1, 2, false, makeTranslate},
    {"scale", {N, N}, 1, 2, false, makeScale},
    {"rotate", {A, X, Y}, 1, 3, false, makeRotate},
    {"skewX", {A}, 1, 1, false, makeSkew},
    {"skewY", {A}, 1, 1, false, makeSkewY},
    {"translateX", {X}, 1, 1, true, makeTranslate},
    {"translateY", {Y}, 1, 1, true, makeTranslateY},
    {"scaleX", {N}, 1, 1, true, makeScaleX},
    {"scaleY", {N}, 1, 1, true, makeScaleY},
    {"skew", {A, A}, 1, 2, true, makeSkew},
};

const Function *functionNamed(QStringView name, TransformSyntax syntax)
{
    // CSS: the names of functions may be in upper or lower case.
    const auto sensitivity = syntax == TransformSyntax::Property ? Qt::CaseInsensitive : Qt::CaseSensitive;
    for (const Function &function : functions) {
        if (name.compare(QLatin1String(function.name), sensitivity) == 0)
            return function.propertyOnly && syntax == TransformSyntax::Attribute ? nullptr : &function;
    }
    return nullptr;
}

struct AngleUnit {
    const char *name;
    double degrees;
};

constexpr AngleUnit angleUnits[] = {
    {"deg", 1.0},
    {"rad", 180.0 / M_PI},
    {"grad", 0.9},
    {"turn", 360.0},
};

/// Reads an angle of a property, in degrees.
std::optional<double> readAngle(Scanner &scanner)
{
    const std::optional<double> value = scanner.number();
    const QStringView name = scanner.word();
    for (const AngleUnit &unit : angleUnits) {
        if (value && name.compare(QLatin1String(unit.name), Qt::CaseInsensitive) == 0)
            return *value * unit.degrees;
    }
    return value && name.isEmpty() && *value == 0.0 ? value : std::nullopt;
}

std::optional<double> readPropertyArgument(Scanner &scanner, Argument kind, const LengthBase &base)
{
    if (kind == Argument::Number)
        return scanner.number();
    if (kind == Argument::Angle)
        return readAngle(scanner);
    const std::optional<Length> length = lengthFrom(scanner);
    if (!length || (length->unit == LengthUnit::None && length->value != 0.0))
        return {};
    return userUnits(*length, base, kind == Argument::LengthX ? Along::Width : Along::Height);
}

std::optional<QTransform> readFunction(Scanner &scanner, TransformSyntax syntax, const LengthBase &base)
{
    const Function *function = functionNamed(scanner.word(), syntax);
    scanner.skipBlanks();
    if (!function || !scanner.take('('))
        return {};

    Values values = {};
    int count = 0;
    scanner.skipBlanks();
    while (count < function->most && scanner.next() != QLatin1Char(')')) {
        const Argument kind = function->arguments[static_cast<std::size_t>(count)];
        const std::optional<double> value = syntax == TransformSyntax::Property
            ? readPropertyArgument(scanner, kind, base)
            : scanner.number();
        if (!value)
            return {};
        values[static_cast<std::size_t>(count)] = *value;
        ++count;
        scanner.skipSeparator();
    }
    const bool isTurnAboutHalfAPoint = function->make == makeRotate && count == 2;
    if (count < function->fewest || isTurnAboutHalfAPoint || !scanner.take(')'))
        return {};
    return function->make(values, count);
}

struct OriginWord {
    const char *name;
    bool isVertical;
    double share; // of the viewport's side
};

constexpr OriginWord originWords[] = {
    {"left", false, 0.0},
    {"right", false, 1.0},
    {"top", true, 0.0},
    {"bottom", true, 1.0},
};

} // namespace

std::optional<QTransform> transformFrom(QStringView text, TransformSyntax syntax, const LengthBase &base)
{
    QTransform product;
    text = withoutBlanks(text);
    if (text.compare(QLatin1String("none"), Qt::CaseInsensitive) == 0)
        return product;
    Scanner scanner(text);
    while (!scanner.atEnd()) {
        const std::optional<QTransform> transform = readFunction(scanner, syntax, base);
        if (!transform)
            return {};
        product = combined(*transform, product);
        scanner.skipSeparator();
    }
    return product;
}

std::optional<QPointF> transformOriginFrom(QStringView text, const LengthBase &base)
{
    QPointF origin(base.viewport.width() / 2.0, base.viewport.height() / 2.0);
    Scanner scanner(withoutBlanks(text));
    for (bool isSecond : {false, true}) {
        if (scanner.atEnd())
            break;
        bool isVertical = isSecond;
        double value = isSecond ? origin.y() : origin.x();
        if (scanner.next().isLetter()) {
            const QStringView name = scanner.word();
            for (const OriginWord &word : originWords) {
                if (name.compare(QLatin1String(word.name), Qt::CaseInsensitive) != 0)
                    continue;
                isVertical = word.isVertical;
                value = word.share * (isVertical ? base.viewport.height() : base.viewport.width());
            }
        } else {
            const std::optional<Length> length = lengthFrom(scanner);
            if (!length)
                return {};
            value = userUnits(*length, base, isSecond ? Along::Height : Along::Width);
        }
        (isVertical ? origin.ry() : origin.rx()) = value;
        scanner.skipBlanks();
    }
    return origin;
}

} // namespace svgprep
