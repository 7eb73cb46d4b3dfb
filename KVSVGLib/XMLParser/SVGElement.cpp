// Reads numbers and transform texts off one element.

#include "SVGElement.h"

namespace {

constexpr int longestTransform = 1024;

} // namespace

double number(const QDomElement &element, const char *name)
{
    return element.attribute(QLatin1String(name)).toDouble();
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
