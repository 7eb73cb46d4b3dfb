// The letters of notes: their outlines and how much room they take.

#pragma once

#include <QFont>
#include <QHash>
#include <QPainterPath>
#include <QRawFont>
#include <QString>

namespace refhost {

/// Sets one-line texts in the system's sans serif font. Lengths are in letter heights, the height of a
/// capital letter as on a technical drawing. It remembers its texts, so one object should serve a whole
/// drawing. Needs a QGuiApplication.
class Lettering {
public:
    Lettering();

    /// How far the line of `text` reaches; 0 for one that shows nothing.
    double width(const QString &text);
    double ascent() const { return m_ascent; }
    double descent() const { return m_descent; }

    /// The letters of `text`, starting at the origin with y down. A unit is 1 / outlineHeight() letter
    /// heights.
    QPainterPath outline(const QString &text);
    /// A bar in place of letters too small to read, in the same units.
    QPainterPath bar(const QString &text);
    double outlineHeight() const { return m_capHeight; }

private:
    const QPainterPath &glyphOutline(const QRawFont &font, quint32 glyph);

    QFont m_font;
    double m_capHeight = 1.0;
    double m_ascent = 0.0;
    double m_descent = 0.0;
    QHash<QString, double> m_widths;
    QHash<QRawFont, QHash<quint32, QPainterPath>> m_outlines; // the font may change within a text
};

} // namespace refhost
