// Builds XML trees from files and texts that nobody has checked. A text whose tree would be too deep or too
// large for a program with a small stack counts as not well-formed.

#pragma once

#include <QDomDocument>
#include <QIODevice>
#include <QString>

/// The tree of `text`. Whatever the text's encoding declaration says, it is Unicode already. A text that is
/// not well-formed, or is refused, gives an empty document.
QDomDocument documentFromText(const QString &text);

/// All that `device`, open for reading, still holds, decoded as documentFromDevice() decodes it: a byte order
/// mark or an encoding declaration says how. Ends soon after largestXmlFile characters.
QString textFromDevice(QIODevice &device);

/// The tree of what `device` holds, a device open for reading at its start, in the encoding that its first
/// bytes declare. Content that is not well-formed, or is refused, gives an empty document.
QDomDocument documentFromDevice(QIODevice &device);
