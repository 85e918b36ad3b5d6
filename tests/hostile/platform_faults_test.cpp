#include "base/com_apartment.h"
#include "base/handles.h"
#include "base/platform_calls.h"
#include "console/connection_state.h"
#include "link/document.h"
#include "link/exchange.h"
#include "link/host_config.h"
#include "power/scheme_window.h"
#include "savings/savings_window.h"
#include "settings/system_info_window.h"
#include "shell/about.h"
#include "shell/window_table.h"
#include "soak/held.h"
#include "support/failing_call.h"
#include "support/open_handles.h"
#include "support/program.h"
#include "ui/clipboard.h"
#include "ui/ui_thread.h"

#include <msxml2.h>
#include <wrl/client.h>

#include <cerrno>

namespace voltaro {
namespace {

using Microsoft::WRL::ComPtr;

struct Call {
    const char* function;
    std::intptr_t result;
    std::uint32_t error;
};

// Of one build, exchange and read. Calls that give memory or handles back are not among them.
constexpr Call kLinkCalls[] = {
    {"WSAStartup", WSASYSNOTREADY, 0},
    {"socket", -1, WSAENOBUFS},
    {"setsockopt", -1, WSAEFAULT},
    {"WSAEventSelect", -1, WSAENOBUFS},
    {"connect", -1, WSAECONNREFUSED},
    {"WSAEnumNetworkEvents", -1, WSAENOTSOCK},
    {"ioctlsocket", -1, WSAENOBUFS},
    {"send", -1, WSAECONNRESET},
    {"recv", -1, WSAECONNRESET},
    {"shutdown", -1, WSAENOTCONN},
    {"CreateEventW", 0, ERROR_NO_SYSTEM_RESOURCES},
    {"CoCreateGuid", E_FAIL, 0},
    {"StringFromGUID2", 0, 0},
    {"SysAllocStringLen", 0, 0},
    {"malloc", 0, ENOMEM},
};

class LinkFaultsTest : public testing::Test {
protected:
    LinkFaultsTest()
    {
        timing.transportSecond = 20;
        Start();
        for (int i = 0; i < 3; ++i)
            EXPECT_TRUE(Exercise(nullptr, 0));
        m_agent.Stop();
        m_handles = OpenHandles();
        Start();
    }
    ~LinkFaultsTest() override
    {
        m_agent.Stop();                                   // its own handles are gone with it
        EXPECT_LE(OpenHandles(), m_handles + m_left + 2); // what the platform opens once
        EXPECT_GE(m_exercised, 40);
        timing = Timing();
    }

    void Start()
    {
        EXPECT_TRUE(m_agent.Start(m_agent.Port()));
        servicePort = m_agent.Port();
    }

    // Builds, sends and reads while the n-th call of that kind fails; true when all of it went well.
    bool Exercise(FunctionPlace place, int n, const Call& call = {})
    {
        std::optional<FailingCall> failing;
        if (place)
            failing.emplace(place, n, call.result, call.error);
        Reply reply = Exchange(Plain(Operation::GetSnoozeSettings));
        const Element* root = reply.Root();
        failing.reset();
        m_left += reply.Lost() && reply.Result() != Outcome::CannotStart; // a failed exchange leaves its socket
        return root && FirstElement(*root, kSnoozeFields[0].element);
    }

    // Every call through the place fails once, or of many every so manieth.
    void FailEach(FunctionPlace place, const Call& call)
    {
        ASSERT_NE(place, nullptr) << call.function;
        Exercise(place, 0);
        const int calls = FailingCall::Calls();
        for (int n = 1; n <= calls; n += 1 + calls / 30) {
            testing::internal::CaptureStdout();
            const bool went = Exercise(place, n, call);
            const std::string log = testing::internal::GetCapturedStdout();
            const auto entries = std::count(log.begin(), log.end(), '\n') / 2;
            EXPECT_LE(entries, 1) << call.function << n << log;
            EXPECT_TRUE(went || entries == 1) << call.function << n;
            EXPECT_TRUE(Exercise(nullptr, 0)) << call.function << n;
            ++m_exercised;
        }
    }

    simulator::AgentServer m_agent;
    int m_handles = 0, m_left = 0, m_exercised = 0;
};

TEST_F(LinkFaultsTest, EveryCallOfAnExchangeFailsOnce)
{
    for (const Call& call : kLinkCalls)
        FailEach(ImportOf(call.function), call);
}

TEST_F(LinkFaultsTest, EveryMethodOfADocumentFailsOnce)
{
    ASSERT_TRUE(EnterComApartment());
    CLSID kind{};
    ASSERT_EQ(CLSIDFromProgID(L"Msxml2.DOMDocument.3.0", &kind), S_OK);
    ComPtr<IClassFactory> classObject;
    ASSERT_EQ(CoGetClassObject(kind, CLSCTX_INPROC_SERVER, nullptr, IID_PPV_ARGS(&classObject)), S_OK);
    ComPtr<IXMLDOMDocument> document;
    constexpr IID kDocument = {0x2933BF81, 0x7B36, 0x11D2, {0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E, 0x60}};
    ASSERT_EQ(classObject->CreateInstance(nullptr, kDocument, &document), S_OK);
    VARIANT_BOOL loaded = VARIANT_FALSE;
    document->loadXML(const_cast<BSTR>(L"<a b='c'>d</a>"), &loaded);
    ComPtr<IXMLDOMElement> element;
    ComPtr<IXMLDOMNode> text, attribute;
    ComPtr<IXMLDOMNamedNodeMap> attributes;
    document->get_documentElement(&element);
    element->get_firstChild(&text);
    element->get_attributes(&attributes);
    attributes->get_item(0, &attribute);
    // How many methods each has, the last of its own included.
    const std::pair<IUnknown*, int> kObjects[]
        = {{classObject.Get(), 4}, {document.Get(), 76}, {element.Get(), 51}, {text.Get(), 52}, {attribute.Get(), 46}};
    for (const auto& [object, methods] : kObjects) {
        const FunctionPlace table = *reinterpret_cast<FunctionPlace*>(object);
        for (int method = 3; method < methods; ++method)
            FailEach(table + method, {std::to_string(method).c_str(), E_FAIL, 0});
    }
}

// Of making windows, and of opening and painting some and copying; each gives 0 when it fails.
constexpr const char* kMakingCalls[] = {"CreateWindowExW", "CreateMenu", "CreatePopupMenu", "AppendMenuW", "SetMenu",
    "SetWindowSubclass", "SetPropW", "LoadImageW", "CreateFontW"};
constexpr const char* kShowingCalls[] = {"CreateDialogParamW", "CreateWindowExW", "CopyImage", "BeginPaint", "GetDC",
    "CreateCompatibleDC", "CreateCompatibleBitmap", "CreatePen", "CreateSolidBrush", "CreateRectRgn", "SelectObject",
    "GetObjectW", "GetDIBits", "OpenClipboard", "EmptyClipboard", "SetClipboardData", "GlobalAlloc", "GlobalLock"};

// Makes all windows anew.
bool MakeWindows()
{
    for (std::size_t window = windowHandles.size(); window-- > 0;) {
        if (IsWindow(windowHandles[window]))
            DestroyWindow(windowHandles[window]);
    }
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) { } // the quit message too
    windowHandles = {};
    AllowWaits(); // which the main window's end has ended
    return CreateWindows();
}

void OpenPaintCopy()
{
    const HWND main = WindowOf(WindowId::Main);
    for (const auto open : {OpenSystemInfoWindow, OpenSchemeWindow, OpenSavingsWindow, OnAbout}) {
        connection.connected = true;
        open(main);
    }
    SendMessageW(WindowOf(WindowId::Savings), WM_COMMAND, IDOK, 0);
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM) {
            return RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
        },
        0);
    static_cast<void>(CopyToClipboard(main, L"text"));
    const UniqueBitmap bitmap(CreateBitmap(2, 2, 1, 1, nullptr));
    static_cast<void>(CopyToClipboard(main, bitmap.Get()));
    CloseAbout();
    for (const WindowId window : {WindowId::Savings, WindowId::Scheme, WindowId::SystemInfo})
        SendMessageW(WindowOf(window), WM_CLOSE, 0, 0);
    Pump();
}

// The n-th of the calls fails; how many there were.
int Exercise(const char* function, int n, void (*work)())
{
    const FunctionPlace place = ImportOf(function);
    EXPECT_NE(place, nullptr) << function;
    const FailingCall failing(place, n, 0, ERROR_NOT_ENOUGH_MEMORY);
    work();
    return FailingCall::Calls();
}

TEST(WindowFaultsTest, EveryCallFailsOnce)
{
    LoadedProgram program;
    platformCalls.showMessageBox = [](const BoxCall&) { return Answer::Ok; };
    const auto exerciseAll = [](std::span<const char* const> functions, void (*work)()) {
        for (const char* function : functions) {
            const int calls = Exercise(function, 0, work);
            for (int n = 1; n <= calls; n += 1 + calls / (IsLongRun() ? 10 : 1))
                Exercise(function, n, work);
        }
    };
    OpenPaintCopy();
    const int handles = OpenHandles();
    exerciseAll(kMakingCalls, [] { static_cast<void>(MakeWindows()); });
    ASSERT_TRUE(MakeWindows());
    exerciseAll(kShowingCalls, OpenPaintCopy);
    EXPECT_LE(OpenHandles(), handles + 10); // the simulated agent's own threads come and go
    program.Load();
    EXPECT_TRUE(connection.connected);
    EXPECT_TRUE(IsWindowEnabled(WindowOf(WindowId::Main)));
}

} // namespace
} // namespace voltaro
