// Finds fonts by the names in a file and scales their measures.

#include "SVGPreparation/Lettering.h"

#include <QFontInfo>
#include <QStringList>

#include <algorithm>

namespace svgprep {

namespace {

constexpr int facePixels = 256;
/// Qt's font engine counts pixels in 26 bits, and a very long text costs more than linear time.
constexpr int longestPiece = 4096;
constexpr int mostFamilies = 16;

/// The names in `families`, separated by commas and perhaps quoted.
QStringList familyNames(const QString &families)
{
    QStringList names;
    for (const QString &part : families.split(QLatin1Char(','))) {
        QString name = part.trimmed();
        if (name.size() > 1 && (name.startsWith(QLatin1Char('"')) || name.startsWith(QLatin1Char('\''))))
            name = name.mid(1, name.size() - 2);
        if (!name.isEmpty() && names.size() < mostFamilies)
            names << name;
    }
    return names;
}

/// The font that this machine has for `name`, perhaps another one of the same widths; empty when it has none.
/// Qt finds a font for any name, so its answer counts only when it differs from the font for no name at all.
QString installedFamily(const QString &name)
{
    static const QString foundForNoName = QFontInfo(QFont(QStringLiteral("no such font"))).family();
    const QString found = QFontInfo(QFont(name)).family();
    return found != foundForNoName || name.compare(found, Qt::CaseInsensitive) == 0 ? found : QString();
}

/// The first of `families` that is installed. A generic name gives the font that browsers take for it, and a
/// serif font stands in when none is named or installed.
QString familyFor(const QString &families)
{
    static const QHash<QString, QString> genericFamilies = {
        {QStringLiteral("sans-serif"), QStringLiteral("Arial")},
        {QStringLiteral("serif"), QStringLiteral("Times New Roman")},
        {QStringLiteral("monospace"), QStringLiteral("monospace")},
        {QStringLiteral("system-ui"), QStringLiteral("sans-serif")},
    };
    for (const QString &name : familyNames(families)) {
        QString generic = genericFamilies.value(name.toLower());
        if (!generic.isEmpty())
            return generic;
        QString installed = installedFamily(name);
        if (!installed.isEmpty())
            return installed;
    }
    return genericFamilies.value(QStringLiteral("serif"));
}

/// Qt's weight for a weight of CSS, 100 to 900 in steps of 100.
int qtWeight(int weight)
{
    constexpr int weights[] = {QFont::Thin,   QFont::ExtraLight, QFont::Light,
                               QFont::Normal, QFont::Medium,     QFont::DemiBold,
                               QFont::Bold,   QFont::ExtraBold,  QFont::Black};
    return weights[std::clamp((weight + 50) / 100, 1, 9) - 1];
}

/// The spacing that adds to the advance of `text`.
double spacing(const QString &text, const TextFont &font)
{
    if (font.letterSpacing == 0.0 && font.wordSpacing == 0.0)
        return 0.0;
    return text.size() * font.letterSpacing + text.count(QLatin1Char(' ')) * font.wordSpacing;
}

} // namespace

double Lettering::advance(const QString &text, const TextFont &font)
{
    const Face &face = this->face(font);
    double pixels = 0.0;
    for (int i = 0; i < text.size(); i += longestPiece)
        pixels += face.metrics.horizontalAdvance(text.mid(i, longestPiece));
    return pixels * font.size / facePixels + spacing(text, font);
}

FontReach Lettering::reach(const TextFont &font)
{
    const QFontMetricsF &metrics = face(font).metrics;
    const double scale = font.size / facePixels;
    return {metrics.ascent() * scale, metrics.descent() * scale, metrics.xHeight() * scale};
}

QPainterPath Lettering::outlines(const QString &text, const TextFont &font)
{
    const double scale = font.size / facePixels;
    QFont spaced = face(font).font;
    if (scale > 0.0 && font.letterSpacing != 0.0)
        spaced.setLetterSpacing(QFont::AbsoluteSpacing, font.letterSpacing / scale);
    if (scale > 0.0 && font.wordSpacing != 0.0)
        spaced.setWordSpacing(font.wordSpacing / scale);
    QPainterPath path;
    path.addText(0.0, 0.0, spaced, text);
    return QTransform::fromScale(scale, scale).map(path);
}

const Lettering::Face &Lettering::face(const TextFont &font)
{
    const QString key =
        QStringLiteral("%1 %2 %3").arg(font.weight).arg(int(font.isItalic)).arg(font.families);
    const auto known = m_faces.constFind(key);
    if (known != m_faces.constEnd())
        return *known;

    QFont face(familyFor(font.families));
    face.setPixelSize(facePixels);
    face.setWeight(qtWeight(font.weight));
    face.setItalic(font.isItalic);
    face.setHintingPreference(QFont::PreferNoHinting);
    return *m_faces.insert(key, {face, QFontMetricsF(face)});
}

} // namespace svgprep
