// Decodes, parses and writes like QDomDocument, but checks a text before it is parsed.

#include "XMLTree.h"

#include "XMLScan.h"

#include <QTextCodec>
#include <QTextDecoder>
#include <QTextStream>

#include <memory>

namespace {

// Qt reads and decodes part by part and looks for the encoding in the first part.
constexpr int partSize = 1024;

/// The codec of a file by its first bytes: a byte order mark, or the "<" of its first tag.
QTextCodec *codecOfBeginning(const QByteArray &bytes)
{
    const char *const name = bytes.startsWith(QByteArray("<\0\0\0", 4)) ? "UTF-32LE"
        : bytes.startsWith(QByteArray("\0\0\0<", 4))                    ? "UTF-32BE"
        : bytes.startsWith(QByteArray("<\0", 2))                        ? "UTF-16LE"
        : bytes.startsWith(QByteArray("\0<", 2))                        ? "UTF-16BE"
                                                                        : "UTF-8";
    return QTextCodec::codecForUtfText(bytes, QTextCodec::codecForName(name));
}

/// The name of the encoding that the XML declaration in `beginning` states; empty without one.
QByteArray declaredEncoding(const QString &beginning)
{
    const int end = beginning.indexOf(QLatin1Char('>'));
    const int word = beginning.indexOf(QLatin1String("encoding"));
    if (!beginning.startsWith(QLatin1String("<?xml")) || word < 0 || word >= end)
        return {};
    // The name stands between the first two quotes, of whatever kind.
    const QString quoted = beginning.mid(word, end - word).replace(QLatin1Char('\''), QLatin1Char('"'));
    return quoted.section(QLatin1Char('"'), 1, 1).toLatin1();
}

// Writes elements, attributes and texts itself and leaves all rarer nodes to Qt. QDomDocument::toString moves
// the rest of a value for each escaped character: 5 s for a 4 MB file with an embedded picture.
class Writer {
public:
    explicit Writer(const QDomDocument &document)
        : m_stream(&m_text)
    {
        QDomNode node = document.firstChild();
        QDomDocument declaration;
        if (node.isProcessingInstruction() && node.nodeName() == QLatin1String("xml")) {
            declaration.appendChild(declaration.importNode(node, true));
            node = node.nextSibling();
        }
        declaration.save(m_stream, 0); // sets the stream's codec to the declared one, or to UTF-8
        if (!node.isNull())
            document.doctype().save(m_stream, 0);
        for (; !node.isNull(); node = node.nextSibling())
            write(node, 0);
    }

    QString text() const { return m_text; }

private:
    void write(const QDomNode &node, int depth)
    {
        if (node.isElement())
            writeElement(node.toElement(), depth);
        else if (node.nodeType() == QDomNode::TextNode)
            writeEscaped(node.nodeValue(), false);
        else
            node.save(m_stream, depth); // Qt saves it as a node of level 1, so the depth is its indentation
    }

    // Neither line breaks nor indentation stand next to text and CDATA.
    void writeElement(const QDomElement &element, int depth)
    {
        if (!element.previousSibling().isText())
            m_text.append(QString(depth, QLatin1Char(' ')));
        m_text.append(QLatin1Char('<')).append(element.tagName());
        const QDomNamedNodeMap attributes = element.attributes();
        const int count = attributes.size();
        for (int i = 0; i < count; ++i) {
            const QDomNode attribute = attributes.item(i);
            m_text.append(QLatin1Char(' ')).append(attribute.nodeName()).append(QLatin1String("=\""));
            writeEscaped(attribute.nodeValue(), true);
            m_text.append(QLatin1Char('"'));
        }
        m_text.append(QLatin1String(element.hasChildNodes() ? ">" : "/>"));
        if (element.hasChildNodes())
            writeChildren(element, depth);
        if (!element.nextSibling().isText())
            m_text.append(QLatin1Char('\n'));
    }

    void writeChildren(const QDomElement &element, int depth)
    {
        if (!element.firstChild().isText())
            m_text.append(QLatin1Char('\n'));
        for (QDomNode child = element.firstChild(); !child.isNull(); child = child.nextSibling())
            write(child, depth + 1);
        if (!element.lastChild().isText())
            m_text.append(QString(depth, QLatin1Char(' ')));
        m_text.append(QLatin1String("</")).append(element.tagName()).append(QLatin1Char('>'));
    }

    void writeEscaped(const QString &value, bool isAttribute)
    {
        const int start = m_text.size();
        int written = 0;
        for (int i = 0; i < value.size(); ++i) {
            if (isPlain(value.at(i)))
                continue;
            m_text.append(value.constData() + written, i - written);
            const bool endsCData = m_text.size() - start >= 2 && m_text.endsWith(QLatin1String("]]"));
            m_text.append(escaped(value.at(i), isAttribute, endsCData));
            written = i + 1;
        }
        m_text.append(value.constData() + written, value.size() - written);
    }

    /// Whether `character` is written unchanged wherever it stands.
    bool isPlain(QChar character)
    {
        char &kind = m_kinds.data()[character.unicode()];
        if (kind == '\0') {
            const bool isSpecial = QStringLiteral("<>&\"\t\n\r").contains(character);
            kind = isSpecial || !m_stream.codec()->canEncode(character) ? 's' : 'p';
        }
        return kind == 'p';
    }

    QString escaped(QChar character, bool isAttribute, bool endsCData) const
    {
        if (character == QLatin1Char('<'))
            return QStringLiteral("&lt;");
        if (character == QLatin1Char('&'))
            return QStringLiteral("&amp;");
        if (character == QLatin1Char('>'))
            return endsCData ? QStringLiteral("&gt;") : QString(character);
        if (character == QLatin1Char('"'))
            return isAttribute ? QStringLiteral("&quot;") : QString(character);
        if (!isAttribute && (character == QLatin1Char('\t') || character == QLatin1Char('\n')))
            return character;
        return QStringLiteral("&#x%1;").arg(character.unicode(), 0, 16);
    }

    QByteArray m_kinds = QByteArray(0x10000, '\0'); // 'p'lain or 's'pecial for each UTF-16 unit met so far
    QString m_text;
    QTextStream m_stream; // appends to m_text
};

} // namespace

QDomDocument documentFromText(const QString &text)
{
    QDomDocument document;
    if (refusalOf(text) || !document.setContent(text))
        return QDomDocument(); // without the part that Qt has read
    return document;
}

QString textFromDevice(QIODevice &device)
{
    device.setTextModeEnabled(false);
    const QByteArray bytes = device.readAll();
    QTextCodec *codec = codecOfBeginning(bytes);
    const std::unique_ptr<QTextDecoder> beginning(codec->makeDecoder());
    QTextCodec *declared =
        QTextCodec::codecForName(declaredEncoding(beginning->toUnicode(bytes.left(partSize))));
    if (declared && declared->mibEnum() != codec->mibEnum())
        codec = declared;

    const std::unique_ptr<QTextDecoder> decoder(codec->makeDecoder());
    QString text;
    text.reserve(bytes.size());
    for (int i = 0; i < bytes.size(); i += partSize)
        text += decoder->toUnicode(bytes.constData() + i, qMin(partSize, bytes.size() - i));
    return text;
}

QString textOfDocument(const QDomDocument &document)
{
    return Writer(document).text();
}
