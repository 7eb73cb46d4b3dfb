// Reads values of style properties.

#include "SVGPreparation/Paint.h"

#include "SVGPreparation/Length.h"
#include "SVGPreparation/Scanner.h"

#include <QColor>
#include <QHash>
#include <QStringList>

namespace svgprep {

namespace {

bool isWord(QStringView value, const char *word)
{
    return value.compare(QLatin1String(word), Qt::CaseInsensitive) == 0;
}

/// Reads the digits after "#". The fourth of four digits is the opacity, or the last two of eight.
std::optional<Paint> hexColor(QStringView digits)
{
    for (const QChar digit : digits) {
        const ushort lower = digit.toLower().unicode();
        if (!((lower >= '0' && lower <= '9') || (lower >= 'a' && lower <= 'f')))
            return {};
    }
    const auto size = digits.size();
    if (size != 3 && size != 4 && size != 6 && size != 8)
        return {};
    const QStringView opacity = digits.mid(size == 4 ? 3 : 6);
    const bool isInvisible =
        (size == 4 || size == 8) && (opacity == QLatin1String("0") || opacity == QLatin1String("00"));
    return isInvisible ? Paint::None : Paint::Shown;
}

/// Reads rgb(), hsl() and the like. The opacity follows a slash or is the fourth argument.
std::optional<Paint> functionColor(QStringView value)
{
    static const QStringList names = {
        QStringLiteral("rgb"),   QStringLiteral("rgba"),      QStringLiteral("hsl"),
        QStringLiteral("hsla"),  QStringLiteral("hwb"),       QStringLiteral("lab"),
        QStringLiteral("lch"),   QStringLiteral("oklab"),     QStringLiteral("oklch"),
        QStringLiteral("color"), QStringLiteral("color-mix"), QStringLiteral("light-dark")};
    Scanner scanner(value);
    if (!names.contains(scanner.word().toString(), Qt::CaseInsensitive) || !scanner.take('('))
        return {};
    const QString arguments = scanner.until(')').toString();
    const QString opacity = arguments.contains(QLatin1Char('/')) ? arguments.section(QLatin1Char('/'), 1, 1)
                                                                 : arguments.section(QLatin1Char(','), 3, 3);
    const std::optional<double> ratio = ratioFrom(withoutBlanks(opacity));
    return ratio && *ratio <= 0.0 ? Paint::None : Paint::Shown;
}

/// Whether `name` is a colour that Qt knows, the younger rebeccapurple, or a colour of the user's desktop.
bool isColorName(QStringView name)
{
    static const QStringList furtherColors = {
        QStringLiteral("canvas"),       QStringLiteral("canvastext"), QStringLiteral("linktext"),
        QStringLiteral("buttonface"),   QStringLiteral("buttontext"), QStringLiteral("graytext"),
        QStringLiteral("highlight"),    QStringLiteral("windowtext"), QStringLiteral("window"),
        QStringLiteral("infotext"),     QStringLiteral("menutext"),   QStringLiteral("accentcolor"),
        QStringLiteral("rebeccapurple")};
    return furtherColors.contains(name.toString(), Qt::CaseInsensitive)
        || (!name.isEmpty() && QColor::isValidColor(name.toString()));
}

} // namespace

std::optional<Paint> paintFrom(QStringView value)
{
    value = withoutBlanks(value);
    if (isWord(value, "none") || isWord(value, "transparent"))
        return Paint::None;
    if (isWord(value, "currentColor"))
        return Paint::CurrentColor;
    if (isWord(value, "context-fill") || isWord(value, "context-stroke")
        || value.startsWith(QLatin1String("url("), Qt::CaseInsensitive))
        return Paint::Shown;
    if (value.contains(QLatin1Char('(')))
        if (const std::optional<Paint> paint = functionColor(value))
            return paint;
    // Older files add the colour of a profile: "#a0a0a0 icc-color(...)".
    Scanner scanner(value);
    const QStringView color = scanner.untilBlank();
    if (color.startsWith(QLatin1Char('#')))
        return hexColor(color.mid(1));
    return isColorName(color) ? std::optional<Paint>(Paint::Shown) : std::nullopt;
}

std::optional<double> ratioFrom(QStringView value)
{
    const std::optional<Length> length = lengthFrom(value);
    if (!length || (length->unit != LengthUnit::None && length->unit != LengthUnit::Percent))
        return {};
    return length->unit == LengthUnit::Percent ? length->value / 100.0 : length->value;
}

std::optional<FontSizeWord> fontSizeWord(QStringView value)
{
    // Browsers have these sizes for a medium of 16 pixels.
    static const QHash<QString, FontSizeWord> words = {
        {QStringLiteral("xx-small"), {9.0, false}},     {QStringLiteral("x-small"), {10.0, false}},
        {QStringLiteral("small"), {13.0, false}},       {QStringLiteral("medium"), {16.0, false}},
        {QStringLiteral("large"), {18.0, false}},       {QStringLiteral("x-large"), {24.0, false}},
        {QStringLiteral("xx-large"), {32.0, false}},    {QStringLiteral("xxx-large"), {48.0, false}},
        {QStringLiteral("smaller"), {1.0 / 1.2, true}}, {QStringLiteral("larger"), {1.2, true}},
    };
    const auto found = words.constFind(value.toString().toLower());
    return found == words.constEnd() ? std::nullopt : std::optional<FontSizeWord>(*found);
}

bool isGlobalKeyword(QStringView value)
{
    static const QStringList words = {QStringLiteral("inherit"), QStringLiteral("initial"),
                                      QStringLiteral("unset"), QStringLiteral("revert"),
                                      QStringLiteral("revert-layer")};
    return words.contains(value.toString(), Qt::CaseInsensitive);
}

QString referencedId(QStringView value)
{
    value = withoutBlanks(value);
    if (!value.startsWith(QLatin1String("url("), Qt::CaseInsensitive))
        return {};
    QStringView address = value.mid(4);
    const auto end = address.indexOf(QLatin1Char(')'));
    address = withoutBlanks(end < 0 ? address : address.left(end));
    for (const char quote : {'"', '\''}) {
        if (address.size() > 1 && address.startsWith(QLatin1Char(quote))
            && address.endsWith(QLatin1Char(quote)))
            address = address.mid(1, address.size() - 2);
    }
    return address.startsWith(QLatin1Char('#')) ? address.mid(1).toString() : QString();
}

} // namespace svgprep
