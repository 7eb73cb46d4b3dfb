// Computes styles by the cascade of CSS, as far as they decide what is visible and where.

#include "SVGPreparation/Style.h"

#include "SVGPreparation/Outline.h"
#include "SVGPreparation/StyleSheet.h"
#include "SVGPreparation/TransformList.h"

namespace svgprep {

namespace {

/// The fallback of a value that asks for a variable, since variables have no values here.
QString withoutVariables(const QString &value)
{
    QString text = value;
    const QLatin1String call("var(");
    // A fallback may be a variable itself; files do not nest them deep.
    for (int i = 0; i < 8 && text.startsWith(call); ++i) {
        const int comma = text.indexOf(QLatin1Char(','));
        const int end = text.lastIndexOf(QLatin1Char(')'));
        text = comma < 0 ? QString() : text.mid(comma + 1, end - comma - 1).trimmed();
    }
    return text.contains(call) ? QString() : text;
}

/// A declared value. An empty one stands for the parent's value, or else for the initial one.
struct DeclaredValue {
    QString value;
    bool isInitial = false;
};

DeclaredValue declaredValue(const Declared &declared, Property property)
{
    const QString &raw = declared[property];
    if (raw.isEmpty())
        return {};
    DeclaredValue result;
    result.value = raw.contains(QLatin1String("var(")) ? withoutVariables(raw) : raw;
    if (isGlobalKeyword(result.value)) {
        result.isInitial = result.value.compare(QLatin1String("initial"), Qt::CaseInsensitive) == 0;
        result.value.clear();
    }
    return result;
}

void setPaint(const Declared &declared, Property property, Paint initial, Paint &paint)
{
    const DeclaredValue fill = declaredValue(declared, property);
    if (fill.isInitial)
        paint = initial;
    else if (!fill.value.isEmpty())
        paint = paintFrom(fill.value).value_or(paint);
}

void setRatio(const Declared &declared, Property property, double &ratio)
{
    const DeclaredValue opacity = declaredValue(declared, property);
    if (opacity.isInitial)
        ratio = 1.0;
    else if (!opacity.value.isEmpty())
        ratio = ratioFrom(opacity.value).value_or(ratio);
}

void setLength(const Declared &declared, Property property, double initial, const LengthBase &base,
               double &length)
{
    const DeclaredValue width = declaredValue(declared, property);
    if (width.isInitial || width.value.compare(QLatin1String("normal"), Qt::CaseInsensitive) == 0)
        length = initial;
    else if (const std::optional<Length> value = lengthFrom(width.value))
        length = userUnits(*value, base, Along::Other);
}

void setMarker(const Declared &declared, Property property, QString &marker)
{
    const DeclaredValue reference = declaredValue(declared, property);
    if (reference.isInitial || !reference.value.isEmpty())
        marker = referencedId(reference.value);
}

void setFontSize(const Declared &declared, const LengthBase &base, double &size)
{
    const DeclaredValue given = declaredValue(declared, Property::FontSize);
    if (given.isInitial)
        size = InheritedStyle().font.size;
    if (const std::optional<FontSizeWord> word = fontSizeWord(given.value)) {
        size = word->isFactor ? size * word->value : word->value;
        return;
    }
    const std::optional<Length> length = lengthFrom(given.value);
    if (!length || length->value < 0.0)
        return;
    // A relative font size refers to the parent's font.
    size = length->unit == LengthUnit::Percent ? size * length->value / 100.0
                                               : userUnits(*length, base, Along::Other);
}

int weightFrom(const QString &value, int parent)
{
    struct Row {
        const char *name;
        int weight;
    };
    constexpr Row rows[] = {{"normal", 400}, {"bold", 700}};
    for (const Row &row : rows) {
        if (value.compare(QLatin1String(row.name), Qt::CaseInsensitive) == 0)
            return row.weight;
    }
    // CSS: bolder and lighter depend on the parent's weight.
    if (value.compare(QLatin1String("bolder"), Qt::CaseInsensitive) == 0)
        return parent < 350 ? 400 : (parent < 550 ? 700 : 900);
    if (value.compare(QLatin1String("lighter"), Qt::CaseInsensitive) == 0)
        return parent < 550 ? 100 : (parent < 750 ? 400 : 700);
    const std::optional<double> number = ratioFrom(value);
    return number && *number >= 1.0 && *number <= 1000.0 ? static_cast<int>(*number) : parent;
}

void setFont(const Declared &declared, const LengthBase &parentBase, TextFont &font)
{
    setFontSize(declared, parentBase, font.size);
    const DeclaredValue families = declaredValue(declared, Property::FontFamily);
    if (families.isInitial || !families.value.isEmpty())
        font.families = families.value;
    const DeclaredValue weight = declaredValue(declared, Property::FontWeight);
    if (weight.isInitial)
        font.weight = 400;
    else if (!weight.value.isEmpty())
        font.weight = weightFrom(weight.value, font.weight);
    const DeclaredValue style = declaredValue(declared, Property::FontStyle);
    if (style.isInitial || !style.value.isEmpty())
        font.isItalic =
            !style.value.isEmpty() && style.value.compare(QLatin1String("normal"), Qt::CaseInsensitive) != 0;

    LengthBase base = parentBase;
    base.fontSize = font.size;
    setLength(declared, Property::LetterSpacing, 0.0, base, font.letterSpacing);
    setLength(declared, Property::WordSpacing, 0.0, base, font.wordSpacing);
}

void setAnchor(const Declared &declared, TextAnchor &anchor)
{
    struct Row {
        const char *name;
        TextAnchor anchor;
    };
    constexpr Row rows[] = {
        {"start", TextAnchor::Start}, {"middle", TextAnchor::Middle}, {"end", TextAnchor::End}};
    const DeclaredValue given = declaredValue(declared, Property::TextAnchor);
    if (given.isInitial)
        anchor = TextAnchor::Start;
    for (const Row &row : rows) {
        if (given.value.compare(QLatin1String(row.name), Qt::CaseInsensitive) == 0)
            anchor = row.anchor;
    }
}

void setVisibility(const Declared &declared, bool &isVisible)
{
    const DeclaredValue given = declaredValue(declared, Property::Visibility);
    const QString word = given.value.toLower();
    if (given.isInitial || word == QLatin1String("visible"))
        isVisible = true;
    else if (word == QLatin1String("hidden") || word == QLatin1String("collapse"))
        isVisible = false;
}

QTransform transformOf(const Declared &declared, const LengthBase &base)
{
    const DeclaredValue given = declaredValue(declared, Property::Transform);
    if (given.value.isEmpty())
        return {};
    const auto syntax =
        declared.isAttribute(Property::Transform) ? TransformSyntax::Attribute : TransformSyntax::Property;
    const std::optional<QTransform> transform = transformFrom(given.value, syntax, base);
    const DeclaredValue originText = declaredValue(declared, Property::TransformOrigin);
    if (!transform || originText.value.isEmpty())
        return transform.value_or(QTransform());
    const QPointF origin = transformOriginFrom(originText.value, base).value_or(QPointF());
    return combined(combined(QTransform::fromTranslate(-origin.x(), -origin.y()), *transform),
                    QTransform::fromTranslate(origin.x(), origin.y()));
}

void setBaselineShift(const Declared &declared, const LengthBase &base, OwnStyle &own)
{
    const QString value = declaredValue(declared, Property::BaselineShift).value;
    // Browsers raise and lower text by these shares.
    if (value.compare(QLatin1String("super"), Qt::CaseInsensitive) == 0)
        own.scriptShift = 0.5;
    else if (value.compare(QLatin1String("sub"), Qt::CaseInsensitive) == 0)
        own.scriptShift = -0.5;
    else if (const std::optional<Length> length = lengthFrom(value))
        own.baselineShift = length->unit == LengthUnit::Percent ? base.fontSize * length->value / 100.0
                                                                : userUnits(*length, base, Along::Other);
}

/// The value of clip-path, mask or filter; empty for none.
QString effectOf(const Declared &declared, Property property)
{
    const QString value = declaredValue(declared, property).value;
    return value.compare(QLatin1String("none"), Qt::CaseInsensitive) == 0 ? QString() : value;
}

void declareAttributes(const QDomElement &element, Declared &declared)
{
    const QDomNamedNodeMap attributes = element.attributes();
    // Qt counts from the first attribute to find the i-th. A few attributes are counted faster than all
    // properties are looked up.
    constexpr int few = 12;
    if (attributes.count() <= few) {
        for (int i = 0; i < attributes.count(); ++i) {
            const QDomNode attribute = attributes.item(i);
            if (const std::optional<Property> property = propertyNamed(attribute.nodeName()))
                declared.offer(*property, attribute.nodeValue().trimmed(), attributePriority);
        }
        return;
    }
    for (std::size_t i = 0; i < propertyCount; ++i) {
        const auto property = static_cast<Property>(i);
        const QString value = element.attribute(propertyName(property));
        if (!value.isEmpty())
            declared.offer(property, value.trimmed(), attributePriority);
    }
}

} // namespace

bool InheritedStyle::showsShapes() const
{
    const auto shows = [this](Paint paint, double opacity) {
        return opacity > 0.0 && (paint == Paint::Shown || (paint == Paint::CurrentColor && hasColor));
    };
    return isVisible && (shows(fill, fillOpacity) || shows(stroke, strokeOpacity));
}

bool declare(const QDomElement &element, StyleSheet &sheet, Declared &declared)
{
    if (!element.hasAttributes())
        return sheet.apply(element, declared);
    declareAttributes(element, declared);
    if (!sheet.apply(element, declared))
        return false;
    const QString style = element.attribute(QStringLiteral("style"));
    if (style.isEmpty())
        return true;
    for (const Declaration &declaration : declarationsFrom(style, Units::Optional)) {
        declared.offer(declaration.property, declaration.value,
                       styleAttributePriority | (declaration.isImportant ? importance : 0));
    }
    return true;
}

ElementStyle styleOf(const Declared &declared, const InheritedStyle &parent, const LengthBase &parentBase)
{
    ElementStyle style;
    InheritedStyle &inherited = style.inherited;
    inherited = parent;
    LengthBase base = parentBase;
    base.fontSize = parent.font.size;
    setFont(declared, base, inherited.font);
    base.fontSize = inherited.font.size;

    const DeclaredValue color = declaredValue(declared, Property::Color);
    if (!color.value.isEmpty() && isValid(Property::Color, color.value)) {
        const Paint paint = paintFrom(color.value).value_or(Paint::Shown);
        if (paint != Paint::CurrentColor) // currentColor means the parent's colour
            inherited.hasColor = paint == Paint::Shown;
    }
    setPaint(declared, Property::Fill, Paint::Shown, inherited.fill);
    setPaint(declared, Property::Stroke, Paint::None, inherited.stroke);
    setRatio(declared, Property::FillOpacity, inherited.fillOpacity);
    setRatio(declared, Property::StrokeOpacity, inherited.strokeOpacity);
    setLength(declared, Property::StrokeWidth, 1.0, base, inherited.strokeWidth);
    setVisibility(declared, inherited.isVisible);
    setMarker(declared, Property::MarkerStart, inherited.markerStart);
    setMarker(declared, Property::MarkerMid, inherited.markerMid);
    setMarker(declared, Property::MarkerEnd, inherited.markerEnd);
    setAnchor(declared, inherited.anchor);
    const DeclaredValue baseline = declaredValue(declared, Property::DominantBaseline);
    if (baseline.isInitial || !baseline.value.isEmpty())
        inherited.dominantBaseline = baseline.value.toLower();

    OwnStyle &own = style.own;
    own.isDisplayed =
        declaredValue(declared, Property::Display).value.compare(QLatin1String("none"), Qt::CaseInsensitive)
        != 0;
    const QString opacity = declaredValue(declared, Property::Opacity).value;
    own.isTransparent = !opacity.isEmpty() && ratioFrom(opacity).value_or(1.0) <= 0.0;
    own.transform = transformOf(declared, base);
    own.clipPath = effectOf(declared, Property::ClipPath);
    own.mask = effectOf(declared, Property::Mask);
    own.filter = effectOf(declared, Property::Filter);
    setBaselineShift(declared, base, own);
    return style;
}

} // namespace svgprep
