// Keeps entities by id, so that moving ten thousand of them into a block costs ten thousand steps.

#include "drawing/Drawing.h"

#include <algorithm>
#include <utility>

namespace refhost {

EntityId Drawing::add(Entity entity)
{
    m_entities.push_back({std::move(entity), Place::ModelSpace});
    const EntityId id = m_entities.size();
    m_modelSpace.push_back(id);
    ++m_changes;
    return id;
}

const Entity *Drawing::find(EntityId id) const
{
    const StoredEntity *found = stored(id);
    return found && found->place != Place::Erased ? &found->entity : nullptr;
}

bool Drawing::isInModelSpace(EntityId id) const
{
    const StoredEntity *found = stored(id);
    return found && found->place == Place::ModelSpace;
}

std::vector<EntityId> Drawing::modelSpace() const
{
    std::vector<EntityId> ids;
    ids.reserve(m_modelSpace.size() - m_left);
    std::copy_if(m_modelSpace.begin(), m_modelSpace.end(), std::back_inserter(ids),
                 [this](EntityId id) { return isInModelSpace(id); });
    return ids;
}

void Drawing::erase(EntityId id)
{
    if (!isInModelSpace(id))
        return;
    m_entities[id - 1] = {Line(), Place::Erased};
    removeFromModelSpace();
    ++m_changes;
}

bool Drawing::createBlock(const QString &name, const Point &base, const std::vector<EntityId> &entities)
{
    const QString key = name.toLower();
    if (name.isEmpty() || m_blockIndex.contains(key))
        return false;

    BlockDefinition definition{name, base, {}};
    definition.entities.reserve(entities.size());
    for (const EntityId id : entities) {
        if (!isInModelSpace(id))
            continue;
        m_entities[id - 1].place = Place::Block;
        definition.entities.push_back(id);
        removeFromModelSpace();
    }
    m_blockIndex.insert(key, m_blocks.size());
    m_blocks.push_back(std::move(definition));
    ++m_changes;
    return true;
}

const BlockDefinition *Drawing::block(const QString &name) const
{
    const auto found = m_blockIndex.constFind(name.toLower());
    return found == m_blockIndex.constEnd() ? nullptr : &m_blocks[found.value()];
}

std::vector<const BlockDefinition *> Drawing::usedBlocks() const
{
    std::vector<bool> used(m_blocks.size(), false);
    std::vector<EntityId> open = modelSpace();
    while (!open.empty()) {
        const EntityId id = open.back();
        open.pop_back();
        const auto *instance = std::get_if<BlockInstance>(find(id));
        if (!instance)
            continue;
        const auto found = m_blockIndex.constFind(instance->blockName.toLower());
        if (found == m_blockIndex.constEnd() || used[found.value()])
            continue;
        used[found.value()] = true;
        const std::vector<EntityId> &inner = m_blocks[found.value()].entities;
        open.insert(open.end(), inner.begin(), inner.end());
    }

    std::vector<const BlockDefinition *> definitions;
    for (std::size_t i = 0; i < m_blocks.size(); ++i) {
        if (used[i])
            definitions.push_back(&m_blocks[i]);
    }
    return definitions;
}

const Drawing::StoredEntity *Drawing::stored(EntityId id) const
{
    return id > 0 && id <= m_entities.size() ? &m_entities[id - 1] : nullptr;
}

void Drawing::removeFromModelSpace()
{
    // Closing the gap at once would cost the whole list for every entity: wait until half of it is gaps.
    ++m_left;
    if (m_left * 2 < m_modelSpace.size())
        return;
    m_modelSpace.erase(std::remove_if(m_modelSpace.begin(), m_modelSpace.end(),
                                      [this](EntityId id) { return !isInModelSpace(id); }),
                       m_modelSpace.end());
    m_left = 0;
}

} // namespace refhost
