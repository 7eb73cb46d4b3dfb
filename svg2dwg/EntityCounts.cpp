// Counts what a conversion drew.

#include "EntityCounts.h"

#include <numeric>

int EntityCounts::total() const
{
    return std::accumulate(byKind.begin(), byKind.end(), 0);
}

void EntityCounts::add(const EntityCounts &other)
{
    for (std::size_t kind = 0; kind < byKind.size(); ++kind)
        byKind[kind] += other.byKind[kind];
}

EntityCounts countBlockEntities(const refhost::Drawing &drawing)
{
    EntityCounts counts;
    for (const refhost::BlockDefinitionPtr &block : drawing.blocks()) {
        for (const refhost::EntityId id : block->entities) {
            if (const refhost::Entity *entity = drawing.find(id))
                ++counts.byKind[entity->index()];
        }
    }
    return counts;
}
