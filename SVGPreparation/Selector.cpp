// Reads selectors and tries them on elements, from the picked element outwards.

#include "SVGPreparation/Selector.h"

#include "SVGPreparation/Scanner.h"

#include <QSet>

#include <algorithm>
#include <array>

namespace svgprep {

namespace {

/// Matching recurses once for each part, so a longer selector picks nothing.
constexpr std::size_t mostCompounds = 64;

bool isNameCharacter(QChar character)
{
    return character.isLetterOrNumber() || character == QLatin1Char('-') || character == QLatin1Char('_')
        || character == QLatin1Char('\\') || character.unicode() >= 0x80;
}

bool isHexDigit(QChar character)
{
    const ushort lower = character.toLower().unicode();
    return (lower >= '0' && lower <= '9') || (lower >= 'a' && lower <= 'f');
}

/// CSS: a backslash and up to six hexadecimal digits stand for a character. A backslash before any other
/// character stands for that character.
QString readEscape(Scanner &scanner)
{
    QString digits;
    while (digits.size() < 6 && isHexDigit(scanner.next())) {
        digits += scanner.next();
        scanner.advance();
    }
    if (!digits.isEmpty()) {
        if (isBlank(scanner.next()))
            scanner.advance();
        const uint code = digits.toUInt(nullptr, 16);
        return QString::fromUcs4(&code, 1);
    }
    if (scanner.atEnd())
        return {};
    QString character = scanner.next();
    scanner.advance();
    return character;
}

QString readName(Scanner &scanner)
{
    QString text;
    while (!scanner.atEnd() && isNameCharacter(scanner.next())) {
        if (scanner.take('\\')) {
            text += readEscape(scanner);
        } else {
            text += scanner.next();
            scanner.advance();
        }
    }
    return text;
}

struct TestOperator {
    char sign;
    AttributeTest::Kind kind;
};

constexpr TestOperator testOperators[] = {
    {'~', AttributeTest::Kind::Word},   {'|', AttributeTest::Kind::LanguagePrefix},
    {'^', AttributeTest::Kind::Prefix}, {'$', AttributeTest::Kind::Suffix},
    {'*', AttributeTest::Kind::Part},
};

QString readQuotedOrName(Scanner &scanner)
{
    for (const char quote : {'"', '\''}) {
        if (scanner.take(quote))
            return scanner.until(quote).toString();
    }
    return readName(scanner);
}

/// Reads the test after "[".
std::optional<AttributeTest> readAttributeTest(Scanner &scanner)
{
    AttributeTest test;
    scanner.skipBlanks();
    test.name = readName(scanner);
    if (test.name.isEmpty())
        return {};
    scanner.skipBlanks();
    if (scanner.take(']'))
        return test;
    test.kind = AttributeTest::Kind::Equal;
    for (const TestOperator &row : testOperators) {
        if (scanner.take(row.sign))
            test.kind = row.kind;
    }
    if (!scanner.take('='))
        return {};
    scanner.skipBlanks();
    test.value = readQuotedOrName(scanner);
    scanner.skipBlanks();
    if (scanner.take('i') || scanner.take('I'))
        test.sensitivity = Qt::CaseInsensitive;
    scanner.skipBlanks();
    return scanner.take(']') ? std::optional<AttributeTest>(test) : std::nullopt;
}

bool passes(const QDomElement &element, const AttributeTest &test)
{
    if (!element.hasAttribute(test.name))
        return false;
    const QString value = element.attribute(test.name);
    switch (test.kind) {
    case AttributeTest::Kind::Present:
        return true;
    case AttributeTest::Kind::Equal:
        return value.compare(test.value, test.sensitivity) == 0;
    case AttributeTest::Kind::Word:
        return hasWord(value, test.value, test.sensitivity);
    case AttributeTest::Kind::Prefix:
        return !test.value.isEmpty() && value.startsWith(test.value, test.sensitivity);
    case AttributeTest::Kind::Suffix:
        return !test.value.isEmpty() && value.endsWith(test.value, test.sensitivity);
    case AttributeTest::Kind::Part:
        return !test.value.isEmpty() && value.contains(test.value, test.sensitivity);
    case AttributeTest::Kind::LanguagePrefix:
        return value.compare(test.value, test.sensitivity) == 0
            || value.startsWith(test.value + QLatin1Char('-'), test.sensitivity);
    }
    return false;
}

/// The cost of looking through `text`, in steps.
std::uint64_t costOf(const QString &text)
{
    return static_cast<std::uint64_t>(text.size()) / 32;
}

bool isMatch(const QDomElement &element, const CompoundSelector &compound, std::uint64_t &steps)
{
    ++steps;
    if (!compound.tag.isEmpty() && element.tagName() != compound.tag)
        return false;
    if (!compound.id.isEmpty() && element.attribute(QStringLiteral("id")) != compound.id)
        return false;
    if (!compound.classes.empty()) {
        const QString words = element.attribute(QStringLiteral("class"));
        steps += compound.classes.size() * costOf(words);
        const auto isIn = [&words](const QString &word) { return hasWord(words, word); };
        if (!std::all_of(compound.classes.begin(), compound.classes.end(), isIn))
            return false;
    }
    return std::all_of(compound.attributes.begin(), compound.attributes.end(),
                       [&](const AttributeTest &test) {
                           steps += costOf(element.attribute(test.name));
                           return passes(element, test);
                       });
}

enum class Reading { Good, Unknown, Bad };

/// Whether browsers know a pseudo-class or pseudo-element of this name.
bool isPseudo(const QString &name)
{
    static const QSet<QString> names = {
        QStringLiteral("active"),
        QStringLiteral("after"),
        QStringLiteral("any-link"),
        QStringLiteral("before"),
        QStringLiteral("checked"),
        QStringLiteral("disabled"),
        QStringLiteral("empty"),
        QStringLiteral("enabled"),
        QStringLiteral("first-child"),
        QStringLiteral("first-letter"),
        QStringLiteral("first-line"),
        QStringLiteral("first-of-type"),
        QStringLiteral("focus"),
        QStringLiteral("focus-visible"),
        QStringLiteral("focus-within"),
        QStringLiteral("fullscreen"),
        QStringLiteral("has"),
        QStringLiteral("host"),
        QStringLiteral("hover"),
        QStringLiteral("is"),
        QStringLiteral("lang"),
        QStringLiteral("last-child"),
        QStringLiteral("last-of-type"),
        QStringLiteral("link"),
        QStringLiteral("not"),
        QStringLiteral("nth-child"),
        QStringLiteral("nth-last-child"),
        QStringLiteral("nth-last-of-type"),
        QStringLiteral("nth-of-type"),
        QStringLiteral("only-child"),
        QStringLiteral("only-of-type"),
        QStringLiteral("root"),
        QStringLiteral("selection"),
        QStringLiteral("target"),
        QStringLiteral("visited"),
        QStringLiteral("where"),
    };
    return names.contains(name) || name.startsWith(QLatin1String("-webkit-"));
}

/// Skips a pseudo-class or pseudo-element and its parentheses.
Reading skipPseudo(Scanner &scanner)
{
    scanner.take(':');
    if (!isPseudo(readName(scanner).toLower()))
        return Reading::Bad;
    if (scanner.take('(')) {
        int depth = 1;
        while (depth > 0 && !scanner.atEnd()) {
            if (scanner.next() == QLatin1Char('('))
                ++depth;
            if (scanner.next() == QLatin1Char(')'))
                --depth;
            scanner.advance();
        }
    }
    return Reading::Unknown;
}

/// Reads one part of a compound selector, at the sign that begins it.
Reading readPart(Scanner &scanner, CompoundSelector &compound)
{
    if (scanner.take('#')) {
        compound.id = readName(scanner);
        return compound.id.isEmpty() ? Reading::Bad : Reading::Good;
    }
    if (scanner.take('.')) {
        compound.classes.push_back(readName(scanner));
        return compound.classes.back().isEmpty() ? Reading::Bad : Reading::Good;
    }
    if (scanner.take('[')) {
        const std::optional<AttributeTest> test = readAttributeTest(scanner);
        if (!test)
            return Reading::Bad;
        compound.attributes.push_back(*test);
        return Reading::Good;
    }
    return scanner.take(':') ? skipPseudo(scanner) : Reading::Bad;
}

bool beginsPart(QChar character)
{
    return character == QLatin1Char('#') || character == QLatin1Char('.') || character == QLatin1Char('[')
        || character == QLatin1Char(':');
}

Reading readCompound(Scanner &scanner, CompoundSelector &compound)
{
    bool isEmpty = true;
    Reading reading = Reading::Good;
    if (scanner.take('*')) {
        isEmpty = false;
    } else if (isNameCharacter(scanner.next())) {
        compound.tag = readName(scanner);
        isEmpty = false;
    }
    if (scanner.take('|')) // the prefix of a namespace; only elements of SVG are ever asked about
        compound.tag = scanner.take('*') ? QString() : readName(scanner);
    while (beginsPart(scanner.next())) {
        isEmpty = false;
        const Reading part = readPart(scanner, compound);
        if (part == Reading::Bad)
            return part;
        if (part == Reading::Unknown)
            reading = part;
    }
    return isEmpty ? Reading::Bad : reading;
}

Combinator readCombinator(Scanner &scanner)
{
    struct Row {
        char sign;
        Combinator combinator;
    };
    constexpr Row rows[] = {
        {'>', Combinator::Parent}, {'+', Combinator::Previous}, {'~', Combinator::Earlier}};
    Combinator combinator = Combinator::Ancestor;
    scanner.skipBlanks();
    for (const Row &row : rows) {
        if (scanner.take(row.sign))
            combinator = row.combinator;
    }
    scanner.skipBlanks();
    return combinator;
}

bool reachesFarther(Combinator combinator)
{
    return combinator == Combinator::Ancestor || combinator == Combinator::Earlier;
}

bool asksUpwards(Combinator combinator)
{
    return combinator == Combinator::Ancestor || combinator == Combinator::Parent;
}

QDomElement neighbour(const QDomElement &element, Combinator combinator)
{
    return asksUpwards(combinator) ? element.parentNode().toElement() : element.previousSiblingElement();
}

} // namespace

std::optional<Selector> Selector::parsed(QStringView text)
{
    Selector selector;
    Scanner scanner(withoutBlanks(text));
    for (;;) {
        CompoundSelector compound;
        const Reading reading = readCompound(scanner, compound);
        if (reading == Reading::Bad)
            return {};
        selector.m_isUnknown = selector.m_isUnknown || reading == Reading::Unknown;
        selector.m_compounds.push_back(std::move(compound));
        if (scanner.atEnd())
            break;
        selector.m_combinators.push_back(readCombinator(scanner));
    }
    if (selector.m_compounds.size() > mostCompounds)
        selector.m_isUnknown = true;
    return selector;
}

bool Selector::matches(const QDomElement &element, std::uint64_t &steps) const
{
    return matchFrom(m_compounds.size() - 1, element, steps) == Match::Yes;
}

Selector::Match Selector::matchFrom(std::size_t index, const QDomElement &element, std::uint64_t &steps) const
{
    if (!isMatch(element, m_compounds[index], steps))
        return Match::NotHere;
    if (index == 0)
        return Match::Yes;
    const Combinator combinator = m_combinators[index - 1];
    const Match noneLeft = asksUpwards(combinator) ? Match::NotBelowAnyAncestor : Match::NotAmongSiblings;
    for (QDomElement other = neighbour(element, combinator); !other.isNull();
         other = neighbour(other, combinator)) {
        const Match match = matchFrom(index - 1, other, steps);
        if (match == Match::Yes || match >= noneLeft || !reachesFarther(combinator))
            return match;
    }
    return noneLeft;
}

std::uint32_t Selector::specificity() const
{
    std::array<std::size_t, 3> counts = {};
    for (const CompoundSelector &compound : m_compounds) {
        counts[0] += compound.id.isEmpty() ? 0 : 1;
        counts[1] += compound.classes.size() + compound.attributes.size();
        counts[2] += compound.tag.isEmpty() ? 0 : 1;
    }
    constexpr std::size_t most = 1023;
    std::uint32_t specificity = 0;
    for (const std::size_t count : counts)
        specificity = specificity << 10 | static_cast<std::uint32_t>(std::min(count, most));
    return specificity;
}

bool hasWord(QStringView words, QStringView word, Qt::CaseSensitivity sensitivity)
{
    Scanner scanner(words);
    while (!word.isEmpty()) {
        scanner.skipBlanks();
        if (scanner.atEnd())
            return false;
        const QStringView candidate = scanner.untilBlank();
        if (candidate.compare(word, sensitivity) == 0)
            return true;
    }
    return false;
}

} // namespace svgprep
