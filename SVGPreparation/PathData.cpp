// Reads command by command. Letters may be left out, and numbers need separators only where they run
// together.

#include "SVGPreparation/PathData.h"

#include "SVGPreparation/Scanner.h"

#include <array>

namespace svgprep {

namespace {

class PathReader {
public:
    explicit PathReader(QStringView data)
        : m_scanner(data)
    {
    }

    Outline outline()
    {
        while (readCommand()) {}
        return std::move(m_outline);
    }

private:
    using Arguments = std::array<double, 7>;
    using Draw = void (PathReader::*)(const Arguments &arguments);

    struct Command {
        char letter; // absolute
        int arguments;
        Draw draw;
    };

    static const Command commands[];

    bool readCommand();
    bool readArguments(const Command &command, Arguments &values);

    void moveTo(const Arguments &v) { beginAt(point(v[0], v[1])); }
    void lineTo(const Arguments &v) { subpath().lineTo(point(v[0], v[1])); }
    void horizontalTo(const Arguments &v) { subpath().lineTo({point(v[0], 0.0).x(), m_current.y()}); }
    void verticalTo(const Arguments &v) { subpath().lineTo({m_current.x(), point(0.0, v[0]).y()}); }
    void cubicTo(const Arguments &v) { cubic(point(v[0], v[1]), point(v[2], v[3]), point(v[4], v[5])); }
    void smoothCubicTo(const Arguments &v)
    {
        cubic(m_previous == 'C' || m_previous == 'S' ? reflectedControl() : m_current, point(v[0], v[1]),
              point(v[2], v[3]));
    }
    void quadraticTo(const Arguments &v) { quadratic(point(v[0], v[1]), point(v[2], v[3])); }
    void smoothQuadraticTo(const Arguments &v)
    {
        quadratic(m_previous == 'Q' || m_previous == 'T' ? reflectedControl() : m_current, point(v[0], v[1]));
    }
    void arcTo(const Arguments &v)
    {
        subpath().arcTo(v[0], v[1], v[2], v[3] != 0.0, v[4] != 0.0, point(v[5], v[6]));
    }
    void close(const Arguments & /*values*/)
    {
        subpath().isClosed = true;
        m_current = m_outline.back().start;
        m_needsSubpath = true;
    }

    void cubic(QPointF control1, QPointF control2, QPointF end)
    {
        subpath().curveTo(control1, control2, end);
        m_lastControl = control2;
    }
    void quadratic(QPointF control, QPointF end)
    {
        // Both control points of the cubic lie two thirds of the way to that of the quadratic.
        subpath().curveTo(m_current + (control - m_current) * 2.0 / 3.0, end + (control - end) * 2.0 / 3.0,
                          end);
        m_lastControl = control;
    }

    QPointF point(double x, double y) const
    {
        return m_isRelative ? QPointF(m_current.x() + x, m_current.y() + y) : QPointF(x, y);
    }
    QPointF reflectedControl() const { return 2.0 * m_current - m_lastControl; }

    void beginAt(QPointF start)
    {
        m_outline.emplace_back();
        m_outline.back().start = start;
        m_needsSubpath = false;
    }
    /// The subpath to draw on. After a Z a new one begins where the closed one began.
    Subpath &subpath()
    {
        if (m_needsSubpath)
            beginAt(m_current);
        return m_outline.back();
    }

    Scanner m_scanner;
    Outline m_outline;
    QPointF m_current;
    QPointF m_lastControl;
    char m_previous = 0; // absolute letter of the previous command
    bool m_isRelative = false;
    bool m_needsSubpath = false;
};

const PathReader::Command PathReader::commands[] = {
    {'M', 2, &PathReader::moveTo},       {'L', 2, &PathReader::lineTo},
    {'H', 1, &PathReader::horizontalTo}, {'V', 1, &PathReader::verticalTo},
    {'C', 6, &PathReader::cubicTo},      {'S', 4, &PathReader::smoothCubicTo},
    {'Q', 4, &PathReader::quadraticTo},  {'T', 2, &PathReader::smoothQuadraticTo},
    {'A', 7, &PathReader::arcTo},        {'Z', 0, &PathReader::close},
};

/// Reads one command with all its repetitions. False at the end and at an error.
bool PathReader::readCommand()
{
    m_scanner.skipBlanks();
    const QChar letter = m_scanner.next();
    const char absolute = letter.toUpper().toLatin1();
    for (const Command &command : commands) {
        if (command.letter != absolute || letter.unicode() > 0x7f)
            continue;
        if (m_outline.empty() && absolute != 'M')
            return false;
        m_scanner.advance();
        m_isRelative = letter.isLower();
        const Command *repeated = &command;
        m_scanner.skipBlanks();
        do {
            Arguments values = {};
            if (!readArguments(*repeated, values))
                return false;
            (this->*repeated->draw)(values);
            if (repeated->arguments > 0)
                m_current = m_outline.back().end();
            m_previous = repeated->letter;
            if (repeated->letter == 'M')
                repeated = &commands[1]; // the further points of a move are lines
            m_scanner.skipSeparator();
        } while (repeated->arguments > 0 && !m_scanner.atEnd() && !m_scanner.next().isLetter());
        return true;
    }
    return false;
}

bool PathReader::readArguments(const Command &command, Arguments &values)
{
    for (int i = 0; i < command.arguments; ++i) {
        if (i > 0)
            m_scanner.skipSeparator();
        std::optional<double> value;
        if (command.letter == 'A' && (i == 3 || i == 4)) {
            const std::optional<bool> flag = m_scanner.flag();
            if (flag)
                value = *flag ? 1.0 : 0.0;
        } else {
            value = m_scanner.number();
        }
        if (!value)
            return false;
        values[static_cast<std::size_t>(i)] = *value;
    }
    return true;
}

} // namespace

Outline outlineFromPathData(QStringView data)
{
    return PathReader(data).outline();
}

} // namespace svgprep
