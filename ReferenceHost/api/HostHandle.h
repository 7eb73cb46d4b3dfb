// The base of all handles. It registers and copies them and passes every call through the fault script and
// the journal.

#pragma once

#include "api/HostSession.h"

#include <cstddef>
#include <new>
#include <utility>

namespace refhost {

/// The owner of a handle: the add-in that received it, or the host.
enum class Parent { None, Host };

/// The place of the journal's number for the object of a handle with this state; null for a type with only
/// one object. Types with numbered objects add an overload.
template <class State>
ObjectNumber *objectNumberOf(const State & /*state*/)
{
    return nullptr;
}

/// Base of the handle class `Derived`, which implements the host class `Interface` and holds a `State`: a
/// cheap value that names the object.
template <class Derived, class Interface, class State>
class HostHandle : public Interface, public HandleBase {
public:
    explicit HostHandle(HostSession &session, State state, Parent parent = Parent::None)
        : m_session(session)
        , m_state(std::move(state))
        , m_parent(parent)
    {
        m_session.handles().add(this, this);
    }
    ~HostHandle() override { m_session.handles().remove(this); }

    HostHandle(const HostHandle &) = delete;
    HostHandle &operator=(const HostHandle &) = delete;

    static void *operator new(std::size_t size) { return ::operator new(size); }
    static void operator delete(void *memory) { HandleRegister::keepDeleted(memory); }

    bool HasParent() const override { return m_parent == Parent::Host; }
    kvBaseObject_c *Clone() const override { return new Derived(m_session, m_state); }

    const char *typeName() const override { return Derived::type; }
    ObjectNumber *objectNumber() const override { return objectNumberOf(m_state); }

    const State &state() const { return m_state; }

protected:
    HostSession &session() const { return m_session; }

    /// Makes the call `method`: runs `body`, unless the fault script lets the call fail, and writes the
    /// journal.
    template <class Body, class... Arguments>
    kvResult call(const char *method, const Body &body, const Arguments &...arguments)
    {
        // A command within the call may delete this handle, so no member is used after `body`.
        HostSession &host = m_session;
        const QByteArray on = host.journal().on(*this);
        const kvResult result = host.faults.takesNext(method) ? kvResult_Failed : body();
        host.journal().record(method, on, result, arguments...);
        return result;
    }

    /// Hands a new handle of type `Handle` out through `out`.
    template <class Handle, class Out, class HandleState>
    kvResult handOut(Out **out, HandleState handleState) const
    {
        *out = new Handle(m_session, std::move(handleState));
        return kvResult_Success;
    }

    /// The same for a new object, which the journal counts.
    template <class Handle, class Out, class HandleState>
    kvResult handOutNew(Out **out, HandleState handleState) const
    {
        auto *handle = new Handle(m_session, std::move(handleState));
        m_session.journal().objectCreated(*handle);
        *out = handle;
        return kvResult_Success;
    }

private:
    HostSession &m_session;
    State m_state;
    Parent m_parent;
};

} // namespace refhost
