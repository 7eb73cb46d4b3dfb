// Reads numbers and transform texts off one element.

#include "SVGElement.h"

#include "SVGNumber.h"

namespace {

constexpr int longestTransform = 1024;

} // namespace

double number(const QDomElement &element, const QString &name)
{
    const QString text = element.attribute(name);
    return plainNumber(QStringRef(&text));
}

QString parentTransform(const QDomElement &element)
{
    return ownTransform(element.parentNode().toElement());
}

QString ownTransform(const QDomElement &element)
{
    const QString transform = element.attribute(QStringLiteral("transform"));
    return transform.size() > longestTransform ? QString() : transform;
}
