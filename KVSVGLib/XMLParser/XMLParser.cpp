// Loads XML files into documents.

#include "XMLParser.h"

#include "XMLTree.h"

#include <QDomElement>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMessageBox>

#include <utility>

namespace {

void showMessageBox(const QString &path)
{
    QGuiApplication::setOverrideCursor(Qt::ArrowCursor); // files are loaded under the wait cursor
    QMessageBox::critical(nullptr, QStringLiteral("Error"), QObject::tr("Cannot open xml file: %1").arg(path),
                          QMessageBox::Ok, QMessageBox::NoButton);
    QGuiApplication::restoreOverrideCursor();
}

CannotOpenMessage messageInUse = showMessageBox;

} // namespace

QByteArray loadSvgText(const QString &path, QDomDocument *document)
{
    const XMLParser firstLoad(path); // reports a file that cannot be opened, as the reader does once more
    const XMLDocumentReader reader(path);
    if (document)
        *document = reader.document();
    return reader.toString().toUtf8();
}

XMLFile::XMLFile(const QString &path)
    : m_fileName(path)
{
    QFile file(path);
    // A folder, a device or a pipe would not open, or would never end.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        messageInUse(path);
        return;
    }
    if (file.size() <= largestXmlFile)
        m_unparsedText = textFromDevice(file);
}

QDomDocument XMLFile::document() const
{
    if (!m_unparsedText.isEmpty())
        m_document = documentFromText(std::exchange(m_unparsedText, QString()));
    return m_document;
}

bool XMLFile::setDocumentText(const QString &text)
{
    const QDomDocument document = documentFromText(text);
    if (document.isNull())
        return false;
    m_unparsedText.clear();
    m_document = document;
    return true;
}

XMLParser::XMLParser(const QString &path)
    : m_file(path.isEmpty() ? nullptr : std::make_unique<XMLFile>(path))
{
}

XMLDocumentReader::XMLDocumentReader(const QString &path)
    : m_parser(path)
    , m_document(m_parser.document())
{
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

CannotOpenMessage setCannotOpenMessage(CannotOpenMessage message)
{
    if (!message)
        message = showMessageBox;
    return std::exchange(messageInUse, std::move(message));
}
