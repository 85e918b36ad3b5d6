#pragma once

#include <utility>

namespace voltaro {

// Sole owner of a platform handle. Traits give `Handle`, `kInvalid`-like `Invalid()`, and `Close(Handle)`.
// Handing the raw handle out is always spelt: Get() lends, Release() gives up.
template <class Traits>
class Unique {
public:
    using Handle = typename Traits::Handle;

    Unique() = default;
    explicit Unique(Handle handle)
        : m_handle(handle)
    {
    }
    Unique(Unique&& other) noexcept
        : m_handle(other.Release())
    {
    }
    Unique& operator=(Unique&& other) noexcept
    {
        if (this != &other)
            Reset(other.Release());
        return *this;
    }
    Unique(const Unique&) = delete;
    Unique& operator=(const Unique&) = delete;
    ~Unique() { Reset(); }

    [[nodiscard]] Handle Get() const { return m_handle; }
    [[nodiscard]] explicit operator bool() const { return m_handle != Traits::Invalid(); }
    // For calls that return a handle through a pointer; what was held is closed first.
    [[nodiscard]] Handle* Put()
    {
        Reset();
        return &m_handle;
    }
    Handle Release() { return std::exchange(m_handle, Traits::Invalid()); }
    void Reset(Handle handle = Traits::Invalid())
    {
        const Handle old = std::exchange(m_handle, handle);
        if (old != Traits::Invalid())
            Traits::Close(old);
    }

private:
    Handle m_handle = Traits::Invalid();
};

} // namespace voltaro
