// Walks a document once, without recursion.

#include "SVGElementIndex.h"

namespace {

/// The node after `node` in document order; null after the last one.
QDomNode next(QDomNode node)
{
    const QDomNode child = node.firstChild();
    if (!child.isNull())
        return child;
    while (!node.isNull() && node.nextSibling().isNull())
        node = node.parentNode();
    return node.nextSibling();
}

} // namespace

SVGElementIndex::SVGElementIndex(const QDomDocument &document)
{
    for (const char *tag : {"line", "circle", "ellipse", "rect", "polyline", "polygon", "text", "path"})
        m_elements.insert(QLatin1String(tag), {});

    for (QDomNode node = document.firstChild(); !node.isNull(); node = next(node)) {
        if (!node.isElement())
            continue;
        const auto elements = m_elements.find(node.nodeName());
        if (elements != m_elements.end())
            elements->push_back(node.toElement());
    }
}

const std::vector<QDomElement> &SVGElementIndex::named(const QString &tag) const
{
    return *m_elements.constFind(tag);
}
