// Reads path data, command by command, into straight runs and curves. Each command makes a record of its own
// that starts at the current point.

#include "SVGDocument.h"
#include "SVGElement.h"

#include <array>
#include <utility>

namespace {

using Numbers = std::vector<double>;

enum class Kind : char { OfNumber, Separator, Minus, Letter };

constexpr std::array<Kind, 128> kindTable()
{
    std::array<Kind, 128> table = {};
    for (const char letter : {'Z', 'L', 'M', 'H', 'V', 'C', 'S', 'Q', 'T', 'A', //
                              'z', 'l', 'm', 'h', 'v', 'c', 's', 'q', 't', 'a'})
        table[static_cast<unsigned char>(letter)] = Kind::Letter;
    table[','] = Kind::Separator;
    table[' '] = Kind::Separator;
    table['-'] = Kind::Minus;
    return table;
}

Kind kindOf(QChar character)
{
    static constexpr std::array<Kind, 128> kinds = kindTable();
    return character.unicode() < kinds.size() ? kinds[character.unicode()] : Kind::OfNumber;
}

/// Reads the numbers from `start` up to the next command letter and returns the position of the letter.
/// Blanks and commas separate numbers, and a minus sign starts a new one: "1e-5" is "1e", no number and so 0,
/// and then "-5".
int readNumbers(const QString &data, int start, Numbers &numbers)
{
    numbers.clear();
    int position = start;
    for (;; ++position) {
        const Kind kind = position == data.size() ? Kind::Letter : kindOf(data.at(position));
        if (kind == Kind::OfNumber)
            continue;
        if (start < position)
            numbers.push_back(svgread::plainNumber(QStringRef(&data, start, position - start)));
        if (kind == Kind::Letter)
            return position;
        start = kind == Kind::Separator ? position + 1 : position;
    }
}

/// The number at `index`; 0 before the first number and after the last.
double numberAt(const Numbers &numbers, int index)
{
    const bool given = index >= 0 && index < static_cast<int>(numbers.size());
    return given ? numbers[static_cast<std::size_t>(index)] : 0.0;
}

enum class Axes { X, Y, XY };

struct StraightCommand {
    char letter;
    Axes sets;
    bool relative;
    bool drawn;
    int step;
    bool firstOnly;
};

constexpr bool first = true;
constexpr bool every = false;

/// The straight commands. `step` is how far to advance after a point: M takes its numbers in pairs, while m,
/// L and l pair every number with the next, so "L 1 2 3 4" is (1,2) (2,3) (3,4). H reads its first number
/// only, V all of them.
// clang-format off
constexpr StraightCommand straightCommands[] = {
    // letter sets     relative drawn  step points
    {'M',     Axes::XY, false,  false, 2,   every},
    {'m',     Axes::XY, true,   false, 1,   every},
    {'L',     Axes::XY, false,  true,  1,   every},
    {'l',     Axes::XY, true,   true,  1,   every},
    {'H',     Axes::X,  false,  true,  1,   first},
    {'h',     Axes::X,  true,   true,  1,   first},
    {'V',     Axes::Y,  false,  true,  1,   every},
    {'v',     Axes::Y,  true,   true,  1,   every},
};
// clang-format on

/// The source of the two inner control points of a curve. `Given` reads both and then the end point. The
/// other two read one point and take the end point from the last two numbers, whatever stands between.
enum class Inner {
    Given,
    Reflected, // the first one mirrors the last control point at the current point
    Doubled,   // the given one serves twice
};

struct CurveCommand {
    char letter;
    bool relative;
    bool repeats;
    Inner inner;
};

/// The curve commands. Only C repeats. A quadratic curve is not raised exactly to a cubic: its control point
/// serves as both inner ones.
// clang-format off
constexpr CurveCommand curveCommands[] = {
    // letter relative repeats inner control points
    {'C',     false,   true,   Inner::Given},
    {'c',     true,    false,  Inner::Given},
    {'S',     false,   false,  Inner::Reflected},
    {'s',     true,    false,  Inner::Reflected},
    {'Q',     false,   false,  Inner::Doubled},
    {'q',     true,    false,  Inner::Doubled},
};
// clang-format on

constexpr int numbersPerSegment = 6;

template <class Command, std::size_t count>
const Command *find(const Command (&commands)[count], char letter)
{
    for (const Command &command : commands) {
        if (command.letter == letter)
            return &command;
    }
    return nullptr;
}

/// The number of pen moves of `command` when `count` numbers are given. H and h always make one.
int moveCount(const StraightCommand &command, int count)
{
    if (command.firstOnly)
        return 1;
    if (command.sets != Axes::XY)
        return count;
    return count < 2 ? 0 : (count - 2) / command.step + 1;
}

/// The pen after `command` moves it from `current` by the one or two numbers at `index`.
PathPoint movedPen(const StraightCommand &command, const Numbers &numbers, int index, PathPoint current)
{
    const auto moved = [&](double from, int at) {
        const double value = numberAt(numbers, at);
        return command.relative ? from + value : value;
    };
    if (command.sets != Axes::Y)
        current.x = moved(current.x, index);
    if (command.sets != Axes::X)
        current.y = moved(current.y, command.sets == Axes::XY ? index + 1 : index);
    return current;
}

/// The two inner control points and the end of a segment of `command` from `current`. Its numbers start at
/// `index`.
std::array<PathPoint, 3> segmentAt(const CurveCommand &command, const Numbers &numbers, int index,
                                   PathPoint current, PathPoint lastControl)
{
    const auto pointAt = [&](int at) {
        const double x = numberAt(numbers, at);
        const double y = numberAt(numbers, at + 1);
        return command.relative ? PathPoint{current.x + x, current.y + y} : PathPoint{x, y};
    };
    if (command.inner == Inner::Given)
        return {pointAt(index), pointAt(index + 2), pointAt(index + 4)};

    const PathPoint given = pointAt(0);
    const PathPoint end = pointAt(static_cast<int>(numbers.size()) - 2);
    if (command.inner == Inner::Doubled)
        return {given, given, end};
    const PathPoint reflection = {current.x + (current.x - lastControl.x),
                                  current.y + (current.y - lastControl.y)};
    return {reflection, given, end};
}

void addFitPoint(SVGSplineRecord &curve, PathPoint point)
{
    curve.addFitPointValue(point.x);
    curve.addFitPointValue(point.y);
}

void addControlPoint(SVGSplineRecord &curve, PathPoint point)
{
    curve.addControlPointValue(point.x);
    curve.addControlPointValue(point.y);
}

} // namespace

void SVGDocument::parsePathData()
{
    for (const QDomElement &path : elements("path"))
        addPath(path);
}

void SVGDocument::addPath(const QDomElement &path)
{
    // Only the direct parent counts: a path in a group in a clipPath is drawn.
    if (path.parentNode().nodeName() == QLatin1String("clipPath"))
        return;

    const QString data = path.attribute(QStringLiteral("d"));
    const QString transform = svgread::parentTransform(path); // a path's own transform is never read
    for (int position = 0; position < data.size();) {
        // Any text before the first letter counts as an unknown command.
        const char letter = data.at(position).toLatin1();
        position = readNumbers(data, position + 1, m_pathNumbers);
        if (find(curveCommands, letter))
            addCurveCommand(m_pathNumbers, letter, transform);
        else
            addStraightCommand(m_pathNumbers, letter, transform);
    }
}

void SVGDocument::addStraightCommand(const Numbers &numbers, char letter, const QString &transform)
{
    if (letter == 'Z' || letter == 'z') {
        // The record has no points, and the pen does not return to the start of the run.
        m_pathClosed = true;
        m_pathPolylines.append(SVGPolylineRecord());
        m_pathPolylines.last().setTransform(transform);
        return;
    }
    const StraightCommand *command = find(straightCommands, letter);
    if (!command)
        return;

    const int moves = moveCount(*command, static_cast<int>(numbers.size()));
    kvDoubleArray points;
    points.setSize(2 * (moves + 1));
    for (int i = 0; i <= moves; ++i) {
        if (i > 0)
            m_currentPoint = movedPen(*command, numbers, (i - 1) * command->step, m_currentPoint);
        points[2 * i] = m_currentPoint.x;
        points[2 * i + 1] = m_currentPoint.y;
    }
    if (!command->drawn)
        return;
    m_pathPolylines.append(SVGPolylineRecord());
    m_pathPolylines.last().setTransform(transform);
    m_pathPolylines.last().setValues(std::move(points));
}

void SVGDocument::addCurveCommand(const Numbers &numbers, char letter, const QString &transform)
{
    const CurveCommand *command = find(curveCommands, letter);
    if (!command)
        return;

    m_pathSplines.append(SVGSplineRecord());
    SVGSplineRecord &curve = m_pathSplines.last();
    curve.setTransform(transform);
    addFitPoint(curve, m_currentPoint);
    const int segments = command->repeats ? static_cast<int>(numbers.size()) / numbersPerSegment : 1;
    for (int i = 0; i < segments; ++i) {
        const auto [firstControl, secondControl, end] =
            segmentAt(*command, numbers, i * numbersPerSegment, m_currentPoint, m_lastControlPoint);
        addControlPoint(curve, firstControl);
        addControlPoint(curve, secondControl);
        addFitPoint(curve, end);
        if (command->inner != Inner::Doubled)
            m_lastControlPoint = secondControl;
        m_currentPoint = end;
    }
}
