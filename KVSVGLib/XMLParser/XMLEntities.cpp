// Counts entity expansions without making them. Qt has a limit of its own, but does not check the entities
// that are declared last.

#include "XMLEntities.h"

#include <algorithm>

namespace {

// Drawings whose styles are entities grow to twice their size at the most. The constant lets small ones grow
// freely.
constexpr qint64 growthFactor = 4;
constexpr qint64 freeGrowth = 4 * 1024 * 1024;

constexpr QLatin1Char generalSign('&');
constexpr QLatin1Char parameterSign('%');

bool endsName(QChar character)
{
    return character == QLatin1Char(';') || character == generalSign || character == parameterSign
        || character == QLatin1Char('<') || character.isSpace();
}

/// How often `text` refers to each name; the names begin with their sign. References that are never expanded,
/// in a comment say, count too.
QHash<QStringRef, qint64> references(const QString &text)
{
    QHash<QStringRef, qint64> counts;
    for (const QLatin1Char sign : {generalSign, parameterSign}) {
        int end = 0;
        for (int start = text.indexOf(sign); start >= 0; start = text.indexOf(sign, end)) {
            end = static_cast<int>(std::find_if(text.cbegin() + start + 1, text.cend(), endsName)
                                   - text.cbegin());
            if (end < text.size() && text.at(end) == QLatin1Char(';'))
                ++counts[QStringRef(&text, start, end - start)];
        }
    }
    return counts;
}

} // namespace

XMLEntities::XMLEntities(const QString &text)
    : m_references(references(text))
    , m_mostGrowth(freeGrowth + growthFactor * text.size())
{
}

bool XMLEntities::declare(const QString &name, const QString &value)
{
    const QString signedName = name.startsWith(parameterSign) ? name : generalSign + name;
    const QHash<QStringRef, qint64> inner = references(value);
    qint64 size = value.size();
    for (auto reference = inner.cbegin(); reference != inner.cend() && size <= m_mostGrowth; ++reference) {
        const QString innerName = reference.key().toString();
        const auto innerSize = m_sizes.constFind(innerName);
        if (innerSize == m_sizes.constEnd())
            m_usedUndeclared.insert(innerName);
        else
            size += reference.value() * *innerSize;
    }
    if (size > m_mostGrowth || m_usedUndeclared.contains(signedName))
        return false;

    m_sizes.insert(signedName, size);
    m_growth += size * m_references.value(QStringRef(&signedName));
    return m_growth <= m_mostGrowth;
}
