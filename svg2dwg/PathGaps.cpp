// Splits numbers as the reader does, at blanks, commas and minus signs, and knows how many it takes.

#include "PathGaps.h"

#include <QPointF>

#include <algorithm>
#include <iterator>
#include <limits>
#include <vector>

namespace {

/// A path command by its upper case letter: how many numbers make a piece, how many pieces the reader takes,
/// and the gap that further pieces are.
struct PathCommand {
    char letter;
    std::size_t pieceSize;
    std::size_t piecesRead;
    ReadingGap gap;
};

constexpr std::size_t all = std::numeric_limits<std::size_t>::max();

// clang-format off
constexpr PathCommand pathCommands[] = {
    // letter size read gap
    {'M',     2,   1,   ReadingGap::FurtherPoints},
    {'L',     2,   1,   ReadingGap::FurtherPoints},
    {'H',     1,   1,   ReadingGap::FurtherPoints},
    {'V',     1,   all, ReadingGap::FurtherPoints},
    {'C',     6,   1,   ReadingGap::FurtherPoints},
    {'S',     4,   1,   ReadingGap::FurtherPoints},
    {'Q',     4,   1,   ReadingGap::FurtherPoints},
    {'T',     2,   0,   ReadingGap::SmoothQuadratic},
    {'A',     7,   0,   ReadingGap::Arc},
};
// clang-format on

using Numbers = std::vector<double>;

/// Reads the numbers from `start` up to the next command letter and returns its position. A number that the
/// reader takes for 0 is a gap.
int readNumbers(const QString &data, int start, Numbers &numbers, ReadingGaps &gaps)
{
    static const QString letters = QStringLiteral("MmLlHhVvCcSsQqTtAaZz");
    static const QString separators = QStringLiteral(" ,-");
    numbers.clear();
    for (int position = start;; ++position) {
        const bool isEnd = position == data.size() || letters.contains(data.at(position));
        if (!isEnd && !separators.contains(data.at(position)))
            continue;
        if (start < position) {
            bool isPlain = false;
            numbers.push_back(data.midRef(start, position - start).toDouble(&isPlain));
            if (!isPlain)
                gaps.count(ReadingGap::PathShorthand);
        }
        if (isEnd)
            return position;
        start = data.at(position) == QLatin1Char('-') ? position : position + 1;
    }
}

/// Follows the pen, to tell whether a path ends where it began.
struct Pen {
    QPointF place;
    QPointF start; // of the subpath

    void move(const PathCommand &command, bool relative, const Numbers &numbers);
};

void Pen::move(const PathCommand &command, bool relative, const Numbers &numbers)
{
    for (std::size_t end = command.pieceSize; end <= numbers.size(); end += command.pieceSize) {
        const QPointF origin = relative ? place : QPointF();
        const double last = numbers[end - 1];
        if (command.letter == 'H')
            place.setX(origin.x() + last);
        else if (command.letter == 'V')
            place.setY(origin.y() + last);
        else
            place = origin + QPointF(numbers[end - 2], last);
        if (command.letter == 'M' && end == command.pieceSize)
            start = place;
    }
}

bool isApart(QPointF one, QPointF other)
{
    constexpr double shortestSide = 1e-6; // user units; sums of relative numbers differ by less
    return (one - other).manhattanLength() > shortestSide;
}

} // namespace

void countPathGaps(const QString &data, ReadingGaps &gaps)
{
    Numbers numbers;
    Pen pen;
    for (int position = 0; position < data.size();) {
        const QChar letter = data.at(position);
        const QChar upper = letter.toUpper();
        position = readNumbers(data, position + 1, numbers, gaps);
        if (upper == QLatin1Char('Z')) {
            if (isApart(pen.place, pen.start))
                gaps.count(ReadingGap::ClosingSide);
            pen.place = pen.start;
        }
        const auto *command =
            std::find_if(std::begin(pathCommands), std::end(pathCommands),
                         [upper](const PathCommand &row) { return upper == QLatin1Char(row.letter); });
        if (command == std::end(pathCommands))
            continue;
        // A command that the reader skips counts even when its numbers run together.
        const bool isSkipped = command->piecesRead == 0 && !numbers.empty();
        if (isSkipped || numbers.size() / command->pieceSize > command->piecesRead)
            gaps.count(command->gap);
        pen.move(*command, letter != upper, numbers);
    }
}
