// Builds XML trees.

#include "XMLTree.h"

QDomDocument documentFromText(const QString &text)
{
    QDomDocument document(QStringLiteral("mydocument"));
    return document.setContent(text) ? document : QDomDocument();
}

QDomDocument documentFromDevice(QIODevice &device)
{
    QDomDocument document(QStringLiteral("mydocument"));
    return document.setContent(&device) ? document : QDomDocument();
}
