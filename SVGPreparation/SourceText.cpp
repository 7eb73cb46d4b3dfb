// Walks once along the text, from tag to tag.

#include "SVGPreparation/SourceText.h"

#include "SVGPreparation/Scanner.h"

namespace svgprep {

namespace {

/// The number in a reference such as "x1F6AA" or "128682"; 0 for anything else.
uint referencedCode(const QStringRef &number)
{
    bool isNumber = false;
    const bool isHexadecimal = number.startsWith(QLatin1Char('x'));
    const uint code = isHexadecimal ? number.mid(1).toUInt(&isNumber, 16) : number.toUInt(&isNumber);
    return isNumber ? code : 0;
}

class TextCompletion {
public:
    explicit TextCompletion(const QString &text)
        : m_text(text)
    {
    }

    QString completed()
    {
        while (m_at < m_text.size()) {
            if (m_text.at(m_at) == QLatin1Char('<'))
                skipMarkup();
            else
                readData();
        }
        return m_copied == 0 ? m_text : m_result + m_text.midRef(m_copied);
    }

private:
    /// Replaces the text from `begin` up to `end` by `replacement`.
    void replace(int begin, int end, const QString &replacement)
    {
        m_result += m_text.midRef(m_copied, begin - m_copied);
        m_result += replacement;
        m_copied = end;
    }

    void skipMarkup();
    void skipTag();
    void readData();
    void readReference();

    const QString &m_text;
    QString m_result;
    int m_copied = 0; // the text before is in the result
    int m_at = 0;
    int m_textDepth = 0; // number of text elements around
};

void TextCompletion::skipMarkup()
{
    struct Literal {
        QLatin1String begin;
        QLatin1String end;
    };
    static const Literal literals[] = {{QLatin1String("<!--"), QLatin1String("-->")},
                                       {QLatin1String("<![CDATA["), QLatin1String("]]>")},
                                       {QLatin1String("<?"), QLatin1String("?>")}};
    for (const Literal &literal : literals) {
        if (!m_text.midRef(m_at, literal.begin.size()).startsWith(literal.begin))
            continue;
        const int end = m_text.indexOf(literal.end, m_at + literal.begin.size());
        m_at = end < 0 ? m_text.size() : end + literal.end.size();
        return;
    }
    skipTag();
}

void TextCompletion::skipTag()
{
    const int begin = m_at + 1;
    // A document type holds its declarations in brackets, with comments of their own.
    const bool isDeclaration = m_text.midRef(begin, 1) == QLatin1String("!");
    QChar quote;
    for (++m_at; m_at < m_text.size(); ++m_at) {
        const QChar character = m_text.at(m_at);
        if (quote.isNull()
            && (character == QLatin1Char('>') || (isDeclaration && character == QLatin1Char('['))))
            break;
        if (character == quote)
            quote = QChar();
        else if (quote.isNull() && (character == QLatin1Char('"') || character == QLatin1Char('\'')))
            quote = character;
        else if (character == QLatin1Char('&'))
            readReference();
    }
    const bool isEmpty = m_at > begin && m_text.at(m_at - 1) == QLatin1Char('/');
    const bool ends = m_text.midRef(begin, 1) == QLatin1String("/");
    Scanner scanner(QStringView(m_text).mid(begin + (ends ? 1 : 0)));
    QStringView name = scanner.word();
    if (scanner.take(':'))
        name = scanner.word();
    ++m_at;
    if (name == QLatin1String("text") && !isEmpty)
        m_textDepth += ends ? -1 : 1;
}

/// Reads up to the next markup.
void TextCompletion::readData()
{
    const int begin = m_at;
    bool isBlankOnly = true;
    for (; m_at < m_text.size() && m_text.at(m_at) != QLatin1Char('<'); ++m_at) {
        isBlankOnly = isBlankOnly && isBlank(m_text.at(m_at));
        if (m_text.at(m_at) == QLatin1Char('&'))
            readReference();
    }
    if (isBlankOnly && m_textDepth > 0 && m_at < m_text.size()) {
        const QString blanks = m_text.mid(begin, m_at - begin);
        replace(begin, m_at, QStringLiteral("<![CDATA[%1]]>").arg(blanks));
    }
}

/// Reads the reference that begins here, if it is one by number.
void TextCompletion::readReference()
{
    constexpr int longestNumber = 10;
    if (m_text.midRef(m_at + 1, 1) != QLatin1String("#"))
        return;
    const int length = m_text.midRef(m_at + 2, longestNumber).indexOf(QLatin1Char(';'));
    const uint code = length < 0 ? 0 : referencedCode(m_text.midRef(m_at + 2, length));
    if (code > 0xffff && code <= 0x10ffff)
        replace(m_at, m_at + 2 + length + 1, QString::fromUcs4(&code, 1));
}

} // namespace

QString completeForQt(const QString &text)
{
    return TextCompletion(text).completed();
}

} // namespace svgprep
