// Walks along the characters of an attribute or a style value.

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
    /// Scans `text`; it must outlive the scanner.
    explicit Scanner(QStringView text)
        : m_position(text.begin())
        , m_end(text.end())
    {
    }

    bool atEnd() const { return m_position == m_end; }
    /// The next character; null at the end.
    QChar next() const { return atEnd() ? QChar() : *m_position; }
    void advance() { ++m_position; }

    void skipBlanks();
    /// Skips white space with at most one comma in it.
    void skipSeparator();
    /// Skips `character` if it comes next, and tells whether it does.
    bool take(char character);

    /// Reads a number by SVG's grammar. Numbers need no separator where the next one is clear: "1.5.5-2" is
    /// three. No value, and nothing is skipped, when there is none. A number too large for a double is
    /// infinite.
    std::optional<double> number();
    /// Reads the flag of an arc: one digit, 0 or 1.
    std::optional<bool> flag();
    /// Reads letters, digits, "-" and "_"; empty when another character comes next.
    QStringView word();
    /// Reads up to `character` and skips it, or reads to the end.
    QStringView until(char character);
    /// Reads up to the next white space.
    QStringView untilBlank();
    /// The text that is left.
    QStringView rest() const { return {m_position, m_end}; }

private:
    const QChar *m_position;
    const QChar *m_end;
};

} // namespace svgprep
