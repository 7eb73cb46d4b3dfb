// The style of an element: what it inherits and what it is given.

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

/// The font of a text; two texts of the same font and baseline can be one run.
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

/// What an element hands down to its children.
struct InheritedStyle {
    Paint fill = Paint::Shown;
    Paint stroke = Paint::None;
    bool hasColor = true; ///< what "currentColor" stands for is to be seen
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

    /// Whether fill or stroke of a shape is to be seen. Width does not matter: programs write hairlines with
    /// 0.
    bool showsShapes() const;
};

/// What concerns one element alone.
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

/// What attributes, style sheets and the style attribute declare for `element`. False when the sheets ask too
/// much.
bool declare(const QDomElement &element, StyleSheet &sheet, Declared &declared);

/// The style of an element with these declarations inside of one with the style `parent`. `base` has the
/// viewport; font sizes it takes from the styles.
ElementStyle styleOf(const Declared &declared, const InheritedStyle &parent, const LengthBase &base);

} // namespace svgprep
