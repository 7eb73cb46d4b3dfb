// A register of the handles that add-ins hold. It frees unreleased handles when the host closes, and it knows
// whether a pointer from an add-in is one of the host's own objects.

#pragma once

#include "kvBaseObject.h"

#include <cstddef>
#include <unordered_map>

namespace refhost {

struct EntityRef;

/// Which object of its type this is, as the journal counts them.
struct ObjectNumber {
    int journal = 0; ///< the journal that gave the number; 0 for none yet
    int number = 0;
    const char *type = nullptr; ///< the type it was counted under; a base type's handle may name it, too
};

/// The host's view of one of its handles.
class HandleBase {
public:
    virtual ~HandleBase() = default;

    /// The API type, such as "kvLine_c".
    virtual const char *typeName() const = 0;

    /// The place of the object's number; null for a type with only one object.
    virtual ObjectNumber *objectNumber() const = 0;

    /// The entity it names; null when the handle is of another kind.
    virtual const EntityRef *entity() const { return nullptr; }
};

class HandleRegister {
public:
    HandleRegister() = default;
    ~HandleRegister();
    HandleRegister(const HandleRegister &) = delete;
    HandleRegister &operator=(const HandleRegister &) = delete;

    void add(kvBaseObject_c *object, HandleBase *handle);
    void remove(const kvBaseObject_c *object);

    /// The host's side of `object`; null for a pointer that is no living handle of this host. The pointer is
    /// not followed, so it may lead to freed memory.
    HandleBase *find(const kvBaseObject_c *object) const;

    /// How many handles are out.
    std::size_t size() const { return m_handles.size(); }

    /// Keeps the memory of a destroyed handle for a while. A second deletion of the same handle is then
    /// noticed, reported as a warning and harmless.
    static void keepDeleted(void *memory) noexcept;

    /// How many handles were deleted a second time since the program started.
    static int doubleDeletions();

private:
    std::unordered_map<const kvBaseObject_c *, HandleBase *> m_handles;
};

} // namespace refhost
