// What of a file is drawn only when it is prepared, counted by kind.

#pragma once

#include <QDataStream>
#include <QDomDocument>
#include <QString>

#include <array>
#include <cstddef>

enum class ReadingGap {
    Arc,
    SmoothQuadratic,
    FurtherPoints,
    ClosingSide,
    PathShorthand,
    PointShorthand,
    OtherNumber,
    OtherTransform,
    DistantTransform,
    Use,
    NestedDrawing,
    PrefixedName,
    Style,
    StyleSheet,
    NestedTextRun,
    TextSize,
    TextAlignment,
    RoundCorners,
    Marker,
};

class ReadingGaps {
public:
    void count(ReadingGap kind) { ++m_counts[static_cast<std::size_t>(kind)]; }
    void add(const ReadingGaps &other);

    /// The counts in words: "12 arcs, 3 transforms other than a matrix, 5 uses"; empty when there are none.
    QString text() const;

    friend QDataStream &operator<<(QDataStream &stream, const ReadingGaps &gaps);
    friend QDataStream &operator>>(QDataStream &stream, ReadingGaps &gaps);

private:
    std::array<int, static_cast<std::size_t>(ReadingGap::Marker) + 1> m_counts = {};
};

/// Counts the gaps in the tree of a file.
ReadingGaps readingGapsOf(const QDomDocument &document);
