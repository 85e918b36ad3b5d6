#include "support/failing_call.h"

#include "base/windows_api.h"

#include <cstddef>
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

void Replace(FunctionPlace place, void* function)
{
    DWORD old = 0;
    VirtualProtect(place, sizeof *place, PAGE_READWRITE, &old);
    *place = function;
    VirtualProtect(place, sizeof *place, old, &old);
}

} // namespace

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

FailingCall::FailingCall(FunctionPlace place, int n, std::intptr_t result, std::uint32_t error)
    : m_place(place)
{
    failOriginal = *place;
    failThread = GetCurrentThreadId();
    failCalls = 0;
    failAt = static_cast<std::uint32_t>(n);
    failResult = result;
    failError = error;
    Replace(place, reinterpret_cast<void*>(&FailOnce));
}

FailingCall::~FailingCall()
{
    Replace(m_place, failOriginal);
}

int FailingCall::Calls()
{
    return static_cast<int>(failCalls);
}

} // namespace voltaro
