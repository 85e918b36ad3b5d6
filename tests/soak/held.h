#pragma once

#include <cstdlib>
#include <functional>

namespace voltaro {

// What work may leave behind: sockets, and what the platform keeps of what was there. Nothing else may grow at all.
struct Left {
    int sockets = 0;
    int requests = 0; // built
    int labels = 0;   // destroyed
};

// Does a tenth of the work to warm up, then all of it at most three times: a leak grows every time, a cache only once.
// Fails when every time left more behind than the work says; prints the smallest growth of each kind.
void ExpectNoGrowth(const char* what, const std::function<Left(int share)>& work);

// What this process holds open.
struct Objects {
    long long gdi, user, handles;
};
[[nodiscard]] Objects OpenObjects();

// Whether this is the long run (./run soak) instead of the one that belongs to the tests.
[[nodiscard]] inline bool IsLongRun()
{
    return std::getenv("VOLTARO_SEED") != nullptr;
}

// What chance begins with; the tests always take the same.
[[nodiscard]] inline unsigned Seed()
{
    return IsLongRun() ? static_cast<unsigned>(std::atoi(std::getenv("VOLTARO_SEED"))) : 1;
}

} // namespace voltaro
