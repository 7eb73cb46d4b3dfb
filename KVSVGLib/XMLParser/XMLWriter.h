// Turns an XML tree back into text.

#pragma once

#include <QDomDocument>
#include <QString>

/// The text of `document`, character for character what QDomDocument::toString(1) gives: children stand one
/// blank further in than their parent.
QString textOfDocument(const QDomDocument &document);
