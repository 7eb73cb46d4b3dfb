// The properties that decide whether and where something is visible, and the priorities of their
// declarations.

#pragma once

#include <QString>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace svgprep {

enum class Property {
    Fill,
    Stroke,
    Color,
    FillOpacity,
    StrokeOpacity,
    Opacity,
    Display,
    Visibility,
    StrokeWidth,
    Transform,
    TransformOrigin,
    MarkerStart,
    MarkerMid,
    MarkerEnd,
    ClipPath,
    Mask,
    Filter,
    FontSize,
    FontFamily,
    FontWeight,
    FontStyle,
    LetterSpacing,
    WordSpacing,
    TextAnchor,
    DominantBaseline,
    BaselineShift,
    Count,
};

constexpr auto propertyCount = static_cast<std::size_t>(Property::Count);

struct Declaration {
    Property property = Property::Fill;
    QString value;
    bool isImportant = false;
};

/// The name of a property, as an attribute and in style sheets.
const QString &propertyName(Property property);
/// The property with the lower-case name `name`.
std::optional<Property> propertyNamed(const QString &name);

/// Style sheets need units where style attributes do not.
enum class Units { Needed, Optional };

/// Whether browsers accept `value`, without white space at its ends. They ignore other values, so that an
/// earlier declaration counts.
bool isValid(Property property, const QString &value, Units units = Units::Needed);

/// Priorities from low to high: presentation attributes, rules by specificity and order, the style attribute;
/// then important ones in the same order.
constexpr std::uint64_t attributePriority = 0;
constexpr std::uint64_t styleAttributePriority = std::uint64_t(1) << 62;
constexpr std::uint64_t importance = std::uint64_t(1) << 63;

/// The priority of a rule's declaration. `specificity` counts ids, classes and tags, ten bits each. `order`
/// tells declarations of equal specificity apart.
constexpr std::uint64_t rulePriority(std::uint32_t specificity, std::uint32_t order)
{
    return (std::uint64_t(1) << 61) | (std::uint64_t(specificity) << 31) | order;
}

/// The values that one element is given, for each property the one of highest priority so far.
class Declared {
public:
    /// Offers a valid value. Of two with the same priority the later one counts.
    void offer(Property property, const QString &value, std::uint64_t priority)
    {
        const auto index = static_cast<std::size_t>(property);
        if (priority < m_priorities[index])
            return;
        m_priorities[index] = priority;
        m_values[index] = value;
    }

    /// The value that counts; null when none was offered.
    const QString &operator[](Property property) const
    {
        return m_values[static_cast<std::size_t>(property)];
    }
    /// Whether a presentation attribute gives it; such a value needs no units.
    bool isAttribute(Property property) const
    {
        return m_priorities[static_cast<std::size_t>(property)] == attributePriority;
    }

private:
    std::array<QString, propertyCount> m_values;
    std::array<std::uint64_t, propertyCount> m_priorities = {};
};

} // namespace svgprep
