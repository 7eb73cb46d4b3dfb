// Turns an XML tree back into text.

#include "XMLWriter.h"

QString textOfDocument(const QDomDocument &document)
{
    return document.toString(1);
}
