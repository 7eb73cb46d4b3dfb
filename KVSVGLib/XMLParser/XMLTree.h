// From XML texts that nobody has checked to trees, and back.

#pragma once

#include <QDomDocument>
#include <QIODevice>
#include <QString>

/// In bytes, or in characters of a text. What is larger counts as not well-formed.
constexpr qint64 largestXmlFile = 256 * 1024 * 1024;

/// The tree of `text`. Whatever the text's encoding declaration says, it is Unicode already. A text that is
/// not well-formed, or is refused (refusalOf()), gives an empty document.
QDomDocument documentFromText(const QString &text);

/// All that `device`, open for reading, still holds. A byte order mark or an encoding declaration says how it
/// is decoded, as QDomDocument::setContent() does it.
QString textFromDevice(QIODevice &device);

/// The text of `document`, character for character what QDomDocument::toString(1) gives: children stand one
/// blank further in than their parent.
QString textOfDocument(const QDomDocument &document);
