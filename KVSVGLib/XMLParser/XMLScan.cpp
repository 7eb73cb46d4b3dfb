// Walks once along the text, and once along the value of each entity where it is declared. A reference then
// costs one look into a table. Markup is read exactly as Qt reads it, so that nothing can hide between the
// two.

#include "XMLScan.h"

#include "XMLTree.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>

namespace {

// Qt crashes at 738 levels and at some 10,000 parentheses on the 1 MiB stack of a Windows user-interface
// thread.
constexpr int deepestNesting = 256;
constexpr int mostParentheses = 256;

// Qt counts from the first attribute, entity or notation to find the i-th. The attributes of a text together
// may take as long as the text itself; elements with a few hundred of them stay far below.
constexpr int mostAttributes = 4096;
constexpr int mostDeclarations = 1024;
constexpr qint64 freeSteps = 64 * 1024 * 1024;
constexpr qint64 stepsPerCharacter = 32;

// Drawings with their styles as entities grow to twice their size at most. The constant lets small ones grow
// freely. An element takes the memory of some 64 characters, however short it is.
constexpr qint64 freeGrowth = 4 * 1024 * 1024;
constexpr qint64 growthPerCharacter = 4;
constexpr qint64 growthPerElement = 64;

// Qt searches the value of every entity for every other one, and moves the rest of the value for each it
// finds.
constexpr qint64 mostComparisons = 64 * 1024 * 1024;
constexpr qint64 comparisonsPerEntity = 30;

/// The meaning of a reference.
struct Entity {
    qint64 length = 0; // of the value, with all its references expanded
    int depth = 0;     // of the elements in the value, likewise
};

/// The main text or the value of an entity, with the state of its scan.
struct Content {
    QString text;
    int position = 0;
    int depth = 0;
    int deepest = 0;   // with the elements of its entities
    qint64 growth = 0; // characters that entities add

    bool startsWith(const char *start) const
    {
        int i = position;
        for (; *start != '\0' && i < text.size() && text.at(i) == QLatin1Char(*start); ++i)
            ++start;
        return *start == '\0';
    }

    /// Moves behind the first `end` that begins at least `from` characters later. Without one the rest counts
    /// as an element that is never closed.
    void skipPast(const QString &end, int from)
    {
        const int found = text.indexOf(end, position + from);
        depth += found < 0 ? 1 : 0;
        position = found < 0 ? text.size() : found + end.size();
    }

    /// Skips a comment, a CDATA section or an instruction at the position, and tells whether there is one.
    bool skipSection()
    {
        const int start = position;
        if (startsWith("<!--"))
            skipPast(QStringLiteral("-->"), 4);
        else if (startsWith("<!["))
            skipPast(QStringLiteral("]]>"), 3);
        else if (startsWith("<?"))
            skipPast(QStringLiteral("?>"), 2);
        return position > start;
    }
};

/// Replaces references to characters like Qt in the declaration of an entity: only their lower 16 bits count.
QString decoded(const QString &literal)
{
    static const QRegularExpression reference(QStringLiteral("&#(x?)([0-9A-Fa-f]+);"));
    QString value;
    int from = 0;
    for (auto matches = reference.globalMatch(literal); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        value += literal.midRef(from, match.capturedStart() - from);
        value += QChar(match.captured(2).toUInt(nullptr, match.capturedLength(1) > 0 ? 16 : 10));
        from = match.capturedEnd();
    }
    return value + literal.midRef(from);
}

class Scan {
public:
    explicit Scan(const QString &text) { m_main.text = text; }

    std::optional<XMLRefusal> refusal()
    {
        if (requireAtMost(m_main.text.size(), largestXmlFile, "larger than %1 characters"))
            scanContent(m_main);
        return m_reason.isEmpty() ? std::nullopt : std::optional(XMLRefusal{m_main.position, m_reason});
    }

private:
    // A step is false where the scan ends. It gives a reason when the text is refused, and none when the text
    // is not well-formed: Qt ends there too.

    bool refuse(const QString &reason)
    {
        if (m_reason.isEmpty())
            m_reason = reason;
        return false;
    }

    bool requireAtMost(qint64 count, qint64 most, const char *reason)
    {
        return count <= most || refuse(QString::fromLatin1(reason).arg(most));
    }

    bool grow(Content &content, qint64 growth, int depth)
    {
        content.growth += growth;
        content.deepest = qMax(content.deepest, content.depth + depth);
        const qint64 mostGrowth = freeGrowth + growthPerCharacter * m_main.text.size();
        return requireAtMost(content.growth, mostGrowth, "grows by more than %1 characters through entities")
            && requireAtMost(content.deepest, deepestNesting, "nested deeper than %1 levels");
    }

    bool isValue(const Content &content) const { return &content != &m_main; }

    bool scanContent(Content &content)
    {
        for (;;) {
            const int tag = content.text.indexOf(u'<', content.position);
            if (!scanReferences(content, tag < 0 ? content.text.size() : tag))
                return false;
            if (tag < 0)
                return true;
            content.position = tag;
            if (!content.skipSection() && !scanTag(content))
                return false;
        }
    }

    bool scanTag(Content &content)
    {
        if (content.startsWith("<!"))
            return !isValue(content) && scanDocumentType();
        if (content.startsWith("</")) {
            content.skipPast(QStringLiteral(">"), 2);
            return --content.depth >= 0;
        }

        const int attributes = skipTo(content, u'>');
        if (attributes < 0 || !grow(content, isValue(content) ? growthPerElement : 0, 1))
            return false;
        if (content.text.at(content.position - 2) != u'/')
            ++content.depth;
        m_steps += qint64(attributes) * attributes;
        return requireAtMost(m_steps, freeSteps + stepsPerCharacter * m_main.text.size(),
                             "attributes that take more than %1 steps to write");
    }

    /// Moves behind the first `end` or > outside of quotes. Returns the number of quoted parts before it; -1
    /// without one.
    int skipTo(Content &content, QChar end)
    {
        for (int quoted = 0; content.position < content.text.size();) {
            const QChar character = content.text.at(content.position++);
            if (character == end || character == u'>')
                return quoted;
            if (character != u'"' && character != u'\'')
                continue;
            const int quote = content.text.indexOf(character, content.position);
            if (quote < 0 || !scanReferences(content, quote)
                || !requireAtMost(++quoted, mostAttributes, "more than %1 attributes in one element"))
                return -1;
            content.position = quote + 1;
        }
        return -1;
    }

    /// Adds up the growth by the references between the position and `end`.
    bool scanReferences(Content &content, int end)
    {
        if (m_entities.isEmpty() && !isValue(content))
            return true;
        const QStringRef text = content.text.leftRef(end);
        for (int at = text.indexOf(u'&', content.position); at >= 0;) {
            const int nameEnd = text.indexOf(u';', at);
            if (nameEnd < 0)
                return !isValue(content);
            const QString name = text.mid(at + 1, nameEnd - at - 1).toString();
            const Entity entity = m_entities.value(name);
            if (isValue(content))
                m_usedInValues.insert(name);
            if (!grow(content, entity.length, entity.depth))
                return false;
            at = text.indexOf(u'&', nameEnd);
        }
        return true;
    }

    bool scanDocumentType()
    {
        if (skipTo(m_main, u'[') < 0)
            return false;
        if (m_main.text.at(m_main.position - 1) == u'>')
            return true;
        for (;;) {
            if (m_main.startsWith("]"))
                return skipTo(m_main, u'>') >= 0;
            if (m_main.startsWith("%"))
                m_main.skipPast(QStringLiteral(";"), 0); // it inserts no markup, see scanEntity()
            else if (m_main.position < m_main.text.size() && m_main.text.at(m_main.position).isSpace())
                ++m_main.position;
            else if (!m_main.skipSection() && !scanDeclaration())
                return false;
        }
    }

    bool scanDeclaration()
    {
        const int start = m_main.position;
        if (!m_main.startsWith("<!") || skipTo(m_main, u'>') < 0)
            return false;
        const QString declaration = m_main.text.mid(start, m_main.position - start);
        const bool isEntity = declaration.startsWith(QLatin1String("<!EN"));
        m_declarations += isEntity || declaration.startsWith(QLatin1String("<!N")) ? 1 : 0;
        return requireAtMost(m_declarations, mostDeclarations, "more than %1 entities and notations")
            && (isEntity ? scanEntity(declaration)
                         : requireAtMost(declaration.count(u'('), mostParentheses,
                                         "a content model of more than %1 parentheses"));
    }

    /// Scans the value of an entity, if it has one. The value of a parameter entity must be a mere word: Qt
    /// puts it among the declarations, where this scan never sees it.
    bool scanEntity(const QString &declaration)
    {
        static const QRegularExpression pattern(QStringLiteral(
            R"re(^<!ENTITY\s+(?:([^\s%]+)\s+(?:"([^"%]*)"|'([^'%]*)')\s*>$|(?:%\s+)?[^\s%]+\s+[SP]|%\s+[^\s%]+\s+["'][^<%&\]"']*["']\s*>$))re"));
        const QRegularExpressionMatch match = pattern.match(declaration);
        if (!match.hasMatch())
            return refuse(QStringLiteral("an entity that cannot be read or holds declarations"));
        const QString name = match.captured(1);
        const QString value = decoded(match.captured(2) + match.captured(3));
        if (name.isEmpty() || m_entities.contains(name)) // the first declaration counts
            return true;
        m_comparisons += (comparisonsPerEntity + value.size()) * (m_entities.size() + value.count(u'&'));
        return requireAtMost(m_comparisons, mostComparisons,
                             "entities that take more than %1 steps to compare")
            && scanValue(name, value);
    }

    bool scanValue(const QString &name, const QString &value)
    {
        // Qt knows these and ignores their declarations.
        if (QStringLiteral(" amp lt gt quot apos ").contains(u' ' + name + u' '))
            return true;
        Content content;
        content.text = value;
        if (!scanContent(content) || content.depth != 0)
            return refuse(QStringLiteral("an entity that holds a part of an element or of a reference"));
        if (m_usedInValues.contains(name))
            return refuse(QStringLiteral("an entity that refers to itself or to a later one"));
        m_entities.insert(name, {value.size() + content.growth, content.deepest});
        return true;
    }

    Content m_main;
    QString m_reason;
    QHash<QString, Entity> m_entities;
    QSet<QString> m_usedInValues;
    qint64 m_comparisons = 0;
    qint64 m_steps = 0;
    int m_declarations = 0;
};

} // namespace

std::optional<XMLRefusal> refusalOf(const QString &text)
{
    return Scan(text).refusal();
}
