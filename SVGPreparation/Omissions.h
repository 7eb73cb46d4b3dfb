// What a plain SVG lacks of the file that it was made of, counted by kind.

#pragma once

#include <QString>

#include <array>

namespace svgprep {

/// What is not drawn at all, then what is drawn whole although a browser shows a part of it or changes it.
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

    /// One line for people, "not drawn: 2 pictures; drawn whole: 1 clipped shape"; empty when nothing is
    /// missing.
    QString text() const;

private:
    std::array<int, static_cast<std::size_t>(Omission::FilteredShape) + 1> m_counts = {};
};

} // namespace svgprep
