// Handles of the entities that the sketch manager draws.

#pragma once

#include "api/HostHandle.h"

#include "kvEntities.h"

namespace refhost {

/// Names an entity of an open drawing. It may outlive the entity and the drawing, which are then not found.
struct EntityRef {
    std::weak_ptr<HostDocument> document;
    EntityId id = 0;
    std::shared_ptr<EntityNumbers> numbers;

    /// Calls `change` with the entity as a `Kind`. Fails when `change` fails and when the entity has left the
    /// drawing.
    template <class Kind, class Change>
    kvResult change(const Change &change) const
    {
        const HostDocumentPtr open = document.lock();
        return open && open->drawing.change<Kind>(id, change) ? kvResult_Success : kvResult_Failed;
    }
};

inline ObjectNumber *objectNumberOf(const EntityRef &entity)
{
    return &(*entity.numbers)[entity.id];
}

/// The entity behind a pointer that came from an add-in; null when it is no living entity handle.
const EntityRef *entityBehind(const HandleRegister &handles, const kvBaseObject_c *object);

template <class Derived, class Interface>
class EntityHandle : public HostHandle<Derived, Interface, EntityRef> {
public:
    using HostHandle<Derived, Interface, EntityRef>::HostHandle;

    const EntityRef *entity() const override { return &this->state(); }
};

class LineHandle final : public EntityHandle<LineHandle, kvLine_c> {
public:
    static constexpr const char *type = "kvLine_c";
    using EntityHandle::EntityHandle;
};

class CircleHandle final : public EntityHandle<CircleHandle, kvCircle_c> {
public:
    static constexpr const char *type = "kvCircle_c";
    using EntityHandle::EntityHandle;
};

class PolylineHandle final : public EntityHandle<PolylineHandle, kvPolyLine_c> {
public:
    static constexpr const char *type = "kvPolyLine_c";
    using EntityHandle::EntityHandle;
};

class NoteHandle final : public EntityHandle<NoteHandle, kvSimpleNote_c> {
public:
    static constexpr const char *type = "kvSimpleNote_c";
    using EntityHandle::EntityHandle;
};

class EllipseHandle final : public EntityHandle<EllipseHandle, kvEllipseArc_c> {
public:
    static constexpr const char *type = "kvEllipseArc_c";
    using EntityHandle::EntityHandle;

    kvResult SetCenter(double x, double y, double z) override;
    kvResult put_MajorRadius(double radius) override;
};

class SplineHandle final : public EntityHandle<SplineHandle, kvSpline_c> {
public:
    static constexpr const char *type = "kvSpline_c";
    using EntityHandle::EntityHandle;

    kvResult SetControlPointCoordinate(int index, double x, double y, double z, bool *done) override;
};

class BlockInstanceHandle final : public EntityHandle<BlockInstanceHandle, kvBlockInstance_c> {
public:
    static constexpr const char *type = "kvBlockInstance_c";
    using EntityHandle::EntityHandle;

    kvResult Explode() override;
};

} // namespace refhost
