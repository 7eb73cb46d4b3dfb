// Sets texts once at a large size, without hinting, so that their outlines can be scaled to any height.

#include "view/Lettering.h"

#include <QFontMetricsF>
#include <QGlyphRun>
#include <QTextLayout>

#include <algorithm>

namespace refhost {

namespace {

constexpr int pixelSize = 64;
/// As many letters as a drawing file holds; the font engine counts pixels in 26 bits, so there has to be an
/// end.
constexpr int longestText = 32767;

QFont largeFont()
{
    QFont font(QStringLiteral("sans-serif"));
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(pixelSize);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

/// `text` as one line: control characters, line breaks among them, become blanks.
QString oneLine(const QString &text)
{
    QString line = text.left(longestText);
    line.replace(QLatin1String("\r\n"), QLatin1String(" "));
    std::replace_if(
        line.begin(), line.end(), [](QChar letter) { return letter.category() == QChar::Other_Control; },
        QLatin1Char(' '));
    return line;
}

} // namespace

Lettering::Lettering()
    : m_font(largeFont())
{
    const QFontMetricsF metrics(m_font);
    // A machine without any font reports 0.
    m_capHeight = metrics.capHeight() > 0.0 ? metrics.capHeight() : pixelSize;
    m_ascent = metrics.ascent() / m_capHeight;
    m_descent = metrics.descent() / m_capHeight;
}

double Lettering::width(const QString &text)
{
    const auto known = m_widths.constFind(text);
    if (known != m_widths.constEnd())
        return known.value();

    const QString line = oneLine(text);
    const double advance = QFontMetricsF(m_font).horizontalAdvance(line) / m_capHeight;
    const double shown = line.trimmed().isEmpty() ? 0.0 : advance;
    m_widths.insert(text, shown);
    return shown;
}

QPainterPath Lettering::outline(const QString &text)
{
    QTextLayout layout(oneLine(text), m_font);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();

    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    const QPointF toBaseline(0.0, -line.ascent());
    const QList<QGlyphRun> runs = layout.glyphRuns();
    for (const QGlyphRun &run : runs) {
        const QRawFont font = run.rawFont();
        const QVector<quint32> glyphs = run.glyphIndexes();
        const QVector<QPointF> positions = run.positions();
        for (int i = 0; i < glyphs.size(); ++i)
            path.addPath(glyphOutline(font, glyphs[i]).translated(positions[i] + toBaseline));
    }
    return path;
}

QPainterPath Lettering::bar(const QString &text)
{
    QPainterPath path;
    path.addRect(0.0, -m_capHeight, width(text) * m_capHeight, m_capHeight);
    return path;
}

const QPainterPath &Lettering::glyphOutline(const QRawFont &font, quint32 glyph)
{
    QHash<quint32, QPainterPath> &outlines = m_outlines[font];
    auto known = outlines.find(glyph);
    if (known == outlines.end())
        known = outlines.insert(glyph, font.pathForGlyph(glyph));
    return known.value();
}

} // namespace refhost
