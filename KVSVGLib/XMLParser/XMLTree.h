// Turns unchecked XML texts into trees, and trees back into texts.

#pragma once

#include <QDomDocument>
#include <QIODevice>
#include <QString>

/// The largest file in bytes, and the largest text in characters. A larger one counts as not well-formed.
constexpr qint64 largestXmlFile = 256 * 1024 * 1024;

/// The tree of `text`, which is Unicode already, whatever its encoding declaration says. Empty when the text
/// is not well-formed or is refused (refusalOf()).
QDomDocument documentFromText(const QString &text);

/// The rest of `device`, which is open for reading. A byte order mark or an encoding declaration decides how
/// it is decoded, as in QDomDocument::setContent().
QString textFromDevice(QIODevice &device);

/// The text of `document`, character for character as QDomDocument::toString(1) gives it: children stand one
/// blank further in than their parent.
QString textOfDocument(const QDomDocument &document);
