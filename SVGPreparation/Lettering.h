// Measures and draws lettering with the fonts of this machine.

#pragma once

#include "SVGPreparation/Style.h"

#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <QPainterPath>
#include <QString>

namespace svgprep {

/// How far a font reaches from its baseline, user units.
struct FontReach {
    double ascent = 0.0;
    double descent = 0.0;
    double xHeight = 0.0;
};

class Lettering {
public:
    /// How far `text` leads along the baseline, user units.
    double advance(const QString &text, const TextFont &font);
    FontReach reach(const TextFont &font);
    /// The outlines of `text`, a few thousand letters at most, begun at the origin, y downwards, user units.
    QPainterPath outlines(const QString &text, const TextFont &font);

private:
    struct Face {
        QFont font;
        QFontMetricsF metrics;
    };

    const Face &face(const TextFont &font);

    QHash<QString, Face> m_faces; // set once at a large size, so that any size is a matter of scale
};

} // namespace svgprep
