#pragma once

#include <cstddef>
#include <cstring>
#include <memory>
#include <vector>

namespace voltaro {

// Overwrites memory that may have held a secret; the compiler cannot leave it out as a store that nobody reads.
inline void WipeMemory(void* memory, std::size_t bytes)
{
    if (bytes == 0)
        return;
    std::memset(memory, 0, bytes);
    asm volatile("" : : "r"(memory) : "memory");
}

// Overwrites each block before it is given back, also the old one when a container grows.
template <class T>
struct WipingAllocator {
    using value_type = T;

    WipingAllocator() = default;
    template <class Other>
    WipingAllocator(const WipingAllocator<Other>&)
    {
    }

    [[nodiscard]] T* allocate(std::size_t count) { return std::allocator<T>().allocate(count); }
    void deallocate(T* memory, std::size_t count)
    {
        WipeMemory(memory, count * sizeof(T));
        std::allocator<T>().deallocate(memory, count);
    }

    friend bool operator==(const WipingAllocator&, const WipingAllocator&) { return true; }
};

// Unlike a string, a vector keeps no short content inside the object: everything passes through the allocator.
using WipedBytes = std::vector<std::byte, WipingAllocator<std::byte>>;
using WipedUnits = std::vector<wchar_t, WipingAllocator<wchar_t>>;

} // namespace voltaro
