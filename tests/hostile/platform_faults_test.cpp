#include "base/com_apartment.h"
#include "link/host_config.h"
#include "soak/held.h"
#include "support/program.h"
#include "ui/clipboard.h"

#include <cerrno>
#include <cstring>

#include <dbghelp.h>
#include <msxml2.h>
#include <wrl/client.h>

// What FailOnce reads.
extern "C" {
void* failOriginal = nullptr;
std::uint32_t failThread = 0, failCalls = 0, failAt = 0, failError = 0;
std::intptr_t failResult = 0;
void FailOnce();
}

// Stands for any function: passes every call on with its registers untouched, but for this thread's n-th. The thread's
// identifier and last error are in its environment block.
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

using Microsoft::WRL::ComPtr;

using FunctionPlace = void**; // what holds a function's address

struct Call {
    const char* function;
    std::intptr_t result = 0;
    std::uint32_t error = ERROR_NOT_ENOUGH_MEMORY;
};
// Of one build, exchange and read. Calls that give memory or handles back are not among them.
constexpr Call kLinkCalls[] = {{"WSAStartup", WSASYSNOTREADY, 0}, {"socket", -1, WSAENOBUFS},
    {"setsockopt", -1, WSAEFAULT}, {"WSAEventSelect", -1, WSAENOBUFS}, {"connect", -1, WSAECONNREFUSED},
    {"WSAEnumNetworkEvents", -1, WSAENOTSOCK}, {"ioctlsocket", -1, WSAENOBUFS}, {"send", -1, WSAECONNRESET},
    {"recv", -1, WSAECONNRESET}, {"shutdown", -1, WSAENOTCONN}, {"CreateEventW", 0, ERROR_NO_SYSTEM_RESOURCES},
    {"CoCreateGuid", E_FAIL, 0}, {"StringFromGUID2", 0, 0}, {"SysAllocStringLen", 0, 0}, {"malloc", 0, ENOMEM}};

FunctionPlace ImportOf(const char* function)
{
    auto* const base = reinterpret_cast<std::byte*>(GetModuleHandleW(nullptr));
    ULONG size = 0;
    void* imports = ImageDirectoryEntryToData(base, TRUE, IMAGE_DIRECTORY_ENTRY_IMPORT, &size);
    for (auto* library = static_cast<IMAGE_IMPORT_DESCRIPTOR*>(imports); library->Name != 0; ++library) {
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

// Works while the n-th call through the place fails (0: none); what stood in the log.
std::string Exercise(FunctionPlace place, std::uint32_t n, const Call& call, const std::function<void()>& work)
{
    failOriginal = *place;
    failThread = GetCurrentThreadId();
    failCalls = 0;
    failAt = n;
    failResult = call.result;
    failError = call.error;
    testing::internal::CaptureStdout();
    Replace(place, reinterpret_cast<void*>(&FailOnce));
    work();
    Replace(place, failOriginal);
    return testing::internal::GetCapturedStdout();
}

// Every call through the place fails once, or of many about `most`.
void FailEach(FunctionPlace place, const Call& call, std::uint32_t most, const std::function<void()>& work,
    const std::function<void(const std::string& log)>& expect)
{
    SCOPED_TRACE(call.function);
    ASSERT_NE(place, nullptr);
    Exercise(place, 0, call, work);
    const std::uint32_t calls = failCalls;
    for (std::uint32_t n = 1; n <= calls; n += 1 + calls / most)
        expect(Exercise(place, n, call, work));
}

TEST(PlatformFaultsTest, EveryCallOfAnExchangeAndEveryMethodOfADocumentFailsOnce)
{
    simulator::AgentServer agent;
    timing.transportSecond = 20;
    int lost = 0;
    bool went = false;
    const auto exchange = [&] {
        Reply reply = Exchange(Plain(Operation::GetSnoozeSettings));
        const Element* root = reply.Root();
        went = root && FirstElement(*root, kSnoozeFields[0].element);
        lost += reply.Lost() && reply.Result() != Outcome::CannotStart; // a failed exchange leaves its socket
    };
    const auto expect = [&](const std::string& log) {
        const auto entries = std::count(log.begin(), log.end(), '\n') / 2;
        EXPECT_LE(entries, 1) << log;
        EXPECT_TRUE(went || entries == 1);
        exchange();
        EXPECT_TRUE(went);
    };
    CLSID kind{};
    ComPtr<IClassFactory> classObject;
    ComPtr<IXMLDOMDocument> document;
    constexpr IID kDocument = {0x2933BF81, 0x7B36, 0x11D2, {0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E, 0x60}};
    ASSERT_TRUE(EnterComApartment() && CLSIDFromProgID(L"Msxml2.DOMDocument.3.0", &kind) == S_OK);
    ASSERT_EQ(CoGetClassObject(kind, CLSCTX_INPROC_SERVER, nullptr, IID_PPV_ARGS(&classObject)), S_OK);
    ASSERT_EQ(classObject->CreateInstance(nullptr, kDocument, &document), S_OK);
    VARIANT_BOOL loaded = VARIANT_FALSE;
    document->loadXML(const_cast<BSTR>(L"<a>b</a>"), &loaded);
    ComPtr<IXMLDOMElement> element;
    ComPtr<IXMLDOMNode> text;
    document->get_documentElement(&element);
    element->get_firstChild(&text);
    long long handles = 0;
    for (int round = 0; round < 2; ++round) { // the first opens what the platform keeps
        ASSERT_TRUE(agent.Start(agent.Port()));
        servicePort = agent.Port();
        for (const Call& call : kLinkCalls)
            FailEach(ImportOf(call.function), call, 30, exchange, expect);
        // How many methods each has, the last of its own included.
        const std::pair<IUnknown*, int> kObjects[]
            = {{classObject.Get(), 4}, {document.Get(), 76}, {element.Get(), 51}, {text.Get(), 52}};
        for (const auto& [object, methods] : kObjects) {
            FunctionPlace const table = *reinterpret_cast<FunctionPlace*>(object);
            for (int method = 3; method < methods; ++method)
                FailEach(table + method, {"method", E_FAIL, 0}, 30, exchange, expect);
        }
        agent.Stop(); // its own handles are gone with it
        const long long now = OpenObjects().handles - lost;
        EXPECT_TRUE(round == 0 || now <= handles + 2) << now << " after " << handles;
        handles = now;
    }
    timing = Timing();
}

// Of making windows, and of opening and painting some and copying. Fonts, pens, brushes and pictures are long made.
constexpr Call kMakingCalls[] = {{"CreateWindowExW"}, {"CreateMenu"}, {"CreatePopupMenu"}, {"AppendMenuW"}, {"SetMenu"},
    {"SetWindowSubclass"}, {"SetPropW"}};
constexpr Call kShowingCalls[] = {{"CreateDialogParamW"}, {"CreateWindowExW"}, {"CopyImage"}, {"BeginPaint"}, {"GetDC"},
    {"CreateCompatibleDC"}, {"CreateCompatibleBitmap"}, {"SelectObject"}, {"GetObjectW"}, {"EmptyClipboard"},
    {"SetClipboardData"}, {"GlobalAlloc"}, {"GlobalLock"}};

void MakeWindows()
{
    DestroyWindows();
    static_cast<void>(CreateWindows());
}

void OpenPaintCopy()
{
    const HWND main = WindowOf(WindowId::Main);
    for (const int command : {kSystemInfo, kPowerScheme, kSavingsReport, kAbout}) {
        connection.connected = true;
        SendMessageW(main, WM_COMMAND, static_cast<WPARAM>(command), 0);
    }
    SendMessageW(WindowOf(WindowId::Savings), WM_COMMAND, IDOK, 0);
    const auto redraw = [](HWND window, LPARAM) {
        return RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    };
    EnumThreadWindows(GetCurrentThreadId(), redraw, 0);
    static_cast<void>(CopyToClipboard(main, L"text"));
    const UniqueBitmap bitmap(CreateBitmap(2, 2, 1, 1, nullptr));
    static_cast<void>(CopyToClipboard(main, bitmap.Get()));
    CloseAbout();
    for (const WindowId window : {WindowId::Savings, WindowId::Scheme, WindowId::SystemInfo})
        SendMessageW(WindowOf(window), WM_CLOSE, 0, 0);
    Pump();
}

TEST(PlatformFaultsTest, EveryCallOfMakingAndShowingWindowsFailsOnce)
{
    LoadedProgram program;
    platformCalls.showMessageBox = [](const BoxCall&) { return Answer::Ok; };
    const auto failAll = [](std::span<const Call> calls, void (*work)()) {
        for (const Call& call : calls) {
            FailEach(ImportOf(call.function), call, IsLongRun() ? 10 : 1, work,
                [&](const std::string& log) { EXPECT_NE(log.find(call.function), std::string::npos) << log; });
            EXPECT_GT(failCalls, 0U) << call.function;
        }
    };
    OpenPaintCopy();
    failAll(kMakingCalls, MakeWindows);
    MakeWindows();
    OpenPaintCopy();
    const Objects before = OpenObjects();
    failAll(kShowingCalls, OpenPaintCopy);
    const Objects after = OpenObjects();
    EXPECT_TRUE(after.gdi <= before.gdi && after.user <= before.user);
    EXPECT_LE(after.handles, before.handles + 10); // the simulated agent's own threads come and go
    program.Load();
    EXPECT_TRUE(connection.connected && program.IsMainFree());
}

} // namespace
} // namespace voltaro
