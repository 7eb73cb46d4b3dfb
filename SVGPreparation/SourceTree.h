// The tree of an SVG file, ready for the walk: elements by id, style sheets, and plain names whatever prefix
// the file uses.

#pragma once

#include "SVGPreparation/Omissions.h"
#include "SVGPreparation/StyleSheet.h"

#include <QDomDocument>
#include <QDomElement>
#include <QHash>
#include <QString>

namespace svgprep {

class SourceTree {
public:
    /// Goes once through `document`. Elements lose a prefix that means SVG, and elements of other namespaces
    /// get a name that SVG does not have. Animations and scripts are counted in `omissions`.
    SourceTree(const QDomDocument &document, Omissions &omissions);

    /// The outermost element; it may be no element of SVG.
    const QDomElement &root() const { return m_root; }
    /// The first element with this id; null without one.
    QDomElement byId(const QString &id) const { return m_byId.value(id); }
    StyleSheet &styleSheet() { return m_styleSheet; }

private:
    void read(QDomElement &element, Omissions &omissions);
    void addStyle(const QDomElement &element);

    QDomElement m_root;
    bool m_isPlainSvg = false; // names without any namespace mean SVG
    QHash<QString, QDomElement> m_byId;
    StyleSheet m_styleSheet;
};

/// The address in href or xlink:href, without white space around it.
QString hrefOf(const QDomElement &element);

} // namespace svgprep
