// Walks over the characters of one attribute or style value.

#pragma once

#include <QStringView>

#include <optional>

namespace svgprep {

/// SVG's white space: blank, tab, line feed, carriage return, form feed.
bool isBlank(QChar character);

/// `text` without white space at its ends.
QStringView withoutBlanks(QStringView text);

class Scanner {
public:
    /// Scans `text`, which must outlive the scanner.
    explicit Scanner(QStringView text)
        : m_position(text.begin())
        , m_end(text.end())
    {
    }

    bool atEnd() const { return m_position == m_end; }
    /// The next character, a null one at the end.
    QChar next() const { return atEnd() ? QChar() : *m_position; }
    void advance() { ++m_position; }

    void skipBlanks();
    /// Skips white space with at most one comma in it.
    void skipSeparator();
    /// Skips `character` when it comes next.
    bool take(char character);

    /// Reads a number by SVG's grammar, which needs no separator where the next number is told apart:
    /// "1.5.5-2" is three. Nothing is skipped when there is none. A number too large for a double is
    /// infinite.
    std::optional<double> number();
    /// Reads a flag of an arc, one digit, 0 or 1.
    std::optional<bool> flag();
    /// Reads letters, digits, "-" and "_"; empty when something else comes next.
    QStringView word();
    /// Reads up to `character`, which is skipped, or to the end.
    QStringView until(char character);
    /// Reads up to the next white space.
    QStringView untilBlank();
    /// All that is left.
    QStringView rest() const { return {m_position, m_end}; }

private:
    const QChar *m_position;
    const QChar *m_end;
};

} // namespace svgprep
