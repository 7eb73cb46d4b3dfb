// Reads style sheets by the forgiving grammar of CSS and finds the rules of an element.

#include "SVGPreparation/StyleSheet.h"

#include "SVGPreparation/Scanner.h"
#include "SVGPreparation/Selector.h"

#include <algorithm>

namespace svgprep {

namespace {

/// The most compounds that are tried; a quarter of a thousand million take some ten seconds.
constexpr std::uint64_t mostSteps = std::uint64_t(1) << 28;

/// `css` without comments; a comment within a string stays.
QString withoutComments(QStringView css)
{
    QString text;
    text.reserve(static_cast<int>(css.size()));
    QChar quote;
    for (qsizetype i = 0; i < css.size(); ++i) {
        const QChar character = css[i];
        if (quote.isNull() && character == QLatin1Char('/') && i + 1 < css.size()
            && css[i + 1] == QLatin1Char('*')) {
            i += 2;
            while (i < css.size() && !(css[i] == QLatin1Char('/') && css[i - 1] == QLatin1Char('*')))
                ++i;
            text += QLatin1Char(' ');
            continue;
        }
        if (character == quote)
            quote = QChar();
        else if (quote.isNull() && (character == QLatin1Char('"') || character == QLatin1Char('\'')))
            quote = character;
        text += character;
    }
    return text;
}

/// Reads a style sheet without comments, piece by piece.
class CssReader {
public:
    explicit CssReader(QStringView css)
        : m_css(css)
    {
    }

    bool atEnd() const { return m_at >= m_css.size(); }
    QChar next() const { return atEnd() ? QChar() : m_css[m_at]; }
    void advance() { ++m_at; }
    void skipBlanks()
    {
        while (!atEnd() && isBlank(next()))
            advance();
    }

    /// Reads up to the first of `ends` outside of strings, parentheses and brackets, and stops at that
    /// character. An escaped character ends nothing.
    QStringView readBefore(const char *ends)
    {
        const QLatin1String stops(ends);
        const qsizetype begin = m_at;
        int depth = 0;
        for (; !atEnd(); advance()) {
            const QChar character = next();
            if (depth == 0 && stops.contains(character))
                break;
            if (character == QLatin1Char('\\'))
                advance();
            else if (character == QLatin1Char('(') || character == QLatin1Char('['))
                ++depth;
            else if ((character == QLatin1Char(')') || character == QLatin1Char(']')) && depth > 0)
                --depth;
            else if (character == QLatin1Char('"') || character == QLatin1Char('\''))
                skipString(character);
        }
        m_at = std::min(m_at, m_css.size());
        return m_css.mid(begin, m_at - begin);
    }

    /// Reads the content of the braces that begin here and skips their end.
    QStringView readBlock()
    {
        advance();
        const qsizetype begin = m_at;
        int depth = 1;
        while (!atEnd()) {
            readBefore("{}");
            depth += next() == QLatin1Char('{') ? 1 : -1;
            if (depth == 0 || atEnd())
                break;
            advance();
        }
        const QStringView inside = m_css.mid(begin, m_at - begin);
        advance();
        return inside;
    }

private:
    /// Moves to the quote at the end of the string that begins here.
    void skipString(QChar quote)
    {
        for (advance(); !atEnd() && next() != quote; advance()) {
            if (next() == QLatin1Char('\\'))
                advance();
        }
    }

    QStringView m_css;
    qsizetype m_at = 0;
};

/// Whether one of `queries` fits a screen of unknown size with bright colours.
bool isMedium(QStringView queries)
{
    for (const QString &text : queries.toString().toLower().split(QLatin1Char(','))) {
        const QString query = text.simplified();
        const bool asksMore = query.contains(QLatin1Char('(')) && !query.contains(QLatin1String("light"));
        const bool isOther = query.startsWith(QLatin1String("not"))
            || query.startsWith(QLatin1String("print")) || query.startsWith(QLatin1String("only print"))
            || query.startsWith(QLatin1String("speech"));
        if (!asksMore && !isOther)
            return true;
    }
    return false;
}

/// Whether the block of the at-rule `prelude`, such as "@media print", holds rules that count.
bool holdsRules(QStringView prelude)
{
    Scanner scanner(prelude);
    scanner.take('@');
    const QStringView name = scanner.word();
    if (name.compare(QLatin1String("media"), Qt::CaseInsensitive) == 0)
        return isMedium(prelude.mid(1 + name.size()));
    return name.compare(QLatin1String("supports"), Qt::CaseInsensitive) == 0
        || name.compare(QLatin1String("layer"), Qt::CaseInsensitive) == 0;
}

/// Gathers the declarations of one block.
class Declarations {
public:
    explicit Declarations(Units units)
        : m_units(units)
    {
    }

    void add(const QString &name, QString value);
    std::vector<Declaration> taken() { return std::move(m_declarations); }

private:
    void addIfValid(Property property, const QString &value);
    void expandMarker(const QString &value);
    void expandFont(const QString &value);

    const Units m_units;
    bool m_isImportant = false;
    std::vector<Declaration> m_declarations;
};

void Declarations::add(const QString &name, QString value)
{
    const QLatin1String mark("!important");
    QString tail = value.right(mark.size() + 8).toLower();
    tail.remove(QLatin1Char(' '));
    m_isImportant = tail.endsWith(mark);
    if (m_isImportant)
        value = value.left(value.lastIndexOf(QLatin1Char('!'))).trimmed();

    if (name == QLatin1String("marker"))
        expandMarker(value);
    else if (name == QLatin1String("font"))
        expandFont(value);
    else if (const std::optional<Property> property = propertyNamed(name))
        addIfValid(*property, value);
}

void Declarations::addIfValid(Property property, const QString &value)
{
    if (isValid(property, value, m_units))
        m_declarations.push_back({property, value, m_isImportant});
}

void Declarations::expandMarker(const QString &value)
{
    for (const Property property : {Property::MarkerStart, Property::MarkerMid, Property::MarkerEnd})
        addIfValid(property, value);
}

/// Expands font: style and weight in any order, then the size with an optional line height, then families.
void Declarations::expandFont(const QString &value)
{
    Scanner scanner(value);
    for (;;) {
        scanner.skipBlanks();
        if (scanner.atEnd())
            return;
        const QString word = scanner.untilBlank().toString();
        const QString size = word.section(QLatin1Char('/'), 0, 0);
        if (isValid(Property::FontSize, size) && !isValid(Property::FontWeight, size)) {
            addIfValid(Property::FontSize, size);
            break;
        }
        for (const Property property : {Property::FontStyle, Property::FontWeight})
            addIfValid(property, word);
    }
    scanner.skipBlanks();
    addIfValid(Property::FontFamily, scanner.rest().toString());
}

} // namespace

struct StyleSheet::Rule {
    struct OrderedDeclaration {
        Declaration declaration;
        std::uint32_t order;
    };

    Selector selector;
    std::uint32_t specificity;
    std::vector<OrderedDeclaration> declarations; // at most one plain and one important one for each property

    void add(const Declaration &added, std::uint32_t order)
    {
        for (OrderedDeclaration &known : declarations) {
            if (known.declaration.property == added.property
                && known.declaration.isImportant == added.isImportant) {
                known = {added, order};
                return;
            }
        }
        declarations.push_back({added, order});
    }
};

StyleSheet::StyleSheet() = default;
StyleSheet::~StyleSheet() = default;

void StyleSheet::add(const QString &css)
{
    const QString text = withoutComments(css);
    CssReader reader(text);
    // The rules within an at-rule are read in its place; its closing brace is then met alone.
    while (reader.skipBlanks(), !reader.atEnd()) {
        if (reader.next() == QLatin1Char('}') || reader.next() == QLatin1Char(';')) {
            reader.advance();
            continue;
        }
        const QStringView prelude = reader.readBefore("{;}");
        if (reader.next() != QLatin1Char('{'))
            continue;
        if (!prelude.startsWith(QLatin1Char('@')))
            addRule(prelude.toString(), declarationsFrom(reader.readBlock(), Units::Needed));
        else if (holdsRules(prelude))
            reader.advance();
        else
            reader.readBlock();
    }
}

void StyleSheet::addRule(const QString &selectors, const std::vector<Declaration> &declarations)
{
    if (declarations.empty())
        return;
    std::vector<Rule *> rules;
    CssReader reader(selectors);
    for (;;) {
        QString selector = reader.readBefore(",").toString().simplified();
        // Older files wrap their sheets in an XML comment.
        for (const char *bracket : {"<!--", "-->"}) {
            if (selector.startsWith(QLatin1String(bracket)))
                selector = selector.mid(static_cast<int>(qstrlen(bracket))).trimmed();
        }
        Rule *rule = ruleFor(selector);
        if (!rule)
            return;
        rules.push_back(rule);
        if (reader.atEnd())
            break;
        reader.advance();
    }
    for (const Declaration &declaration : declarations) {
        ++m_declarationCount;
        for (Rule *rule : rules)
            rule->add(declaration, m_declarationCount);
    }
    m_isEmpty = false;
}

/// The rule of `selector`, a new one when there is none yet; null when `selector` cannot be read.
StyleSheet::Rule *StyleSheet::ruleFor(const QString &selector)
{
    if (Rule *known = m_ruleBySelector.value(selector))
        return known;
    std::optional<Selector> parsed = Selector::parsed(selector);
    if (!parsed)
        return nullptr;

    m_rules.push_back(std::make_unique<Rule>(Rule{*parsed, parsed->specificity(), {}}));
    Rule *rule = m_rules.back().get();
    m_ruleBySelector.insert(selector, rule);
    if (parsed->isUnknown())
        return rule;
    const CompoundSelector &subject = parsed->subject();
    if (!subject.id.isEmpty())
        m_byId[subject.id].push_back(rule);
    else if (!subject.classes.empty())
        m_byClass[subject.classes.front()].push_back(rule);
    else if (!subject.tag.isEmpty())
        m_byTag[subject.tag].push_back(rule);
    else
        m_others.push_back(rule);
    return rule;
}

bool StyleSheet::apply(const QDomElement &element, Declared &declared)
{
    if (m_isEmpty)
        return true;
    bool isDone = applyRules(m_others, element, declared);
    const auto applyFrom = [&](const QHash<QString, Rules> &rules, const QString &key) {
        const auto found = rules.constFind(key);
        if (isDone && found != rules.constEnd())
            isDone = applyRules(*found, element, declared);
    };
    applyFrom(m_byTag, element.tagName());
    if (!m_byId.isEmpty())
        applyFrom(m_byId, element.attribute(QStringLiteral("id")));
    const QString classes = m_byClass.isEmpty() ? QString() : element.attribute(QStringLiteral("class"));
    Scanner scanner(classes);
    while (scanner.skipBlanks(), !scanner.atEnd())
        applyFrom(m_byClass, scanner.untilBlank().toString());
    return isDone;
}

bool StyleSheet::applyRules(const Rules &rules, const QDomElement &element, Declared &declared)
{
    for (const Rule *rule : rules) {
        if (m_steps > mostSteps)
            return false;
        if (!rule->selector.matches(element, m_steps))
            continue;
        for (const Rule::OrderedDeclaration &entry : rule->declarations) {
            const std::uint64_t priority = rulePriority(rule->specificity, entry.order)
                | (entry.declaration.isImportant ? importance : 0);
            declared.offer(entry.declaration.property, entry.declaration.value, priority);
        }
    }
    return true;
}

std::vector<Declaration> declarationsFrom(QStringView text, Units units)
{
    const QString cleaned = withoutComments(text);
    CssReader reader(cleaned);
    Declarations declarations(units);
    while (!reader.atEnd()) {
        const QStringView name = withoutBlanks(reader.readBefore(":;{"));
        if (reader.next() == QLatin1Char('{')) { // a rule within a rule
            reader.readBlock();
            continue;
        }
        if (reader.next() == QLatin1Char(':')) {
            reader.advance();
            const QStringView value = withoutBlanks(reader.readBefore(";"));
            declarations.add(name.toString().toLower(), value.toString());
        }
        reader.advance();
    }
    return declarations.taken();
}

} // namespace svgprep
