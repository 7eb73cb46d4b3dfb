// Loads XML files into documents.

#include "XMLParser.h"

#include "CannotOpenMessage.h"
#include "XMLTree.h"

#include <QDomElement>
#include <QFile>
#include <QFileInfo>

namespace {

std::unique_ptr<XMLFile> loadedFile(const QString &path)
{
    return path.isEmpty() ? nullptr : std::make_unique<XMLFile>(path);
}

} // namespace

XMLFile::XMLFile(const QString &path)
    : m_fileName(path)
{
    QFile file(path);
    // A folder, a device or a pipe would not open, or would never end.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        showCannotOpenMessage(path);
        return;
    }
    if (file.size() <= largestXmlFile)
        m_document = documentFromText(textFromDevice(file));
}

bool XMLFile::setDocumentText(const QString &text)
{
    const QDomDocument document = documentFromText(text);
    if (document.isNull())
        return false;
    m_document = document;
    return true;
}

XMLParser::XMLParser(const QString &path)
    : m_file(loadedFile(path))
{
}

QDomDocument XMLParser::document() const
{
    return m_file ? m_file->document() : QDomDocument();
}

XMLDocumentReader::XMLDocumentReader(const QString &path)
    : m_file(loadedFile(path))
{
    if (m_file)
        m_document = m_file->document();
}

QString XMLDocumentReader::toString() const
{
    return textOfDocument(m_document);
}

void XMLDocumentReader::setAttribute(const QString &tagName, const QString &attributeName,
                                     const QString &value)
{
    const QDomNodeList elements = m_document.elementsByTagName(tagName);
    if (!elements.isEmpty())
        elements.item(0).toElement().setAttribute(attributeName, value);
}
