// The limits, and where each is checked.

#include "XMLGuard.h"

#include "XMLEntities.h"
#include "XMLLimits.h"

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

// A drawing whose styles are entities grows to twice its size at the most. The constant lets a small one grow
// freely.
constexpr qint64 growth = 4;
constexpr qint64 freeGrowth = 4 * 1024 * 1024;

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

XMLGuard::XMLGuard(const QString *text)
    : m_text(text)
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
    m_lacksText = !m_text;
    if (m_lacksText)
        return false;
    return !hasDeepContentModel(*m_text) && m_lexical->startDTD(name, publicId, systemId);
}

bool XMLGuard::endDTD()
{
    const qint64 limit = freeGrowth + growth * m_text->size();
    if (!m_entities.isEmpty() && expandedSize(*m_text, m_entities, limit) > limit)
        return false;
    return m_lexical->endDTD();
}

bool XMLGuard::internalEntityDecl(const QString &name, const QString &value)
{
    const bool isParameterEntity = name.startsWith(QLatin1Char('%'));
    if (isParameterEntity && (isTooDeep(QStringRef(&value)) || endsInsideDeclaration(value)))
        return false;
    if (!isParameterEntity)
        m_entities.insert(name, value);
    return countDeclaration(value) && m_declaration->internalEntityDecl(name, value);
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
