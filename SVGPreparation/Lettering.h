// Measures and draws lettering with the fonts of this machine.

#pragma once

#include "SVGPreparation/Style.h"

#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <QPainterPath>
#include <QString>

namespace svgprep {

/// The reach of a font from its baseline, user units.
struct FontReach {
    double ascent = 0.0;
    double descent = 0.0;
    double xHeight = 0.0;
};

class Lettering {
public:
    /// The advance of `text` along the baseline, user units.
    double advance(const QString &text, const TextFont &font);
    FontReach reach(const TextFont &font);
    /// The outlines of `text` from the origin, y downwards, user units. `text` has a few thousand letters at
    /// most.
    QPainterPath outlines(const QString &text, const TextFont &font);

private:
    struct Face {
        QFont font;
        QFontMetricsF metrics;
    };

    const Face &face(const TextFont &font);

    QHash<QString, Face> m_faces; // of one large size, from which every other is scaled
};

} // namespace svgprep
