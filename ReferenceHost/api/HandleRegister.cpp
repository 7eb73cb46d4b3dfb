// Frees forgotten handles and notices the ones deleted twice.

#include "api/HandleRegister.h"

#include <QDebug>

#include <array>
#include <new>
#include <vector>

namespace refhost {

namespace {

int doubleDeletionCount = 0;

/// Takes the place of a deleted handle. Every handle begins with the virtual table of kvBaseObject_c, so a
/// second deletion calls this destructor.
class DeletedHandle final : public kvBaseObject_c {
public:
    ~DeletedHandle() override
    {
        ++doubleDeletionCount;
        qWarning("A host object was deleted twice.");
    }

    bool HasParent() const override { return false; }
    kvBaseObject_c *Clone() const override { return nullptr; }

    static void operator delete(void *memory) { new (memory) DeletedHandle; }
};

/// The memory of the handles deleted last. Each new block frees the oldest one.
class DeletedMemory {
public:
    DeletedMemory() = default;
    ~DeletedMemory()
    {
        for (void *memory : m_blocks)
            ::operator delete(memory);
    }
    DeletedMemory(const DeletedMemory &) = delete;
    DeletedMemory &operator=(const DeletedMemory &) = delete;

    void keepDeleted(void *memory)
    {
        ::operator delete(m_blocks[m_next]);
        m_blocks[m_next] = memory;
        m_next = (m_next + 1) % m_blocks.size();
        new (memory) DeletedHandle;
    }

private:
    std::array<void *, 4096> m_blocks = {};
    std::size_t m_next = 0;
};

} // namespace

HandleRegister::~HandleRegister()
{
    std::vector<const kvBaseObject_c *> left;
    left.reserve(m_handles.size());
    for (const auto &handle : m_handles)
        left.push_back(handle.first);
    for (const kvBaseObject_c *object : left)
        delete object;
}

void HandleRegister::add(kvBaseObject_c *object, HandleBase *handle)
{
    m_handles.emplace(object, handle);
}

void HandleRegister::remove(const kvBaseObject_c *object)
{
    m_handles.erase(object);
}

HandleBase *HandleRegister::find(const kvBaseObject_c *object) const
{
    const auto found = m_handles.find(object);
    return found == m_handles.end() ? nullptr : found->second;
}

void HandleRegister::keepDeleted(void *memory) noexcept
{
    static DeletedMemory deletedMemory;
    deletedMemory.keepDeleted(memory);
}

int HandleRegister::doubleDeletions()
{
    return doubleDeletionCount;
}

} // namespace refhost
