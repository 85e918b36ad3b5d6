#include "base/platform_calls.h"
#include "link/document.h"
#include "link/exchange.h"
#include "link/host_config.h"
#include "simulator/server.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

// What FailOnce reads.
extern "C" {
void* failOriginal = nullptr;
std::uint32_t failThread = 0, failCalls = 0, failAt = 0, failError = 0;
std::intptr_t failResult = 0;
void FailOnce();
}

// Stands for a function of any parameters: passes every call on with its registers untouched, but for this thread's
// n-th. The thread's identifier and last error are in its environment block.
asm(R"(
    .globl FailOnce
FailOnce:
    movl %gs:0x48, %eax
    cmpl failThread(%rip), %eax
    jne 1f
    incl failCalls(%rip)
    movl failAt(%rip), %eax
    cmpl failCalls(%rip), %eax
    jne 1f
    movl failError(%rip), %eax
    movl %eax, %gs:0x68
    movq failResult(%rip), %rax
    ret
1:  jmp *failOriginal(%rip)
)");

namespace voltaro {
namespace {

// What holds a function's address: an entry of this program's import table.
using FunctionPlace = void**;

struct Call {
    const char* function;
    std::intptr_t result;
    std::uint32_t error;
};

// Of one build, exchange and read. Calls that give memory or handles back are not among them.
constexpr Call kCalls[] = {{"WSAStartup", WSASYSNOTREADY, 0}, {"socket", -1, WSAENOBUFS}, {"setsockopt", -1, WSAEFAULT},
    {"WSAEventSelect", -1, WSAENOBUFS}, {"connect", -1, WSAECONNREFUSED}, {"WSAEnumNetworkEvents", -1, WSAENOTSOCK},
    {"ioctlsocket", -1, WSAENOBUFS}, {"send", -1, WSAECONNRESET}, {"recv", -1, WSAECONNRESET},
    {"shutdown", -1, WSAENOTCONN}, {"CreateEventW", 0, ERROR_NO_SYSTEM_RESOURCES},
    {"CoCreateInstance", E_OUTOFMEMORY, 0}, {"CoCreateGuid", E_FAIL, 0}, {"StringFromGUID2", 0, 0},
    {"SysAllocStringLen", 0, 0}, {"malloc", 0, ENOMEM}};

FunctionPlace ImportOf(const char* function)
{
    auto* const base = reinterpret_cast<std::byte*>(GetModuleHandleW(nullptr));
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const auto& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    for (auto* library = reinterpret_cast<IMAGE_IMPORT_DESCRIPTOR*>(base + directory.VirtualAddress);
         library->Name != 0; ++library) {
        const auto* names = reinterpret_cast<const IMAGE_THUNK_DATA*>(base + library->OriginalFirstThunk);
        auto* places = reinterpret_cast<FunctionPlace>(base + library->FirstThunk);
        for (; names->u1.AddressOfData != 0; ++names, ++places) {
            const auto* name = reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + names->u1.AddressOfData);
            if (!IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal) && std::strcmp(name->Name, function) == 0)
                return places;
        }
    }
    return nullptr;
}

void Replace(FunctionPlace place, void* function)
{
    DWORD old = 0;
    VirtualProtect(place, sizeof *place, PAGE_READWRITE, &old);
    *place = function;
    VirtualProtect(place, sizeof *place, old, &old);
}

// Builds, sends and reads while the n-th call through the place fails (0: none); true when all of it went well.
bool Exercise(FunctionPlace place, std::uint32_t n, const Call& call)
{
    failOriginal = *place;
    failThread = GetCurrentThreadId();
    failCalls = 0;
    failAt = n;
    failResult = call.result;
    failError = call.error;
    Replace(place, reinterpret_cast<void*>(&FailOnce));
    Reply reply = Exchange(Plain(Operation::GetSnoozeSettings));
    const Element* root = reply.Root();
    Replace(place, failOriginal);
    return root && FirstElement(*root, kSnoozeFields[0].element);
}

// Every call through the place fails once, or of many every so manieth: at most one entry in the log tells of it.
void FailEach(const Call& call)
{
    const FunctionPlace place = ImportOf(call.function);
    ASSERT_NE(place, nullptr) << call.function;
    EXPECT_TRUE(Exercise(place, 0, call));
    const std::uint32_t calls = failCalls;
    for (std::uint32_t n = 1; n <= calls; n += 1 + calls / 30) {
        testing::internal::CaptureStdout();
        const bool went = Exercise(place, n, call);
        const std::string log = testing::internal::GetCapturedStdout();
        const auto entries = std::count(log.begin(), log.end(), '\n') / 2;
        EXPECT_LE(entries, 1) << call.function << n << log;
        EXPECT_TRUE(went || entries == 1) << call.function << n;
        EXPECT_TRUE(Exercise(place, 0, call)) << call.function << n;
    }
}

TEST(LinkFaultsTest, EveryCallOfAnExchangeFailsOnce)
{
    simulator::AgentServer agent;
    ASSERT_TRUE(agent.Start());
    servicePort = agent.Port();
    timing.transportSecond = 20;
    for (const Call& call : kCalls)
        FailEach(call);
    timing = Timing();
}

} // namespace
} // namespace voltaro
