// The drawing database: model space, block definitions and the entities in them.

#pragma once

#include "drawing/Entity.h"

#include <QHash>
#include <QString>
#include <QVector>

#include <cstdint>
#include <memory>
#include <vector>

namespace refhost {

/// Names one entity of one drawing for good; 0 names none.
using EntityId = std::uint64_t;

struct BlockDefinition {
    QString name;
    Point base;
    std::vector<EntityId> entities; ///< in drawing order
};

using BlockDefinitionPtr = std::shared_ptr<const BlockDefinition>;

/// One drawing. Entities are added to model space and may later move into a block definition or be erased. An
/// id is never used twice. A copy is cheap: both drawings share an entity until one of them changes it.
class Drawing {
public:
    /// Appends `entity` to model space.
    EntityId add(Entity entity);

    /// The entity named `id`, in model space or in a block; null when it was erased or never existed.
    const Entity *find(EntityId id) const;
    /// Calls `change` with the entity named `id` if that is a `Kind`. True when `change` returns true, which
    /// means that it has changed the entity.
    template <class Kind, class Change>
    bool change(EntityId id, const Change &change)
    {
        const Entity *entity = find(id);
        const bool isChanged =
            entity && std::holds_alternative<Kind>(*entity) && change(std::get<Kind>(ownEntity(id)));
        if (isChanged)
            changed();
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

    /// `name`, or the next free name when it is in use: "plan8" after "plan7".
    QString freeBlockName(const QString &name) const;

    /// The definition of that name, or null. Definitions never change.
    const BlockDefinition *block(const QString &name) const;

    /// All definitions in the order they were made.
    const std::vector<BlockDefinitionPtr> &blocks() const { return m_blocks; }

    /// The definitions that model space uses, also through other blocks, in the order they were made.
    std::vector<const BlockDefinition *> usedBlocks() const;

    /// Names the state of the drawing. Each state has a number of its own, and goTo() brings back the number
    /// of its state.
    std::uint64_t revision() const { return m_revision; }

    /// Goes back to `state`, an earlier copy of this drawing. Ids and revisions handed out since then are not
    /// used again.
    void goTo(const Drawing &state);

private:
    enum class Owner { ModelSpace, Block };

    struct StoredEntity {
        std::shared_ptr<Entity> entity; // null when it was erased
        Owner owner = Owner::ModelSpace;
    };
    using Chunk = QVector<StoredEntity>;

    const StoredEntity *stored(EntityId id) const;
    StoredEntity &ownStored(EntityId id);
    Entity &ownEntity(EntityId id);

    void removeFromModelSpace();
    void changed() { m_revision = ++m_lastRevision; }

    // Indexed by id - 1, with at most chunkSize entities to a chunk. Copies of Qt's containers share
    // unchanged chunks.
    QVector<Chunk> m_chunks;
    QVector<EntityId> m_modelSpace; // may hold ids that have left it, which are skipped
    int m_gaps = 0;
    std::uint64_t m_revision = 0;
    std::uint64_t m_lastRevision = 0;
    std::vector<BlockDefinitionPtr> m_blocks;
    QHash<QString, std::size_t> m_blockIndex; // by lower-case name
};

} // namespace refhost
