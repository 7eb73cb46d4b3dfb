// Walks an SVG tree as a browser renders it and hands every visible shape to the plain SVG.

#pragma once

#include "SVGPreparation/Markers.h"
#include "SVGPreparation/PageSetup.h"
#include "SVGPreparation/PlainSVG.h"
#include "SVGPreparation/SourceTree.h"
#include "SVGPreparation/TextLayout.h"

#include <QHash>
#include <QSet>
#include <QString>

#include <vector>

namespace svgprep {

class TreeWalk {
public:
    TreeWalk(SourceTree &source, const PreparationOptions &options, Omissions &omissions);

    /// Draws the whole file into `plain`, on the sheet of `setup`. Returns the reason for a failure; empty on
    /// success.
    QString draw(const PageSetup &setup, PlainSVG &plain);

private:
    /// The surroundings of an element.
    struct Scope {
        QTransform toDrawing; // from its parent's user units
        LengthBase base;
        InheritedStyle style;
        bool isClipped = false;
        bool isMasked = false;
        bool isFiltered = false;
    };

    /// Elements that are still to be drawn: one, or one with its siblings.
    struct Frame {
        QDomElement next;
        bool siblingsFollow = true;
        Scope scope;
        QString usedId; // stays in use until the frame is done
    };

    /// A marker with the style of the elements around it.
    struct Marker {
        QDomElement element;
        InheritedStyle style;
    };

    using Stack = std::vector<Frame>;
    using Visit = void (TreeWalk::*)(const QDomElement &element, const Scope &scope, Stack &stack);

    static const QHash<QString, Visit> &visits();

    void drawAll(Frame first);
    void visit(const QDomElement &element, const Scope &outer, Stack &stack);
    bool enter(const QDomElement &element, const Scope &outer, Scope &inner);

    void visitGroup(const QDomElement &element, const Scope &scope, Stack &stack);
    void visitSwitch(const QDomElement &element, const Scope &scope, Stack &stack);
    void visitSvg(const QDomElement &element, const Scope &scope, Stack &stack);
    void visitUse(const QDomElement &element, const Scope &scope, Stack &stack);
    void visitShape(const QDomElement &element, const Scope &scope, Stack &stack);
    void visitText(const QDomElement &element, const Scope &scope, Stack &stack);
    void visitImage(const QDomElement &element, const Scope &scope, Stack &stack);
    void visitForeignObject(const QDomElement &element, const Scope &scope, Stack &stack);

    void enterViewport(const QDomElement &element, const QRectF &room, const Scope &scope, Stack &stack);
    void drawLetters(const TextRun &run, const Scope &scope);
    void drawMarkers(const Outline &outline, const Scope &scope);
    void drawMarker(const Marker &marker, const MarkerPlace &place, const Scope &scope);
    const Marker &markerNamed(const QString &id);
    void countEffects(const Scope &scope);
    bool isEffect(const QString &value) const;
    ElementStyle styleWithin(const QDomElement &element, const InheritedStyle &parent,
                             const LengthBase &base);

    SourceTree &m_source;
    const PreparationOptions &m_options;
    Omissions &m_omissions;
    Lettering m_lettering;
    PlainSVG *m_plain = nullptr;
    QString m_error;
    LengthBase m_rootBase;
    QSet<QString> m_usedIds;
    QHash<QString, Marker> m_markers;
    bool m_isInMarker = false;
    int m_instanced = 0; // elements drawn through a use or a marker
};

} // namespace svgprep
