#pragma once

#include <cstdint>

namespace voltaro {

// Every period and wait of the program that is longer than a blink, in milliseconds. Nothing else changes them; tests
// shorten them.
struct Timing {
    std::uint32_t transportSecond = 1'000; // what a second of a member's time-out lasts
    std::uint32_t connectionRetry = 5'000; // between the three tries of the connection check
    std::uint32_t pollerPeriod = 480'000;
    std::uint32_t pollerFirstRetry = 30'000;
    std::uint32_t pollerSecondRetry = 60'000;
    std::uint32_t selfClosingBox = 5'000;
    std::uint32_t updateBarStep = 250;
    std::uint32_t trayRetry = 2'000; // until an icon that could not be added is tried again
    std::uint32_t workerEnd = 5'000; // how long a worker may take to end; it is not forced to
};

} // namespace voltaro
