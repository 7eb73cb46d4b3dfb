// The numbers and transforms of one element.

#pragma once

#include <QDomElement>
#include <QString>

namespace svgread {

/// The value of QString::toDouble, 0 when `text` is no number. The plain decimal numbers of coordinate lists
/// are read faster.
double plainNumber(const QStringRef &text);

/// The attribute `name` as a number; 0 when it is absent or no plain number, such as one with a unit.
double attributeNumber(const QDomElement &element, const QString &name);

/// The transform text of the direct parent; empty when it has none.
QString parentTransform(const QDomElement &element);

/// The element's own transform text; empty when it has none.
QString ownTransform(const QDomElement &element);

} // namespace svgread
