// The limits, and where each is checked.

#include "XMLGuard.h"

#include "XMLLimits.h"

#include <QRegularExpression>
#include <QXmlInputSource>

#include <algorithm>

namespace {

// On the same small stack Qt dies at some 10,000 parentheses.
constexpr int deepestParentheses = 256;

// Qt gives the i-th attribute, entity or notation of a tree only by counting from the first one.
constexpr int mostAttributes = 256;
constexpr int mostDeclarations = 1024;

// With each entity declared Qt looks through all those before it, 1 ns for a character and 30 for an entity.
constexpr qint64 costPerDeclaration = 30;
constexpr qint64 highestDeclarationCost = 64 * 1024 * 1024;

/// Whether the parentheses in `text` nest too deep.
bool isTooDeep(const QStringRef &text)
{
    int depth = 0;
    return std::any_of(text.begin(), text.end(), [&depth](QChar character) {
        if (character == QLatin1Char('('))
            ++depth;
        else if (character == QLatin1Char(')') && depth > 0)
            --depth;
        return depth > deepestParentheses;
    });
}

/// Whether a content model in `text` nests too deep.
bool hasDeepContentModel(const QString &text)
{
    const QLatin1String declaration("<!ELEMENT");
    int end = 0;
    for (int start = text.indexOf(declaration); start >= 0; start = text.indexOf(declaration, end)) {
        end = text.indexOf(QLatin1Char('>'), start);
        if (end < 0)
            end = text.size();
        if (isTooDeep(text.midRef(start, end - start)))
            return true;
    }
    return false;
}

/// Whether the last declaration in `value` goes on behind it, where hasDeepContentModel() does not see its
/// beginning.
bool endsInsideDeclaration(const QString &value)
{
    return value.lastIndexOf(QLatin1Char('<')) > value.lastIndexOf(QLatin1Char('>'));
}

} // namespace

XMLGuard::XMLGuard(const QString &text)
    : m_text(&text)
{
}

XMLGuard::XMLGuard(const QXmlInputSource &source)
    : m_source(&source)
    , m_beginning(source.data())
{
}

bool XMLGuard::startElement(const QString &uri, const QString &localName, const QString &name,
                            const QXmlAttributes &attributes)
{
    ++m_depth;
    return m_depth <= deepestXmlNesting && attributes.count() <= mostAttributes
        && m_content->startElement(uri, localName, name, attributes);
}

bool XMLGuard::endElement(const QString &uri, const QString &localName, const QString &name)
{
    --m_depth;
    return m_content->endElement(uri, localName, name);
}

bool XMLGuard::skippedEntity(const QString &name)
{
    m_lacksText = !m_text;
    if (m_lacksText)
        return false;
    m_hasSkippedEntity = true;
    return m_content->skippedEntity(name);
}

bool XMLGuard::startDTD(const QString &name, const QString &publicId, const QString &systemId)
{
    m_lacksText = !m_text && !beginsWithPlainDocumentType();
    if (m_lacksText || (m_text && hasDeepContentModel(*m_text)))
        return false;
    return m_lexical->startDTD(name, publicId, systemId);
}

/// Whether the document type that the parser is in declares nothing. Most have an address and no more.
bool XMLGuard::beginsWithPlainDocumentType() const
{
    const QLatin1String start("<!DOCTYPE");
    static const QRegularExpression plain(QStringLiteral(
        R"re(<!DOCTYPE\s+[^\s"'<>\[]+(\s+(PUBLIC\s+("[^"]*"|'[^']*')|SYSTEM)\s+("[^"]*"|'[^']*'))?\s*>)re"));
    // As long as the source has moved no further than the beginning, the one that stands there is the one
    // parsed.
    const bool isInBeginning = m_source->data().constData() == m_beginning.constData();
    return isInBeginning && m_beginning.count(start) == 1 && plain.match(m_beginning).hasMatch();
}

bool XMLGuard::internalEntityDecl(const QString &name, const QString &value)
{
    const bool isParameterEntity = name.startsWith(QLatin1Char('%'));
    if (isParameterEntity && (isTooDeep(QStringRef(&value)) || endsInsideDeclaration(value)))
        return false;
    m_lacksText = !m_text;
    if (m_lacksText)
        return false;
    if (!m_entities)
        m_entities.emplace(*m_text);
    return m_entities->declare(name, value) && countDeclaration(value)
        && m_declaration->internalEntityDecl(name, value);
}

bool XMLGuard::externalEntityDecl(const QString &name, const QString &publicId, const QString &systemId)
{
    return countDeclaration(QString()) && m_declaration->externalEntityDecl(name, publicId, systemId);
}

bool XMLGuard::notationDecl(const QString &name, const QString &publicId, const QString &systemId)
{
    return countDeclaration(QString()) && m_documentType->notationDecl(name, publicId, systemId);
}

bool XMLGuard::unparsedEntityDecl(const QString &name, const QString &publicId, const QString &systemId,
                                  const QString &notation)
{
    return countDeclaration(QString())
        && m_documentType->unparsedEntityDecl(name, publicId, systemId, notation);
}

bool XMLGuard::countDeclaration(const QString &value)
{
    ++m_declarations;
    m_declaredSize += costPerDeclaration + value.size();
    m_declarationCost += m_declaredSize;
    return m_declarations <= mostDeclarations && m_declarationCost <= highestDeclarationCost;
}
