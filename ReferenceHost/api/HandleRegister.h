// Every handle the host has handed out. An add-in may leave handles unreleased: the register frees what is
// left when the host closes. It also answers whether a pointer that comes back is one of the host's own
// objects.

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

/// What the host wants to know of a handle of its own.
class HandleBase {
public:
    virtual ~HandleBase() = default;

    /// The API type, such as "kvLine_c".
    virtual const char *typeName() const = 0;

    /// Where the number of the object is kept; null for a type of which there is only one.
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

    /// The host's side of `object`; null for a pointer that is no living handle of this host. Any pointer may
    /// be asked about, also one to memory that is gone.
    HandleBase *find(const kvBaseObject_c *object) const;

    /// How many handles are out.
    std::size_t size() const { return m_handles.size(); }

    /// Takes the memory of a destroyed handle out of use. It is kept for a while, so that deleting the same
    /// handle once more is noticed, reported as a warning and does no harm.
    static void keepDeleted(void *memory) noexcept;

    /// How many handles were deleted a second time since the program started.
    static int doubleDeletions();

private:
    std::unordered_map<const kvBaseObject_c *, HandleBase *> m_handles;
};

} // namespace refhost
