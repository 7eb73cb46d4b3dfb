// The host's five array types in one template: plain growing arrays, handed over by value or by pointer.

#pragma once

#include "kvString.h"

#include <cstddef>
#include <vector>

class kvBaseObject_c;

/// A growing array. It holds plain values: an array of objects neither owns nor deletes them.
template <class T>
class kvArray {
public:
    /// Appends `value`.
    void add(const T &value)
    {
        // Most arrays hold the few coordinates of one shape, and one allocation serves them.
        if (m_values.capacity() == 0)
            m_values.reserve(firstCapacity);
        m_values.push_back(value);
    }

    /// The number of values in the array.
    int getSize() const { return static_cast<int>(m_values.size()); }

    /// Makes the array `size` values long. New places hold 0, an empty text or a null pointer.
    void setSize(int size) { m_values.resize(size > 0 ? static_cast<std::size_t>(size) : 0); }

    /// The value at `index`, from 0 to getSize() - 1.
    T &operator[](int index) { return m_values[static_cast<std::size_t>(index)]; }
    const T &operator[](int index) const { return m_values[static_cast<std::size_t>(index)]; }

private:
    static constexpr std::size_t firstCapacity = 8;

    std::vector<T> m_values;
};

/// Numbers; coordinates travel as x, y pairs or x, y, z triples one after the other.
using kvDoubleArray = kvArray<double>;
using kvLongArray = kvArray<long>;
using kvStringArray = kvArray<kvString>;
/// Host objects, not owned by the array.
using kvObjectPtrArray = kvArray<kvBaseObject_c *>;
