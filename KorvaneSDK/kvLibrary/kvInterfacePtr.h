// The owning handle of one host object.

#pragma once

#include "kvBaseObject.h"

#include <utility>

template <class T>
class kvInterfaceOut;

/// Owns one host object and deletes it when released, replaced or destroyed. An object with a parent belongs
/// to the host: the handle then holds a fresh copy and leaves the given object alone. A copied handle holds a
/// fresh copy too.
template <class T>
class kvInterfacePtr {
public:
    kvInterfacePtr() = default;
    explicit kvInterfacePtr(T *object)
        : m_object(owned(object))
    {
    }
    kvInterfacePtr(const kvInterfacePtr &other)
        : m_object(copied(other.m_object))
    {
    }
    kvInterfacePtr(kvInterfacePtr &&other) noexcept
        : m_object(std::exchange(other.m_object, nullptr))
    {
    }
    ~kvInterfacePtr() { delete m_object; }

    kvInterfacePtr &operator=(kvInterfacePtr other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }

    T *get() const { return m_object; }
    T *operator->() const { return m_object; }
    explicit operator bool() const { return m_object != nullptr; }

    /// Deletes the held object; the handle is empty afterwards.
    void Release() { delete std::exchange(m_object, nullptr); }

    /// The handle as an out-parameter of a host call. The handle takes the object that the host hands back at
    /// the end of the full expression, and keeps what it holds when there is none.
    kvInterfaceOut<T> out() { return kvInterfaceOut<T>(*this); }

private:
    static T *copied(T *object) { return object ? static_cast<T *>(object->Clone()) : nullptr; }
    static T *owned(T *object) { return object && object->HasParent() ? copied(object) : object; }

    T *m_object = nullptr;
};

/// The empty temporary that kvInterfacePtr::out() hands to the host.
template <class T>
class kvInterfaceOut {
public:
    explicit kvInterfaceOut(kvInterfacePtr<T> &target)
        : m_target(target)
    {
    }
    ~kvInterfaceOut()
    {
        if (m_object)
            m_target = kvInterfacePtr<T>(m_object);
    }
    kvInterfaceOut(const kvInterfaceOut &) = delete;
    kvInterfaceOut &operator=(const kvInterfaceOut &) = delete;

    operator T **() { return &m_object; }

private:
    kvInterfacePtr<T> &m_target;
    T *m_object = nullptr;
};
