// Writes a tree without recursion, and each value in one pass: QDomDocument::toString moves the rest of a
// value for every character that it escapes, which takes 5 s for a 4 MB file with an embedded picture.

#include "XMLWriter.h"

#include <QRegularExpression>
#include <QTextCodec>

namespace {

/// The codec that the XML declaration names; UTF-8 without one.
const QTextCodec *declaredCodec(const QDomDocument &document)
{
    const QDomNode first = document.firstChild();
    QTextCodec *codec = nullptr;
    if (first.isProcessingInstruction() && first.nodeName() == QLatin1String("xml")) {
        static const QRegularExpression encoding(
            QStringLiteral("encoding\\s*=\\s*(?:\"([^\"]*)\"|'([^']*)')"));
        const QRegularExpressionMatch match = encoding.match(first.nodeValue());
        const QString name = match.captured(1) + match.captured(2);
        if (!name.isEmpty())
            codec = QTextCodec::codecForName(name.toLatin1());
    }
    return codec ? codec : QTextCodec::codecForName("UTF-8");
}

/// Character data, which keeps its surroundings free of line breaks and indentation.
bool isCharacterData(const QDomNode &node)
{
    return node.isText() || node.isCDATASection();
}

class Writer {
public:
    explicit Writer(const QDomDocument &document)
        : m_codec(declaredCodec(document))
        , m_encodable(QByteArray(unicodeUnits, unknown))
    {
        bool typeWritten = false;
        for (QDomNode node = document.firstChild(); !node.isNull(); node = node.nextSibling()) {
            const bool isDeclaration =
                node.isProcessingInstruction() && node.nodeName() == QLatin1String("xml");
            if (!typeWritten && !isDeclaration) {
                writeType(document.doctype());
                typeWritten = true;
            }
            writeTree(node);
        }
    }

    QString text() const { return m_text; }

private:
    template <class... Parts>
    void write(const Parts &...parts)
    {
        (m_text.append(parts), ...);
    }

    enum class Place { Text, Attribute };

    static constexpr int unicodeUnits = 0x10000;
    static constexpr char unknown = 0;
    static constexpr char yes = 1;
    static constexpr char no = 2;

    void writeTree(const QDomNode &root)
    {
        int depth = 0;
        QDomNode node = root;
        for (;;) {
            writeStart(node, depth);
            const QDomNode child = node.isElement() ? node.firstChild() : QDomNode();
            if (!child.isNull()) {
                node = child;
                ++depth;
                continue;
            }
            while (depth > 0 && node.nextSibling().isNull()) {
                node = node.parentNode();
                --depth;
                writeEndTag(node, depth);
            }
            if (depth == 0)
                return;
            node = node.nextSibling();
        }
    }

    void writeStart(const QDomNode &node, int depth)
    {
        switch (node.nodeType()) {
        case QDomNode::ElementNode:
            writeIndentation(node, depth);
            writeStartTag(node.toElement());
            break;
        case QDomNode::TextNode:
            writeEscaped(node.nodeValue(), Place::Text);
            break;
        case QDomNode::CDATASectionNode:
            write(QLatin1String("<![CDATA["), node.nodeValue(), QLatin1String("]]>"));
            break;
        case QDomNode::EntityReferenceNode:
            write(QLatin1Char('&'), node.nodeName(), QLatin1Char(';'));
            break;
        case QDomNode::ProcessingInstructionNode:
            write(QLatin1String("<?"), node.nodeName(), QLatin1Char(' '), node.nodeValue(),
                  QLatin1String("?>\n"));
            break;
        case QDomNode::CommentNode:
            writeIndentation(node, depth);
            writeComment(node.nodeValue());
            writeLineBreakAfter(node);
            break;
        default:
            break; // a parse makes no other nodes
        }
    }

    void writeStartTag(const QDomElement &element)
    {
        write(QLatin1Char('<'), element.tagName());
        const QDomNamedNodeMap attributes = element.attributes();
        const int count = attributes.size();
        for (int i = 0; i < count; ++i) {
            const QDomNode attribute = attributes.item(i);
            write(QLatin1Char(' '), attribute.nodeName(), QLatin1String("=\""));
            writeEscaped(attribute.nodeValue(), Place::Attribute);
            write(QLatin1Char('"'));
        }
        const QDomNode child = element.firstChild();
        if (child.isNull()) {
            write(QLatin1String("/>"));
            writeLineBreakAfter(element);
            return;
        }
        write(QLatin1Char('>'));
        if (!isCharacterData(child))
            write(QLatin1Char('\n'));
    }

    void writeEndTag(const QDomNode &element, int depth)
    {
        if (!isCharacterData(element.lastChild()))
            writeBlanks(depth);
        write(QLatin1String("</"), element.nodeName(), QLatin1Char('>'));
        writeLineBreakAfter(element);
    }

    void writeComment(const QString &comment)
    {
        write(QLatin1String("<!--"), comment);
        if (comment.endsWith(QLatin1Char('-')))
            write(QLatin1Char(' '));
        write(QLatin1String("-->"));
    }

    void writeType(const QDomDocumentType &type)
    {
        if (type.name().isEmpty())
            return;
        write(QLatin1String("<!DOCTYPE "), type.name());
        writeIds(type.publicId(), type.systemId());
        const QDomNamedNodeMap notations = type.notations();
        const QDomNamedNodeMap entities = type.entities();
        if (!notations.isEmpty() || !entities.isEmpty()) {
            write(QLatin1String(" [\n"));
            for (int i = 0; i < notations.size(); ++i)
                writeNotation(notations.item(i).toNotation());
            for (int i = 0; i < entities.size(); ++i)
                writeEntity(entities.item(i).toEntity());
            write(QLatin1Char(']'));
        }
        write(QLatin1String(">\n"));
    }

    void writeNotation(const QDomNotation &notation)
    {
        write(QLatin1String("<!NOTATION "), notation.nodeName());
        writeIds(notation.publicId(), notation.systemId());
        write(QLatin1String(">\n"));
    }

    /// External entities alone: those with a value are in the tree already, expanded.
    void writeEntity(const QDomEntity &entity)
    {
        QString name = entity.nodeName();
        if (name.startsWith(QLatin1Char('%')))
            name.insert(1, QLatin1Char(' '));
        write(QLatin1String("<!ENTITY "), name);
        writeIds(entity.publicId(), entity.systemId());
        if (!entity.notationName().isNull())
            write(QLatin1String(" NDATA "), entity.notationName());
        write(QLatin1String(">\n"));
    }

    void writeIds(const QString &publicId, const QString &systemId)
    {
        if (!publicId.isNull())
            write(QLatin1String(" PUBLIC "), quoted(publicId));
        else if (!systemId.isNull())
            write(QLatin1String(" SYSTEM"));
        if (!systemId.isNull())
            write(QLatin1Char(' '), quoted(systemId));
    }

    static QString quoted(const QString &id)
    {
        const QLatin1Char quote(id.contains(QLatin1Char('\'')) ? '"' : '\'');
        return quote + id + quote;
    }

    void writeIndentation(const QDomNode &node, int depth)
    {
        if (!isCharacterData(node.previousSibling()))
            writeBlanks(depth);
    }

    void writeBlanks(int count)
    {
        for (int i = 0; i < count; ++i)
            write(QLatin1Char(' '));
    }

    void writeLineBreakAfter(const QDomNode &node)
    {
        if (!isCharacterData(node.nextSibling()))
            write(QLatin1Char('\n'));
    }

    void writeEscaped(const QString &value, Place place)
    {
        const int valueStart = m_text.size();
        int written = 0;
        for (int i = 0; i < value.size(); ++i) {
            const QChar character = value.at(i);
            if (!needsLook(character))
                continue;
            m_text.append(value.constData() + written, i - written);
            written = i + 1;
            writeSpecial(character, place, valueStart);
        }
        m_text.append(value.constData() + written, value.size() - written);
    }

    bool needsLook(QChar character)
    {
        switch (character.unicode()) {
        case '<':
        case '>':
        case '&':
        case '"':
        case '\t':
        case '\n':
        case '\r':
            return true;
        default:
            return !isEncodable(character);
        }
    }

    bool isEncodable(QChar character)
    {
        char &known = m_encodable.data()[character.unicode()];
        if (known == unknown)
            known = m_codec->canEncode(character) ? yes : no;
        return known == yes;
    }

    void writeSpecial(QChar character, Place place, int valueStart)
    {
        const bool inAttribute = place == Place::Attribute;
        const char16_t unit = character.unicode();
        if (unit == '<')
            m_text += QLatin1String("&lt;");
        else if (unit == '&')
            m_text += QLatin1String("&amp;");
        else if (unit == '"' && inAttribute)
            m_text += QLatin1String("&quot;");
        else if (unit == '>' && endsWithBrackets(valueStart))
            m_text += QLatin1String("&gt;");
        else if (unit == '\r' || (inAttribute && (unit == '\t' || unit == '\n')) || !isEncodable(character))
            write(QLatin1String("&#x"), QString::number(unit, 16), QLatin1Char(';'));
        else
            write(character);
    }

    bool endsWithBrackets(int valueStart) const
    {
        return m_text.size() - valueStart >= 2 && m_text.endsWith(QLatin1String("]]"));
    }

    const QTextCodec *m_codec;
    QByteArray m_encodable; // for each UTF-16 unit, as far as asked
    QString m_text;
};

} // namespace

QString textOfDocument(const QDomDocument &document)
{
    return Writer(document).text();
}
