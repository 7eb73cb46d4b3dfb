// Parses with QtXml, under guard.

#include "XMLTree.h"

#include "XMLGuard.h"
#include "XMLLimits.h"

#include <QXmlInputSource>
#include <QXmlSimpleReader>

namespace {

/// QtXml's parser, set up as QDomDocument sets up its own, with a guard in front of whoever receives its
/// events.
class GuardedReader : public QXmlSimpleReader {
public:
    /// Parses a text or an input source; XMLGuard tells the difference.
    template <class Guarded>
    explicit GuardedReader(const Guarded &guarded)
        : m_guard(guarded)
    {
        setFeature(QStringLiteral("http://xml.org/sax/features/namespaces"), false);
        setFeature(QStringLiteral("http://xml.org/sax/features/namespace-prefixes"), true);
        setFeature(QStringLiteral("http://trolltech.com/xml/features/report-whitespace-only-CharData"),
                   false);
    }

    const XMLGuard &guard() const { return m_guard; }

    void setContentHandler(QXmlContentHandler *handler) override
    {
        m_guard.setTarget(handler);
        QXmlSimpleReader::setContentHandler(&m_guard);
    }
    void setLexicalHandler(QXmlLexicalHandler *handler) override
    {
        m_guard.setTarget(handler);
        QXmlSimpleReader::setLexicalHandler(&m_guard);
    }
    void setDeclHandler(QXmlDeclHandler *handler) override
    {
        m_guard.setTarget(handler);
        QXmlSimpleReader::setDeclHandler(&m_guard);
    }
    void setDTDHandler(QXmlDTDHandler *handler) override
    {
        m_guard.setTarget(handler);
        QXmlSimpleReader::setDTDHandler(&m_guard);
    }

private:
    XMLGuard m_guard;
};

} // namespace

QDomDocument documentFromText(const QString &text)
{
    if (text.size() > largestXmlFile)
        return QDomDocument();

    GuardedReader reader(text);
    QXmlInputSource source;
    source.setData(text);
    QDomDocument document;
    if (!document.setContent(&source, &reader))
        return QDomDocument();
    if (!reader.guard().hasSkippedEntity())
        return document;

    // With a reader of its own QDomDocument also drops a reference to an undeclared entity that stands in an
    // attribute.
    QDomDocument unguarded;
    unguarded.setContent(text);
    return unguarded;
}

QString textFromDevice(QIODevice &device)
{
    QXmlInputSource source(&device);
    QString text;
    text.reserve(static_cast<int>(qMin<qint64>(device.bytesAvailable(), largestXmlFile)));
    for (QString part = source.data(); !part.isEmpty() && text.size() <= largestXmlFile;
         part = source.data()) {
        text += part;
        source.fetchData();
    }
    return text;
}

QDomDocument documentFromDevice(QIODevice &device)
{
    QXmlInputSource source(&device);
    GuardedReader reader(source);
    QDomDocument document;
    if (document.setContent(&source, &reader))
        return document;
    // The few texts that declare something, or refer to undeclared entities, are parsed again from memory;
    // keeping every text there would make loading a path of 200,000 numbers take a quarter longer.
    if (reader.guard().lacksText() && device.seek(0))
        return documentFromText(textFromDevice(device));
    return QDomDocument();
}
