// An SVG file's tree made ready to be walked: elements by id, style sheets, and plain names whatever prefix
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
    /// Goes once through `document`, whose elements lose the prefixes that mean SVG; those of other
    /// namespaces get a name that nobody asks for. Animations and scripts are counted in `omissions`.
    SourceTree(const QDomDocument &document, Omissions &omissions);

    /// The outermost element, which need not be one of SVG.
    const QDomElement &root() const { return m_root; }
    /// The element with this id, the first of several; a null one when there is none.
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

/// The address in href or xlink:href, white space left out.
QString hrefOf(const QDomElement &element);

} // namespace svgprep
