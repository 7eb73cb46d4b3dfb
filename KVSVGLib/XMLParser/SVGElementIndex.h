// The elements of a document by name.

#pragma once

#include <QDomDocument>
#include <QDomElement>
#include <QHash>
#include <QString>

#include <vector>

/// Finds what QDomDocument::elementsByTagName() finds, for the names that the readers ask for: every element
/// of that qualified name at any depth, in document order. One walk over the tree serves all names; a large
/// tree does not fit the processor's cache, and each walk costs as much as reading all numbers of a kind.
class SVGElementIndex {
public:
    explicit SVGElementIndex(const QDomDocument &document);

    /// The elements named `tag`, which must be the name of a shape, of "text" or of "path".
    const std::vector<QDomElement> &named(const QString &tag) const;

private:
    QHash<QString, std::vector<QDomElement>> m_elements;
};
