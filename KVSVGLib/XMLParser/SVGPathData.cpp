// Reads path data, command by command, into straight runs and curves. Each command makes a record of its own
// that starts at the current point.

#include "SVGDocument.h"
#include "SVGElement.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace {

using Numbers = std::vector<double>;

constexpr std::array<bool, 128> commandLetterTable()
{
    std::array<bool, 128> table = {};
    for (const char letter : {'Z', 'L', 'M', 'H', 'V', 'C', 'S', 'Q', 'T', 'A', //
                              'z', 'l', 'm', 'h', 'v', 'c', 's', 'q', 't', 'a'})
        table[static_cast<unsigned char>(letter)] = true;
    return table;
}

bool isCommandLetter(QChar character)
{
    constexpr std::array<bool, 128> letters = commandLetterTable();
    return character.unicode() < letters.size() && letters[character.unicode()];
}

/// Where the command that starts at `start` ends: at the next command letter, or at the end of `data`.
int commandEnd(const QString &data, int start)
{
    return static_cast<int>(std::find_if(data.cbegin() + start + 1, data.cend(), isCommandLetter)
                            - data.cbegin());
}

/// The numbers in `text`. Blanks and commas separate them and a minus sign starts a new one, so "1e-5" is
/// read as "1e", which is no number and counts as 0, and "-5".
void readNumbers(const QStringRef &text, Numbers &numbers)
{
    const auto finish = [&](int start, int end) {
        if (start < end)
            numbers.push_back(text.mid(start, end - start).toDouble());
    };
    int start = 0;
    for (int i = 0; i < text.size(); ++i) {
        const QChar character = text.at(i);
        const bool separator = character == QLatin1Char(' ') || character == QLatin1Char(',');
        if (!separator && character != QLatin1Char('-'))
            continue;
        finish(start, i);
        start = separator ? i + 1 : i;
    }
    finish(start, text.size());
}

/// The number at `index`; 0 where the command gives none, before the first as well as after the last.
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

/// Where the two inner control points of a curve come from. `Given` reads both, and the end point after them.
/// The other two read one and take the end point from the last two numbers, whatever stands between.
enum class Inner {
    Given,
    Reflected, // the first one is the last control point, mirrored at the current point
    Doubled,   // the one given serves twice
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
    const Command *found =
        std::find_if(std::begin(commands), std::end(commands),
                     [letter](const Command &command) { return command.letter == letter; });
    return found == std::end(commands) ? nullptr : found;
}

/// The last index among `count` numbers at which `command` reads a point. H and h always read one.
int lastPointIndex(const StraightCommand &command, int count)
{
    if (command.firstOnly)
        return 0;
    return command.sets == Axes::XY ? count - 2 : count - 1;
}

/// Where `command` moves the pen from `current`, by the number or the two numbers at `index`.
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

struct Segment {
    PathPoint firstControl;
    PathPoint secondControl;
    PathPoint end;
};

/// The segment of `command` whose numbers start at `index`, drawn from `current`.
Segment segmentAt(const CurveCommand &command, const Numbers &numbers, int index, PathPoint current,
                  PathPoint lastControl)
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

void addPoint(SVGPolylineRecord &run, PathPoint point)
{
    run.addValue(point.x);
    run.addValue(point.y);
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
    const QDomNodeList paths = m_document.elementsByTagName(QStringLiteral("path"));
    const int count = paths.size();
    for (int i = 0; i < count; ++i)
        addPath(paths.item(i).toElement());
}

void SVGDocument::addPath(const QDomElement &path)
{
    // Only the direct parent counts: a path in a group in a clipPath is drawn.
    if (path.parentNode().nodeName() == QLatin1String("clipPath"))
        return;

    const QString data = path.attribute(QStringLiteral("d"));
    const QString transform = parentTransform(path); // a path's own transform is never asked for
    for (int start = 0; start < data.size();) {
        const int end = commandEnd(data, start);
        addCommand(data.midRef(start, end - start), transform);
        start = end;
    }
}

void SVGDocument::addCommand(const QStringRef &command, const QString &transform)
{
    const char letter = command.at(0).toLatin1();
    m_pathNumbers.clear();
    readNumbers(command.mid(1), m_pathNumbers);
    if (find(curveCommands, letter))
        addCurveCommand(m_pathNumbers, letter, transform);
    else
        addStraightCommand(m_pathNumbers, letter, transform);
}

void SVGDocument::addStraightCommand(const std::vector<double> &numbers, char letter,
                                     const QString &transform)
{
    SVGPolylineRecord run;
    run.setTransform(transform);
    if (letter == 'Z' || letter == 'z') {
        // The pen stays where it is; the record without points tells the host of the closing.
        m_pathClosed = true;
        m_pathPolylines.append(run);
        return;
    }
    const StraightCommand *command = find(straightCommands, letter);
    if (!command)
        return;

    addPoint(run, m_currentPoint);
    const int last = lastPointIndex(*command, static_cast<int>(numbers.size()));
    for (int i = 0; i <= last; i += command->step) {
        m_currentPoint = movedPen(*command, numbers, i, m_currentPoint);
        addPoint(run, m_currentPoint);
    }
    if (command->drawn)
        m_pathPolylines.append(run);
}

void SVGDocument::addCurveCommand(const std::vector<double> &numbers, char letter, const QString &transform)
{
    const CurveCommand *command = find(curveCommands, letter);
    if (!command)
        return;

    SVGSplineRecord curve;
    curve.setTransform(transform);
    addFitPoint(curve, m_currentPoint);
    const int segments = command->repeats ? static_cast<int>(numbers.size()) / numbersPerSegment : 1;
    for (int i = 0; i < segments; ++i) {
        const Segment segment =
            segmentAt(*command, numbers, i * numbersPerSegment, m_currentPoint, m_lastControlPoint);
        addControlPoint(curve, segment.firstControl);
        addControlPoint(curve, segment.secondControl);
        addFitPoint(curve, segment.end);
        if (command->inner != Inner::Doubled)
            m_lastControlPoint = segment.secondControl;
        m_currentPoint = segment.end;
    }
    m_pathSplines.append(curve);
}
