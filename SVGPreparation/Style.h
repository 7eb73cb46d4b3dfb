// The style of an element: values that it inherits and values of its own.

#pragma once

#include "SVGPreparation/Length.h"
#include "SVGPreparation/Paint.h"
#include "SVGPreparation/StyleProperty.h"

#include <QDomElement>
#include <QString>
#include <QTransform>

namespace svgprep {

class StyleSheet;

enum class TextAnchor { Start, Middle, End };

/// The font of a text. Texts of the same font and baseline can be one run.
struct TextFont {
    QString families;   ///< as the property lists them
    double size = 16.0; ///< user units
    int weight = 400;
    bool isItalic = false;
    double letterSpacing = 0.0; ///< user units
    double wordSpacing = 0.0;   ///< user units

    bool operator==(const TextFont &other) const
    {
        return families == other.families && size == other.size && weight == other.weight
            && isItalic == other.isItalic && letterSpacing == other.letterSpacing
            && wordSpacing == other.wordSpacing;
    }
};

/// The values that an element hands down to its children.
struct InheritedStyle {
    Paint fill = Paint::Shown;
    Paint stroke = Paint::None;
    bool hasColor = true; ///< the colour of "currentColor" is visible
    double fillOpacity = 1.0;
    double strokeOpacity = 1.0;
    double strokeWidth = 1.0; ///< user units
    bool isVisible = true;
    QString markerStart; ///< ids, empty for none
    QString markerMid;
    QString markerEnd;
    TextFont font;
    TextAnchor anchor = TextAnchor::Start;
    QString dominantBaseline;

    /// Whether fill or stroke of a shape is visible. The width does not matter: programs write hairlines with
    /// 0.
    bool showsShapes() const;
};

/// The values of one element alone.
struct OwnStyle {
    bool isDisplayed = true;
    bool isTransparent = false;
    QTransform transform; ///< to the parent's user units
    QString clipPath;     ///< the property's value, empty for none
    QString mask;
    QString filter;
    double baselineShift = 0.0; ///< upwards, user units
    double scriptShift = 0.0;   ///< upwards, heights of the font
};

struct ElementStyle {
    InheritedStyle inherited;
    OwnStyle own;
};

/// Offers to `declared` the values that attributes, style sheets and the style attribute give to `element`.
/// False when the style sheets take too long.
bool declare(const QDomElement &element, StyleSheet &sheet, Declared &declared);

/// The style of an element with these declarations within an element of the style `parent`. `base` gives the
/// viewport; the styles give the font sizes.
ElementStyle styleOf(const Declared &declared, const InheritedStyle &parent, const LengthBase &base);

} // namespace svgprep
