// Keeps entities by id. Moving ten thousand of them into a block therefore costs ten thousand steps.

#include "drawing/Drawing.h"

#include <QRegularExpression>

#include <algorithm>
#include <utility>

namespace refhost {

namespace {

constexpr int chunkSize = 256;

} // namespace

EntityId Drawing::add(Entity entity)
{
    if (m_chunks.isEmpty() || m_chunks.constLast().size() == chunkSize)
        m_chunks.append(Chunk());
    m_chunks.last().append({std::make_shared<Entity>(std::move(entity)), Owner::ModelSpace});
    const int count = (m_chunks.size() - 1) * chunkSize + m_chunks.constLast().size();
    const auto id = static_cast<EntityId>(count);
    m_modelSpace.append(id);
    changed();
    return id;
}

const Entity *Drawing::find(EntityId id) const
{
    const StoredEntity *found = stored(id);
    return found ? found->entity.get() : nullptr;
}

bool Drawing::isInModelSpace(EntityId id) const
{
    const StoredEntity *found = stored(id);
    return found && found->entity && found->owner == Owner::ModelSpace;
}

std::vector<EntityId> Drawing::modelSpace() const
{
    std::vector<EntityId> ids;
    ids.reserve(static_cast<std::size_t>(m_modelSpace.size() - m_gaps));
    std::copy_if(m_modelSpace.begin(), m_modelSpace.end(), std::back_inserter(ids),
                 [this](EntityId id) { return isInModelSpace(id); });
    return ids;
}

void Drawing::erase(EntityId id)
{
    if (!isInModelSpace(id))
        return;
    ownStored(id).entity.reset();
    removeFromModelSpace();
    changed();
}

bool Drawing::createBlock(const QString &name, const Point &base, const std::vector<EntityId> &entities)
{
    const QString key = name.toLower();
    if (name.isEmpty() || m_blockIndex.contains(key))
        return false;

    auto definition = std::make_shared<BlockDefinition>(BlockDefinition{name, base, {}});
    definition->entities.reserve(entities.size());
    for (const EntityId id : entities) {
        if (!isInModelSpace(id))
            continue;
        ownStored(id).owner = Owner::Block;
        definition->entities.push_back(id);
        removeFromModelSpace();
    }
    m_blockIndex.insert(key, m_blocks.size());
    m_blocks.push_back(std::move(definition));
    changed();
    return true;
}

QString Drawing::freeBlockName(const QString &name) const
{
    static const QRegularExpression numbered(QStringLiteral("^(.*?)([0-9]{0,9})$"),
                                             QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch parts = numbered.match(name);
    QString freeName = name;
    for (qint64 number = parts.captured(2).toLongLong(); block(freeName);)
        freeName = parts.captured(1) + QString::number(++number);
    return freeName;
}

const BlockDefinition *Drawing::block(const QString &name) const
{
    const auto found = m_blockIndex.constFind(name.toLower());
    return found == m_blockIndex.constEnd() ? nullptr : m_blocks[found.value()].get();
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
        const std::vector<EntityId> &inner = m_blocks[found.value()]->entities;
        open.insert(open.end(), inner.begin(), inner.end());
    }

    std::vector<const BlockDefinition *> definitions;
    for (std::size_t i = 0; i < m_blocks.size(); ++i) {
        if (used[i])
            definitions.push_back(m_blocks[i].get());
    }
    return definitions;
}

void Drawing::goTo(const Drawing &state)
{
    const int chunks = m_chunks.size();
    const std::uint64_t lastRevision = m_lastRevision;
    *this = state;
    m_chunks.resize(chunks + 1); // the next id is higher than all ids before
    m_lastRevision = lastRevision;
}

const Drawing::StoredEntity *Drawing::stored(EntityId id) const
{
    const EntityId chunk = (id - 1) / chunkSize;
    const auto place = static_cast<int>((id - 1) % chunkSize);
    if (id == 0 || chunk >= static_cast<EntityId>(m_chunks.size()))
        return nullptr;
    const Chunk &entities = m_chunks.at(static_cast<int>(chunk));
    return place < entities.size() ? &entities.at(place) : nullptr;
}

/// The stored entity of an existing id, no longer shared with copies of the drawing.
Drawing::StoredEntity &Drawing::ownStored(EntityId id)
{
    return m_chunks[static_cast<int>((id - 1) / chunkSize)][static_cast<int>((id - 1) % chunkSize)];
}

Entity &Drawing::ownEntity(EntityId id)
{
    std::shared_ptr<Entity> &entity = ownStored(id).entity;
    if (entity.use_count() > 1)
        entity = std::make_shared<Entity>(*entity);
    return *entity;
}

void Drawing::removeFromModelSpace()
{
    // Closing each gap at once would cost the whole list every time, so half of the list may be gaps.
    ++m_gaps;
    if (m_gaps * 2 < m_modelSpace.size())
        return;
    m_modelSpace.erase(std::remove_if(m_modelSpace.begin(), m_modelSpace.end(),
                                      [this](EntityId id) { return !isInModelSpace(id); }),
                       m_modelSpace.end());
    m_gaps = 0;
}

} // namespace refhost
