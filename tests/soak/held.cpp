#include "soak/held.h"

#include "support/installation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>

namespace voltaro {
namespace {

// How many of the handles name something. The platform's own counters are always 0 under Wine, so every handle answers
// for itself, by its lower half alone. The lowest free one is given out next: a long gap is the end.
template <ULONG_PTR Step, bool (*IsHeld)(HANDLE handle)>
long long CountHandles()
{
    constexpr ULONG_PTR kLongestGap = 4'000;
    long long count = 0;
    ULONG_PTR last = 0;
    for (ULONG_PTR handle = Step; handle < last + Step * kLongestGap; handle += Step) {
        if (IsHeld(reinterpret_cast<HANDLE>(handle))) {
            last = handle;
            ++count;
        }
    }
    return count;
}

bool IsKernelHandle(HANDLE handle)
{
    DWORD flags = 0;
    return GetHandleInformation(handle, &flags) != 0;
}

// Menus and own windows; icons and cursors show by the bitmaps that they hold.
bool IsUserObject(HANDLE handle)
{
    DWORD process = 0;
    GetWindowThreadProcessId(static_cast<HWND>(handle), &process);
    return process == GetCurrentProcessId() || IsMenu(static_cast<HMENU>(handle));
}

// Of all blocks in use, of all heaps.
long long CountHeapBytes()
{
    std::array<HANDLE, 100> heaps{};
    const DWORD count = std::min(GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data()), DWORD{100});
    long long bytes = 0;
    for (DWORD i = 0; i < count; ++i) {
        PROCESS_HEAP_ENTRY entry{};
        HeapLock(heaps[i]);
        while (HeapWalk(heaps[i], &entry))
            bytes += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) ? static_cast<long long>(entry.cbData) : 0;
        HeapUnlock(heaps[i]);
    }
    return bytes;
}

struct Counter {
    const char* what;
    long long (*count)();
    int perSocket, perRequest, perLabel;
    int slack = 0;
};
// What bare calls leave in Wine: 228 bytes of an XML declaration, 24 of a label that was given a font. A heap gives no
// page back that holds such a block, and some of the platform's own memory is in no heap.
constexpr Counter kCounters[] = {
    {"GDI objects", CountHandles<1, [](HANDLE handle) { return GetObjectType(handle) != 0; }>, 0, 0, 0},
    {"USER objects", CountHandles<2, IsUserObject>, 0, 0, 0},
    {"handles", CountHandles<4, IsKernelHandle>, 1, 0, 0},
    {"heap bytes", CountHeapBytes, 0, 228, 24},
    {"private bytes", [] { return PrivateBytes(GetCurrentProcess()); }, 0, 400, 40, 1 << 20},
};
} // namespace

Objects OpenObjects()
{
    return {kCounters[0].count(), kCounters[1].count(), kCounters[2].count()};
}

void ExpectNoGrowth(const char* what, const std::function<Left(int share)>& work)
{
    std::array<long long, std::size(kCounters)> before{}, least{};
    least.fill(1LL << 40);
    Left left = work(10);
    bool grown = true;
    for (int round = 0; round < 3 && grown; ++round) {
        std::ranges::transform(kCounters, before.begin(), [](const Counter& counter) { return counter.count(); });
        left = work(1);
        grown = false;
        for (std::size_t i = 0; i < least.size(); ++i) {
            const Counter& row = kCounters[i];
            const long long allowed
                = row.perSocket * left.sockets + row.perRequest * left.requests + row.perLabel * left.labels;
            least[i] = std::min(least[i], row.count() - before[i] - allowed);
            grown = grown || least[i] > row.slack;
        }
    }
    std::printf("%-40s", what);
    for (std::size_t i = 0; i < least.size(); ++i) {
        std::printf("%s%s %+lld", i == 0 ? " " : ", ", kCounters[i].what, least[i]);
        EXPECT_LE(least[i], kCounters[i].slack) << what << ": " << kCounters[i].what;
    }
    std::printf(" (%d requests, %d sockets left)\n", left.requests, left.sockets);
    std::fflush(stdout);
}

} // namespace voltaro
