// Visits all elements in one iterative walk.

#include "SVGPreparation/SourceTree.h"

#include <QSet>

namespace svgprep {

namespace {

bool isSvgNamespace(const QString &name)
{
    return name == QLatin1String("http://www.w3.org/2000/svg");
}

/// The value of the nearest declaration `attribute` ("xmlns:svg") at `element`; null without one.
QString namespaceAt(QDomElement element, const QString &attribute)
{
    for (; !element.isNull(); element = element.parentNode().toElement()) {
        if (element.hasAttribute(attribute))
            return element.attribute(attribute) + QLatin1String("");
    }
    return {};
}

/// The element after `element` in the order of the file.
QDomElement following(const QDomElement &element, const QDomElement &root)
{
    QDomElement next = element.firstChildElement();
    for (QDomElement up = element; next.isNull() && up != root; up = up.parentNode().toElement())
        next = up.nextSiblingElement();
    return next;
}

bool isAnimation(const QString &tag)
{
    static const QSet<QString> names = {QStringLiteral("animate"), QStringLiteral("animateMotion"),
                                        QStringLiteral("animateTransform"), QStringLiteral("animateColor"),
                                        QStringLiteral("set")};
    return names.contains(tag);
}

} // namespace

SourceTree::SourceTree(const QDomDocument &document, Omissions &omissions)
    : m_root(document.documentElement())
{
    m_isPlainSvg =
        !m_root.tagName().contains(QLatin1Char(':')) && m_root.attribute(QStringLiteral("xmlns")).isEmpty();
    for (QDomElement element = m_root; !element.isNull(); element = following(element, m_root))
        read(element, omissions);
}

void SourceTree::read(QDomElement &element, Omissions &omissions)
{
    const QString name = element.tagName();
    const int colon = name.indexOf(QLatin1Char(':'));
    if (colon >= 0) {
        if (!isSvgNamespace(namespaceAt(element, QLatin1String("xmlns:") + name.left(colon))))
            return;
        element.setTagName(name.mid(colon + 1));
    } else {
        const QString space = namespaceAt(element, QStringLiteral("xmlns"));
        if (!isSvgNamespace(space) && !(space.isEmpty() && m_isPlainSvg)) {
            element.setTagName(QStringLiteral(":foreign"));
            return;
        }
    }

    const QString tag = element.tagName();
    const QString id = element.attribute(QStringLiteral("id"));
    if (!id.isEmpty() && !m_byId.contains(id))
        m_byId.insert(id, element);
    if (tag == QLatin1String("style"))
        addStyle(element);
    else if (tag == QLatin1String("script"))
        omissions.count(Omission::Script);
    else if (isAnimation(tag))
        omissions.count(Omission::Animation);
}

void SourceTree::addStyle(const QDomElement &element)
{
    const QString type = element.attribute(QStringLiteral("type")).trimmed().toLower();
    if (!type.isEmpty() && type != QLatin1String("text/css"))
        return;
    const QString media = element.attribute(QStringLiteral("media"));
    const QString css = element.text();
    m_styleSheet.add(media.isEmpty()
                         ? css
                         : QStringLiteral("@media ") + media + QLatin1Char('{') + css + QLatin1Char('}'));
}

QString hrefOf(const QDomElement &element)
{
    const QString href = element.attribute(QStringLiteral("href"));
    if (!href.isEmpty())
        return href.trimmed();
    const QString linked = element.attribute(QStringLiteral("xlink:href"));
    if (!linked.isEmpty())
        return linked.trimmed();
    // Any prefix may be bound to the namespace of links.
    const QDomNamedNodeMap attributes = element.attributes();
    for (int i = 0; i < attributes.count() && i < 64; ++i) {
        const QString name = attributes.item(i).nodeName();
        if (name.endsWith(QLatin1String(":href")))
            return attributes.item(i).nodeValue().trimmed();
    }
    return {};
}

} // namespace svgprep
