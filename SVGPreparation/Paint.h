// Values of style properties: the part of a paint, a ratio or a size that matters to an outline.

#pragma once

#include <QString>
#include <QStringView>

#include <optional>

namespace svgprep {

/// Whether a paint is visible; its colour does not matter.
enum class Paint { None, Shown, CurrentColor };

/// Reads a fill or stroke. A colour without any opacity is None. No value when browsers reject the text.
std::optional<Paint> paintFrom(QStringView value);

/// Reads a number or a percentage: "100%" is 1.
std::optional<double> ratioFrom(QStringView value);

/// The meaning of a word for a font size: pixels, or a factor to the parent's size.
struct FontSizeWord {
    double value = 1.0;
    bool isFactor = false;
};
std::optional<FontSizeWord> fontSizeWord(QStringView value);

/// Whether `value` is "inherit", "initial", "unset", "revert" or "revert-layer".
bool isGlobalKeyword(QStringView value);

/// The id in "url(#id)", "url('#id')" and the like; empty when `value` refers to nothing within the file.
QString referencedId(QStringView value);

} // namespace svgprep
