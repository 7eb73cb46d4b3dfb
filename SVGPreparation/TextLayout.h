// Finds the places of the runs of a text.

#pragma once

#include "SVGPreparation/Lettering.h"
#include "SVGPreparation/Omissions.h"
#include "SVGPreparation/Style.h"

#include <QDomElement>
#include <QPointF>
#include <QString>

#include <functional>
#include <vector>

namespace svgprep {

/// Letters of one font that follow each other without a step.
struct TextRun {
    QString text;    ///< without white space at its ends, without control characters
    QPointF leftEnd; ///< left end of the baseline, user units of the text element
    TextFont font;
    double turn = 0.0; ///< degrees, for each letter by itself
};

/// Computes the style of an element within one of the style `parent`.
using StyleWithin = std::function<ElementStyle(const QDomElement &element, const InheritedStyle &parent)>;

/// Lays out text elements on one line each, by SVG's rules of positions, anchors and white space.
class TextLayout {
public:
    TextLayout(Lettering &lettering, StyleWithin styleWithin, Omissions &omissions);

    /// The visible runs of `text`. `style` is the text's own, and its lengths refer to `base`.
    std::vector<TextRun> runs(const QDomElement &text, const InheritedStyle &style, const LengthBase &base);

private:
    /// The properties that all letters directly in one element share.
    struct Part {
        InheritedStyle style;
        double baselineShift = 0.0;
        bool isTransparent = false;
        bool keepsBlanks = false;
    };

    /// The place that attributes give to a letter, and the distance by which they move it.
    struct Step {
        double x = 0.0;
        double y = 0.0;
        double dx = 0.0;
        double dy = 0.0;
        double turn = 0.0;
        unsigned given = 0; // one bit for each value
    };

    struct Letter {
        ushort unit = 0;
        int part = 0;
        int step = -1; // none
    };

    struct Position;

    void collect(const QDomElement &element, int partIndex, const LengthBase &base);
    void collectChild(const QDomElement &child, int partIndex, const LengthBase &base);
    bool addPart(const QDomElement &element, int outer);
    void append(const QString &data, int partIndex);
    void readPositions(const QDomElement &element, std::size_t firstLetter, const LengthBase &base);
    void giveStep(std::size_t letter, const Position &position, double value);

    bool beginsChunk(std::size_t letter) const;
    bool beginsRun(std::size_t letter) const;
    std::vector<TextRun> chunk(std::size_t begin, std::size_t end, QPointF &pen);
    double baselineOffset(const Part &part);
    void appendShown(std::vector<TextRun> &shown, TextRun run, const Part &part);

    Lettering &m_lettering;
    StyleWithin m_styleWithin;
    Omissions &m_omissions;
    std::vector<Part> m_parts;
    std::vector<Step> m_steps;
    std::vector<Letter> m_letters;
    bool m_endsInBlank = true; // drops white space at the beginning
};

} // namespace svgprep
