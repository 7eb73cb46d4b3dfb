// Counts by kind what a plain SVG lacks of its source file.

#pragma once

#include <QString>

#include <array>
#include <cstddef>

namespace svgprep {

/// The kinds that are not drawn at all come first. The others are drawn whole although a browser shows a part
/// of them or changes them.
enum class Omission {
    Picture,
    TextOnPath,
    OtherFile,
    ForeignObject,
    Animation,
    Script,
    ClippedShape,
    MaskedShape,
    FilteredShape,
};

class Omissions {
public:
    void count(Omission kind) { ++m_counts[static_cast<std::size_t>(kind)]; }
    int of(Omission kind) const { return m_counts[static_cast<std::size_t>(kind)]; }

    /// One line for the user, "not drawn: 2 pictures; drawn whole: 1 clipped shape"; empty when nothing is
    /// missing.
    QString text() const;

private:
    std::array<int, static_cast<std::size_t>(Omission::FilteredShape) + 1> m_counts = {};
};

} // namespace svgprep
