// Gathers the letters of a text with the attributes that concern them, then walks along them with a pen.

#include "SVGPreparation/TextLayout.h"

#include "SVGPreparation/Scanner.h"

#include <algorithm>
#include <utility>

namespace svgprep {

/// An attribute with a list of positions, one for each letter.
struct TextLayout::Position {
    const char *name;
    double Step::*value;
    Along along;
    unsigned bit;
};

namespace {

constexpr ushort replacementCharacter = 0xfffd;

/// Whether no XML text may hold `character`.
bool isControl(QChar character)
{
    return character.unicode() < 0x20 || character.unicode() >= 0xfffe;
}

QString trimmedEnd(QString text)
{
    while (text.endsWith(QLatin1Char(' ')))
        text.chop(1);
    return text;
}

} // namespace

TextLayout::TextLayout(Lettering &lettering, StyleWithin styleWithin, Omissions &omissions)
    : m_lettering(lettering)
    , m_styleWithin(std::move(styleWithin))
    , m_omissions(omissions)
{
}

std::vector<TextRun> TextLayout::runs(const QDomElement &text, const InheritedStyle &style,
                                      const LengthBase &base)
{
    m_steps.clear();
    m_letters.clear();
    m_endsInBlank = true;
    m_parts = {Part{style, 0.0, false, false}};
    collect(text, 0, base);
    while (!m_letters.empty() && m_letters.back().unit == ' '
           && !m_parts[static_cast<std::size_t>(m_letters.back().part)].keepsBlanks)
        m_letters.pop_back();

    std::vector<TextRun> all;
    QPointF pen;
    for (std::size_t begin = 0; begin < m_letters.size();) {
        std::size_t end = begin + 1;
        while (end < m_letters.size() && !beginsChunk(end))
            ++end;
        std::vector<TextRun> runs = chunk(begin, end, pen);
        std::move(runs.begin(), runs.end(), std::back_inserter(all));
        begin = end;
    }
    return all;
}

void TextLayout::collect(const QDomElement &element, int partIndex, const LengthBase &base)
{
    const QString space = element.attribute(QStringLiteral("xml:space"));
    if (!space.isEmpty())
        m_parts[static_cast<std::size_t>(partIndex)].keepsBlanks = space == QLatin1String("preserve");
    const std::size_t firstLetter = m_letters.size();
    for (QDomNode node = element.firstChild(); !node.isNull(); node = node.nextSibling()) {
        if (node.isText()) // CDATA too
            append(node.nodeValue(), partIndex);
        else if (node.isElement())
            collectChild(node.toElement(), partIndex, base);
    }
    readPositions(element, firstLetter, base);
}

void TextLayout::collectChild(const QDomElement &child, int partIndex, const LengthBase &base)
{
    const QString tag = child.tagName();
    if (tag == QLatin1String("textPath")) {
        m_omissions.count(Omission::TextOnPath);
        return;
    }
    if (tag != QLatin1String("tspan") && tag != QLatin1String("a"))
        return;
    if (!addPart(child, partIndex))
        return;
    const int childPart = static_cast<int>(m_parts.size()) - 1;
    LengthBase innerBase = base;
    innerBase.fontSize = m_parts.back().style.font.size;
    collect(child, childPart, innerBase);
}

/// Adds the part of `element` within the part `outer`; false when it is not displayed.
bool TextLayout::addPart(const QDomElement &element, int outer)
{
    Part part = m_parts[static_cast<std::size_t>(outer)];
    const ElementStyle style = m_styleWithin(element, part.style);
    part.style = style.inherited;
    part.baselineShift += style.own.baselineShift;
    if (style.own.scriptShift != 0.0) {
        const FontReach reach = m_lettering.reach(part.style.font);
        part.baselineShift += style.own.scriptShift * (reach.ascent + reach.descent);
    }
    part.isTransparent = part.isTransparent || style.own.isTransparent;
    if (style.own.isDisplayed)
        m_parts.push_back(part);
    return style.own.isDisplayed;
}

/// Appends letters. Line breaks and tabs count as blanks. Of several blanks one is kept, unless the part
/// keeps all.
void TextLayout::append(const QString &data, int partIndex)
{
    const bool keepsBlanks = m_parts[static_cast<std::size_t>(partIndex)].keepsBlanks;
    for (int i = 0; i < data.size(); ++i) {
        const QChar character = data.at(i);
        ushort unit = character.unicode();
        if (isBlank(character))
            unit = ' ';
        else if (isControl(character))
            continue;
        const bool isLoneHigh =
            character.isHighSurrogate() && (i + 1 == data.size() || !data.at(i + 1).isLowSurrogate());
        const bool isLoneLow = character.isLowSurrogate() && (i == 0 || !data.at(i - 1).isHighSurrogate());
        if (isLoneHigh || isLoneLow)
            unit = replacementCharacter;
        if (unit == ' ' && !keepsBlanks && m_endsInBlank)
            continue;
        m_letters.push_back({unit, partIndex, -1});
        m_endsInBlank = unit == ' ' && !keepsBlanks;
    }
}

/// Reads the lists of positions of `element`; its letters are the last ones. The positions of inner elements
/// stay.
void TextLayout::readPositions(const QDomElement &element, std::size_t firstLetter, const LengthBase &base)
{
    static constexpr Position positions[] = {
        {"x", &Step::x, Along::Width, 1},          {"y", &Step::y, Along::Height, 2},
        {"dx", &Step::dx, Along::Width, 4},        {"dy", &Step::dy, Along::Height, 8},
        {"rotate", &Step::turn, Along::Other, 16},
    };
    for (const Position &position : positions) {
        const QString list = element.attribute(QLatin1String(position.name));
        Scanner scanner(list);
        scanner.skipBlanks();
        double last = 0.0;
        std::size_t letter = firstLetter;
        for (; letter < m_letters.size() && !scanner.atEnd(); ++letter) {
            if (QChar::isLowSurrogate(m_letters[letter].unit))
                continue; // the second half of a letter
            const std::optional<Length> length = lengthFrom(scanner);
            if (!length)
                break;
            last = userUnits(*length, base, position.along);
            giveStep(letter, position, last);
            scanner.skipSeparator();
        }
        // The last turn holds for all following letters.
        for (; position.value == &Step::turn && last != 0.0 && letter < m_letters.size(); ++letter)
            giveStep(letter, position, last);
    }
}

void TextLayout::giveStep(std::size_t letter, const Position &position, double value)
{
    int &index = m_letters[letter].step;
    if (index < 0) {
        index = static_cast<int>(m_steps.size());
        m_steps.emplace_back();
    }
    Step &step = m_steps[static_cast<std::size_t>(index)];
    if (step.given & position.bit)
        return;
    step.given |= position.bit;
    step.*position.value = value;
}

bool TextLayout::beginsChunk(std::size_t letter) const
{
    const Letter &next = m_letters[letter];
    constexpr unsigned absolute = 1 | 2;
    return next.step >= 0 && (m_steps[static_cast<std::size_t>(next.step)].given & absolute)
        && !QChar(next.unit).isLowSurrogate();
}

bool TextLayout::beginsRun(std::size_t letter) const
{
    const Letter &next = m_letters[letter];
    const Letter &before = m_letters[letter - 1];
    if (QChar(next.unit).isLowSurrogate())
        return false;
    const auto turnOf = [this](const Letter &l) {
        return l.step < 0 ? 0.0 : m_steps[static_cast<std::size_t>(l.step)].turn;
    };
    if (next.step >= 0) {
        const Step &step = m_steps[static_cast<std::size_t>(next.step)];
        if (step.dx != 0.0 || step.dy != 0.0)
            return true;
    }
    if (turnOf(next) != 0.0 || turnOf(before) != 0.0)
        return true;
    if (next.part == before.part)
        return false;
    const Part &a = m_parts[static_cast<std::size_t>(before.part)];
    const Part &b = m_parts[static_cast<std::size_t>(next.part)];
    return !(a.style.font == b.style.font) || a.baselineShift != b.baselineShift
        || a.style.dominantBaseline != b.style.dominantBaseline || a.isTransparent != b.isTransparent
        || a.style.showsShapes() != b.style.showsShapes();
}

/// The runs of the letters from `begin` to `end`; only the first letter has a place of its own. `pen` moves
/// from the end of the earlier letters to the end of these.
std::vector<TextRun> TextLayout::chunk(std::size_t begin, std::size_t end, QPointF &pen)
{
    const auto partOf = [this](std::size_t letter) -> const Part & {
        return m_parts[static_cast<std::size_t>(m_letters[letter].part)];
    };
    std::vector<TextRun> runs;
    std::vector<std::size_t> firstLetters;
    const TextAnchor anchor = partOf(begin).style.anchor;
    QPointF first;
    double least = 0.0;
    double most = 0.0;
    for (std::size_t i = begin; i < end;) {
        std::size_t next = i + 1;
        while (next < end && !beginsRun(next))
            ++next;
        TextRun run;
        run.font = partOf(i).style.font;
        run.text.reserve(static_cast<int>(next - i));
        for (std::size_t letter = i; letter < next; ++letter)
            run.text += QChar(m_letters[letter].unit);
        if (const int index = m_letters[i].step; index >= 0) {
            const Step &step = m_steps[static_cast<std::size_t>(index)];
            if (i == begin && (step.given & 1))
                pen.setX(step.x);
            if (i == begin && (step.given & 2))
                pen.setY(step.y);
            pen += QPointF(step.dx, step.dy);
            run.turn = step.turn;
        }
        run.leftEnd = pen;
        const bool isLast = next == m_letters.size();
        if (!isLast || anchor != TextAnchor::Start) // otherwise its end does not matter
            pen.rx() += m_lettering.advance(run.text, run.font);
        if (i == begin) {
            first = run.leftEnd;
            least = first.x();
            most = pen.x();
        }
        least = std::min(least, run.leftEnd.x());
        most = std::max(most, pen.x());
        runs.push_back(std::move(run));
        firstLetters.push_back(i);
        i = next;
    }

    const double share = anchor == TextAnchor::Start ? 0.0 : (anchor == TextAnchor::Middle ? 0.5 : 1.0);
    const double shift = first.x() - (least + share * (most - least));
    pen.rx() += shift;
    std::vector<TextRun> shown;
    for (std::size_t i = 0; i < runs.size(); ++i) {
        const Part &part = partOf(firstLetters[i]);
        runs[i].leftEnd += QPointF(shift, baselineOffset(part) - part.baselineShift);
        appendShown(shown, std::move(runs[i]), part);
    }
    return shown;
}

void TextLayout::appendShown(std::vector<TextRun> &shown, TextRun run, const Part &part)
{
    run.text = trimmedEnd(run.text);
    if (run.text.isEmpty() || part.isTransparent || !part.style.showsShapes())
        return;
    int blanks = 0;
    while (run.text.at(blanks) == QLatin1Char(' '))
        ++blanks;
    if (blanks > 0)
        run.leftEnd.rx() += m_lettering.advance(run.text.left(blanks), run.font);
    run.text.remove(0, blanks);
    if (!run.text.trimmed().isEmpty())
        shown.push_back(std::move(run));
}

/// The distance from the baseline of `part`'s letters down to the line that the text stands on.
double TextLayout::baselineOffset(const Part &part)
{
    const QString &name = part.style.dominantBaseline;
    if (name.isEmpty() || name == QLatin1String("auto") || name == QLatin1String("alphabetic"))
        return 0.0;
    struct Row {
        const char *name;
        double ascent;
        double descent;
        double xHeight;
    };
    static constexpr Row rows[] = {
        {"middle", 0.0, 0.0, 0.5},       {"central", 0.5, -0.5, 0.0},         {"hanging", 0.8, 0.0, 0.0},
        {"mathematical", 0.5, 0.0, 0.0}, {"text-before-edge", 1.0, 0.0, 0.0}, {"text-top", 1.0, 0.0, 0.0},
        {"before-edge", 1.0, 0.0, 0.0},  {"text-after-edge", 0.0, -1.0, 0.0}, {"text-bottom", 0.0, -1.0, 0.0},
        {"after-edge", 0.0, -1.0, 0.0},  {"ideographic", 0.0, -1.0, 0.0},
    };
    for (const Row &row : rows) {
        if (name != QLatin1String(row.name))
            continue;
        const FontReach reach = m_lettering.reach(part.style.font);
        return row.ascent * reach.ascent + row.descent * reach.descent + row.xHeight * reach.xHeight;
    }
    return 0.0;
}

} // namespace svgprep
