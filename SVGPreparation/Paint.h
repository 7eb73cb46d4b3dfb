// Values of style properties: what of a paint, a ratio or a size matters to an outline.

#pragma once

#include <QString>
#include <QStringView>

#include <optional>

namespace svgprep {

/// Whether a paint is to be seen. Which colour it has does not matter.
enum class Paint { None, Shown, CurrentColor };

/// Reads a fill or stroke; a colour without any opacity is None. Nothing when browsers would not take it.
std::optional<Paint> paintFrom(QStringView value);

/// Reads a number or a percentage, 1 for "100%".
std::optional<double> ratioFrom(QStringView value);

/// What one of the words for font sizes means: a size in pixels, or a factor to the parent's.
struct FontSizeWord {
    double value = 1.0;
    bool isFactor = false;
};
std::optional<FontSizeWord> fontSizeWord(QStringView value);

/// Whether `value` is "inherit", "initial", "unset", "revert" or "revert-layer".
bool isGlobalKeyword(QStringView value);

/// The id in "url(#id)", "url('#id')" and the like; empty when `value` is no reference within the file.
QString referencedId(QStringView value);

} // namespace svgprep
