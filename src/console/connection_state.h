#pragma once

#include <atomic>
#include <cstdint>

namespace voltaro {

// A flag that windows and workers share: a single byte, stored and read whole. A worker may act on it one cycle late.
class SharedFlag {
public:
    SharedFlag() = default;
    operator bool() const { return m_value.load(std::memory_order_relaxed) != 0; }
    SharedFlag& operator=(bool value)
    {
        m_value.store(value ? 1 : 0, std::memory_order_relaxed);
        return *this;
    }
    // Clears the flag; true for the one caller that found it set.
    bool TestAndClear() { return m_value.exchange(0) != 0; }

private:
    std::atomic<std::uint8_t> m_value{0};
};

// How the console stands with the agent.
struct ConnectionState {
    SharedFlag connected;       // a complete load has run and nothing was lost since
    SharedFlag detailsAnswered; // the agent has answered and the load is running
};
inline ConnectionState connection;

} // namespace voltaro
