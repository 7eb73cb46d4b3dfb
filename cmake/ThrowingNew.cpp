// The C++ allocations of a program whose allocator is written in C: that one's own operator new cannot throw,
// and ends the program for lack of memory.

#include <cstdlib>
#include <new>

void *operator new(std::size_t size)
{
    // C++: what takes no bytes has an address as well.
    if (void *memory = std::malloc(size > 0 ? size : 1))
        return memory;
    throw std::bad_alloc();
}

void *operator new[](std::size_t size)
{
    return ::operator new(size);
}

void operator delete(void *memory) noexcept
{
    std::free(memory);
}

void operator delete(void *memory, std::size_t /*size*/) noexcept
{
    std::free(memory);
}

void operator delete[](void *memory) noexcept
{
    std::free(memory);
}

void operator delete[](void *memory, std::size_t /*size*/) noexcept
{
    std::free(memory);
}
