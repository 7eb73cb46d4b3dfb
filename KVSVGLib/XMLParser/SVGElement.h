// What the readers ask of one element: its numbers and the transform that counts for it.

#pragma once

#include <QDomElement>
#include <QString>

namespace svgread {

/// The value that QString::toDouble gives, 0 when `text` is no number; faster for the plain decimal numbers
/// of coordinate lists.
double plainNumber(const QStringRef &text);

/// The attribute `name` as a number; 0 when it is absent or anything but a plain number (a unit, a
/// percentage).
double attributeNumber(const QDomElement &element, const QString &name);

/// The transform text of the direct parent, empty when it has none.
QString parentTransform(const QDomElement &element);

/// The element's own transform text.
QString ownTransform(const QDomElement &element);

} // namespace svgread
