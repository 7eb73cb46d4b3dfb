// The letters of notes: their outlines and how much room they take.

#pragma once

#include <QHash>
#include <QPainterPath>
#include <QString>

#include <QFont>

namespace refhost {

/// Sets one-line texts in the system's sans serif font. Lengths are in letter heights; the letter height is
/// that of a capital letter, as on a technical drawing. Needs a QGuiApplication. Remembers the texts it has
/// set, so one object should serve a whole drawing.
class Lettering {
public:
    Lettering();

    /// How far the line of `text` reaches; 0 for one that shows nothing.
    double width(const QString &text);
    double ascent() const { return m_ascent; }
    double descent() const { return m_descent; }

    /// The letters of `text`, standing on the y axis's 0 and starting at the x axis's, y down, each unit
    /// 1 / outlineHeight() letter heights.
    QPainterPath outline(const QString &text);
    double outlineHeight() const { return m_capHeight; }

private:
    QFont m_font;
    double m_capHeight = 1.0;
    double m_ascent = 0.0;
    double m_descent = 0.0;
    QHash<QString, double> m_widths;
    QHash<QString, QPainterPath> m_outlines;
};

} // namespace refhost
