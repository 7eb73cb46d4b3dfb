// Counts entities and says how many there are.

#include "drawing/EntityCounts.h"

#include <QStringList>

#include <numeric>

namespace refhost {

int EntityCounts::total() const
{
    return std::accumulate(byKind.begin(), byKind.end(), 0);
}

void EntityCounts::add(const EntityCounts &other)
{
    for (std::size_t kind = 0; kind < byKind.size(); ++kind)
        byKind[kind] += other.byKind[kind];
}

EntityCounts countEntities(const Drawing &drawing, const BlockDefinition &block)
{
    EntityCounts counts;
    for (const EntityId id : block.entities) {
        if (const Entity *entity = drawing.find(id))
            ++counts.byKind[entity->index()];
    }
    return counts;
}

QString textFromCounts(const EntityCounts &counts)
{
    QStringList kinds;
    for (std::size_t kind = 0; kind < std::size(entityKindNames); ++kind) {
        const int count = counts.byKind[kind];
        const QLatin1String name(entityKindNames[kind]);
        if (count > 0)
            kinds << QStringLiteral("%1 %2").arg(count).arg(count == 1 ? name.chopped(1) : name);
    }
    return kinds.join(QStringLiteral(", "));
}

} // namespace refhost
