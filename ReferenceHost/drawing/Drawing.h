// The drawing database: model space, block definitions and the entities in them.

#pragma once

#include "drawing/Entity.h"

#include <QHash>
#include <QString>

#include <cstdint>
#include <deque>
#include <vector>

namespace refhost {

/// Names one entity of one drawing for good; 0 names none.
using EntityId = std::uint64_t;

struct BlockDefinition {
    QString name;
    Point base;
    std::vector<EntityId> entities; ///< in drawing order
};

/// One drawing. Entities are added to model space and may later move into a block definition or be erased; an
/// id is never used twice.
class Drawing {
public:
    /// Appends `entity` to model space.
    EntityId add(Entity entity);

    /// The entity named `id`, in model space or in a block; null when it was erased or never existed.
    const Entity *find(EntityId id) const;
    /// Lets `change` work on the entity named `id` if that is a `Kind`. `change` answers whether it changed
    /// anything; so does this, false also when there is no such entity.
    template <class Kind, class Change>
    bool change(EntityId id, const Change &change)
    {
        auto *entity = std::get_if<Kind>(const_cast<Entity *>(find(id)));
        const bool isChanged = entity && change(*entity);
        m_changes += isChanged ? 1 : 0;
        return isChanged;
    }

    bool isInModelSpace(EntityId id) const;

    /// The entities of model space in drawing order.
    std::vector<EntityId> modelSpace() const;

    /// Removes an entity of model space; an id that is not there is ignored.
    void erase(EntityId id);

    /// Makes a block definition out of entities of model space, which leave it. An id given twice counts
    /// once, one that is not in model space is ignored. Fails (false, nothing changed) on an empty name and
    /// on one already in use; block names do not differ by case alone.
    bool createBlock(const QString &name, const Point &base, const std::vector<EntityId> &entities);

    /// The definition of that name, or null. The pointer holds until the next createBlock().
    const BlockDefinition *block(const QString &name) const;

    /// All definitions in the order they were made.
    const std::vector<BlockDefinition> &blocks() const { return m_blocks; }

    /// The definitions that model space uses, also through other blocks, in the order they were made.
    std::vector<const BlockDefinition *> usedBlocks() const;

    /// How often the drawing has been changed.
    std::uint64_t changes() const { return m_changes; }

private:
    enum class Place { ModelSpace, Block, Erased };

    struct StoredEntity {
        Entity entity;
        Place place = Place::ModelSpace;
    };

    const StoredEntity *stored(EntityId id) const;

    void removeFromModelSpace();

    // By id less one. An erased entity leaves an empty place: few are, since blocks keep theirs.
    std::deque<StoredEntity> m_entities;
    std::vector<EntityId> m_modelSpace; // may name entities that have left; they are skipped
    std::size_t m_left = 0;
    std::uint64_t m_changes = 0;
    std::vector<BlockDefinition> m_blocks;
    QHash<QString, std::size_t> m_blockIndex; // by lower-case name
};

} // namespace refhost
