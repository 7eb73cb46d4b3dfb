// Counts entity expansions without making them.

#include "XMLEntities.h"

#include <algorithm>

namespace {

constexpr int deepestEntity = 16;

class ExpansionCounter {
public:
    ExpansionCounter(const QHash<QString, QString> &entities, qint64 limit)
        : m_entities(entities)
        , m_limit(limit)
    {
        for (auto entity = m_entities.cbegin(); entity != m_entities.cend(); ++entity) {
            m_values.insert(QStringRef(&entity.key()), &entity.value());
            m_longestName = std::max(m_longestName, entity.key().size());
        }
    }

    qint64 inText(const QString &text, int depth = 0)
    {
        qint64 size = 0;
        for (int start = text.indexOf(QLatin1Char('&')); start >= 0 && size <= m_limit;
             start = text.indexOf(QLatin1Char('&'), start + 1))
            size += ofReference(referenceAt(text, start + 1), depth);
        return size;
    }

private:
    /// The name that starts at `start` and ends before a semicolon; nothing when it is longer than any
    /// declared.
    QStringRef referenceAt(const QString &text, int start) const
    {
        const QStringRef candidate = text.midRef(start, m_longestName + 1);
        const int end = candidate.indexOf(QLatin1Char(';'));
        return end < 0 ? QStringRef() : candidate.left(end);
    }

    qint64 ofReference(const QStringRef &name, int depth)
    {
        const auto value = m_values.constFind(name);
        if (value == m_values.constEnd())
            return 0;
        const auto known = m_sizes.constFind(name);
        if (known != m_sizes.constEnd())
            return *known;
        if (depth == deepestEntity)
            return m_limit + 1;

        const qint64 size = (*value)->size() + inText(**value, depth + 1);
        m_sizes.insert(value.key(), size);
        return size;
    }

    const QHash<QString, QString> &m_entities;
    const qint64 m_limit;
    QHash<QStringRef, const QString *> m_values;
    QHash<QStringRef, qint64> m_sizes;
    int m_longestName = 0;
};

} // namespace

qint64 expandedSize(const QString &text, const QHash<QString, QString> &entities, qint64 limit)
{
    return ExpansionCounter(entities, limit).inText(text);
}
