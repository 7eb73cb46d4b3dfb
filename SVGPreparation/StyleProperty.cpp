// The table of properties, and the values that browsers accept for them.

#include "SVGPreparation/StyleProperty.h"

#include "SVGPreparation/Length.h"
#include "SVGPreparation/Paint.h"
#include "SVGPreparation/Scanner.h"
#include "SVGPreparation/TransformList.h"

#include <QHash>

namespace svgprep {

namespace {

using Check = bool (*)(QStringView value);

bool isPaint(QStringView value)
{
    return paintFrom(value).has_value();
}

bool isColor(QStringView value)
{
    const bool isWordOfPaints = value.compare(QLatin1String("none"), Qt::CaseInsensitive) == 0
        || value.startsWith(QLatin1String("url("), Qt::CaseInsensitive);
    return !isWordOfPaints && paintFrom(value).has_value();
}

bool isRatio(QStringView value)
{
    return ratioFrom(value).has_value();
}

/// Whether `value` is a word; only some words mean something here.
bool isWord(QStringView value)
{
    Scanner scanner(value);
    return !scanner.word().isEmpty() && scanner.atEnd() && value.front().isLetter();
}

bool isReference(QStringView value)
{
    return value.startsWith(QLatin1String("url("), Qt::CaseInsensitive)
        || value.compare(QLatin1String("none"), Qt::CaseInsensitive) == 0;
}

bool isReferenceOrShape(QStringView value)
{
    return isReference(value) || value.endsWith(QLatin1Char(')'));
}

/// Whether `value` is a width; the width of a stroke may lack its unit.
bool isWidth(QStringView value)
{
    const std::optional<Length> length = lengthFrom(value);
    return length && length->value >= 0.0;
}

bool isLengthWithUnit(QStringView value)
{
    const std::optional<Length> length = lengthFrom(value);
    return length && (length->unit != LengthUnit::None || length->value == 0.0);
}

bool isFontSize(QStringView value)
{
    return (isLengthWithUnit(value) && !value.startsWith(QLatin1Char('-')))
        || fontSizeWord(value).has_value();
}

bool isLengthOrWord(QStringView value)
{
    return isLengthWithUnit(value) || isWord(value);
}

bool isFontWeight(QStringView value)
{
    static const QStringList words = {QStringLiteral("normal"), QStringLiteral("bold"),
                                      QStringLiteral("bolder"), QStringLiteral("lighter")};
    const std::optional<Length> number = lengthFrom(value);
    return (number && number->unit == LengthUnit::None && number->value >= 1.0 && number->value <= 1000.0)
        || words.contains(value.toString(), Qt::CaseInsensitive);
}

bool isFontStyle(QStringView value)
{
    return value.startsWith(QLatin1String("oblique"), Qt::CaseInsensitive)
        || value.compare(QLatin1String("italic"), Qt::CaseInsensitive) == 0
        || value.compare(QLatin1String("normal"), Qt::CaseInsensitive) == 0;
}

bool isTransform(QStringView value)
{
    return transformFrom(value, TransformSyntax::Property, {}).has_value();
}

bool isTransformOrigin(QStringView value)
{
    return transformOriginFrom(value, {}).has_value();
}

bool isAnything(QStringView value)
{
    return !value.isEmpty();
}

struct PropertyRow {
    Property property;
    const char *name;
    Check check;
};

// In the order of Property.
constexpr std::array<PropertyRow, propertyCount> propertyRows = {{
    {Property::Fill, "fill", isPaint},
    {Property::Stroke, "stroke", isPaint},
    {Property::Color, "color", isColor},
    {Property::FillOpacity, "fill-opacity", isRatio},
    {Property::StrokeOpacity, "stroke-opacity", isRatio},
    {Property::Opacity, "opacity", isRatio},
    {Property::Display, "display", isWord},
    {Property::Visibility, "visibility", isWord},
    {Property::StrokeWidth, "stroke-width", isWidth},
    {Property::Transform, "transform", isTransform},
    {Property::TransformOrigin, "transform-origin", isTransformOrigin},
    {Property::MarkerStart, "marker-start", isReference},
    {Property::MarkerMid, "marker-mid", isReference},
    {Property::MarkerEnd, "marker-end", isReference},
    {Property::ClipPath, "clip-path", isReferenceOrShape},
    {Property::Mask, "mask", isReferenceOrShape},
    {Property::Filter, "filter", isReferenceOrShape},
    {Property::FontSize, "font-size", isFontSize},
    {Property::FontFamily, "font-family", isAnything},
    {Property::FontWeight, "font-weight", isFontWeight},
    {Property::FontStyle, "font-style", isFontStyle},
    {Property::LetterSpacing, "letter-spacing", isLengthOrWord},
    {Property::WordSpacing, "word-spacing", isLengthOrWord},
    {Property::TextAnchor, "text-anchor", isWord},
    {Property::DominantBaseline, "dominant-baseline", isWord},
    {Property::BaselineShift, "baseline-shift", isLengthOrWord},
}};

/// Whether browsers accept a number without unit for the property in a style attribute.
bool mayLackUnit(Property property)
{
    return property == Property::FontSize || property == Property::LetterSpacing
        || property == Property::WordSpacing;
}

} // namespace

const QString &propertyName(Property property)
{
    static const std::vector<QString> names = [] {
        std::vector<QString> texts;
        texts.reserve(propertyCount);
        for (const PropertyRow &row : propertyRows)
            texts.push_back(QLatin1String(row.name));
        return texts;
    }();
    return names[static_cast<std::size_t>(property)];
}

std::optional<Property> propertyNamed(const QString &name)
{
    static const QHash<QString, Property> properties = [] {
        QHash<QString, Property> table;
        for (const PropertyRow &row : propertyRows)
            table.insert(QLatin1String(row.name), row.property);
        return table;
    }();
    const auto found = properties.constFind(name);
    return found == properties.constEnd() ? std::nullopt : std::optional<Property>(*found);
}

bool isValid(Property property, const QString &value, Units units)
{
    const bool isBareNumber = units == Units::Optional && mayLackUnit(property)
        && lengthFrom(value).value_or(Length{-1.0, LengthUnit::None}).value >= 0.0;
    return isBareNumber || isGlobalKeyword(value) || value.contains(QLatin1String("var("))
        || propertyRows[static_cast<std::size_t>(property)].check(value);
}

} // namespace svgprep
