#include "support/program.h"

#include "console/system_events.h"
#include "link/host_config.h"
#include "scheduler/job_controls.h"
#include "settings/access_control_window.h"
#include "settings/proxy_window.h"
#include "shell/connection.h"
#include "shell/pause.h"
#include "support/installation.h"

#include <cstdio>

namespace voltaro {

ConsoleProgram::ConsoleProgram(const simulator::Scenario& scenario)
    : m_agent(scenario)
{
    AdoptUiThread();
    timing = {100, 20, 480'000, 20, 20, 200};
    EXPECT_TRUE(m_agent.Start());
    Install(L"voltaro_test", m_agent.Port());
    EXPECT_TRUE(ReadInstallPath(programTexts.installDirectory));
    PrepareVersionTexts();
    static const bool registered = RegisterClasses();
    EXPECT_TRUE(registered && CreateWindows());
    EXPECT_EQ(servicePort, m_agent.Port());
}

void DestroyWindows()
{
    for (std::size_t i = kWindowCount; i-- > 0;) {
        if (IsWindow(windowHandles[i]))
            DestroyWindow(windowHandles[i]);
    }
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) { } // the quit message too
    windowHandles = {};
    AllowWaits(); // which the main window's end has ended
}

ConsoleProgram::~ConsoleProgram()
{
    DestroyWindows();
    connection.connected = false;
    connection.detailsAnswered = false;
    notPaused = false;
    updateBusy = false;
    trayRestoreAllowed = false;
    std::destroy_at(&agentRecords);
    std::construct_at(&agentRecords);
    hostSettings = {};
    proxySettings = {};
    savedProfile = {};
    ReleaseAllHolders();
    ReleaseMainWindow(HoldReason::Check);
    refreshRequests = 0;
    static_cast<void>(TakeEvents());
    platformCalls = m_calls;
    boxClosed = nullptr;
}

void ConsoleProgram::Load()
{
    PrepareForCheck();
    RunCheck(WindowOf(WindowId::Main));
    Pump();
}

void ConsoleProgram::Command(HWND window, int id, int notification)
{
    SendMessageW(window, WM_COMMAND, MAKEWPARAM(id, notification), reinterpret_cast<LPARAM>(GetDlgItem(window, id)));
    Pump();
}

std::vector<HWND> WithPages(HWND window)
{
    std::vector<HWND> windows = {window};
    std::ranges::copy_if(windowHandles, std::back_inserter(windows), [=](HWND page) { return IsChild(window, page); });
    return windows;
}

HWND ConsoleProgram::Front()
{
    // Windows that lie over others have later identifiers.
    const auto open = std::find_if(windowHandles.rbegin(), windowHandles.rend(), IsWindowVisible);
    return open != windowHandles.rend() ? GetAncestor(*open, GA_ROOT) : WindowOf(WindowId::Main);
}

HWND ConsoleProgram::Find(ControlName name, WindowId window)
{
    const auto* label = std::get_if<const wchar_t*>(&name);
    for (const HWND holder : WithPages(window != WindowId::Count ? WindowOf(window) : Front())) {
        const HWND control = label ? Labelled(holder, *label) : GetDlgItem(holder, std::get<int>(name));
        if (control != nullptr)
            return control;
    }
    EXPECT_EQ(label, nullptr) << "no control " << *label;
    return nullptr;
}

std::wstring ConsoleProgram::Shown(ControlName name, WindowId window)
{
    const HWND control = Find(name, window);
    const bool isCombo = ClassOf(control) == WC_COMBOBOXW;
    return isCombo ? SelectedText(GetParent(control), GetDlgCtrlID(control)) : WindowText(control);
}

void ConsoleProgram::Do(std::initializer_list<Step> steps)
{
    for (const auto& [name, text] : steps) {
        const HWND control = Find(name), window = control != nullptr ? GetParent(control) : Front();
        const int* given = std::get_if<int>(&name);
        const int id = given ? *given : GetDlgCtrlID(control);
        const std::wstring kind = ClassOf(control);
        if (kind == DATETIMEPICK_CLASSW) {
            (text[2] == L':' ? ShowTime : ShowDate)(window, id, text);
        } else if (kind == WC_COMBOBOXW) {
            EXPECT_GE(SelectExact(window, id, text), 0) << text;
            Command(window, id, CBN_SELCHANGE);
        } else if (kind == WC_EDITW) {
            SendMessageW(control, EM_SETSEL, 0, -1);
            SendMessageW(control, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(text));
        } else if (given && (GetWindowLongW(control, GWL_STYLE) & BS_TYPEMASK) <= BS_DEFPUSHBUTTON) {
            Command(window, id); // even where it is grey, or in the menu
        } else {
            SendMessageW(control, BM_CLICK, 0, 0);
        }
        Pump();
    }
}

void ConsoleProgram::ExpectRefused(const ExpectedBox& box, std::initializer_list<Step> steps)
{
    const ControlName edit = steps.begin()->control;
    boxes.Expect({box});
    TakeOperations();
    Do(steps);
    boxes.ExpectAllSeen();
    EXPECT_EQ(Shown(edit), L"") << box.caption;
    EXPECT_EQ(GetFocus(), Find(edit)) << box.caption;
    EXPECT_EQ(TakeOperations(), Operations{}) << box.caption;
}

void ConsoleProgram::DoubleClick(HWND list, int row)
{
    SelectRow(list, row);
    const NMHDR twice{list, static_cast<UINT_PTR>(GetDlgCtrlID(list)), static_cast<UINT>(NM_DBLCLK)};
    SendMessageW(GetParent(list), WM_NOTIFY, twice.idFrom, reinterpret_cast<LPARAM>(&twice));
}

void ConsoleProgram::ExpectSent(const std::wstring& operation, const std::wstring& fields)
{
    std::wstring sent = Line(simulator::ParseXml(LastRequest(operation)).root);
    constexpr std::size_t kTag = 23, kIdentifier = 38; // "vltp[request[MessageId={...}"
    EXPECT_EQ(sent.replace(std::min(kTag, sent.size()), kIdentifier, L"{ID}"),
        L"vltp[request[MessageId={ID} operation=" + operation + L" " + fields + L"]]");
}

void ConsoleProgram::AnswerWith(std::wstring_view operation, std::wstring_view answer)
{
    m_agent.ClearRequests();
    m_agent.ClearScripts();
    m_agent.ClearFaults();
    connection.connected = true;
    if (answer == kNoAnswer)
        m_agent.SetFault(operation, {FaultKind::CloseAtOnce, {}});
    else if (answer.starts_with(L'<'))
        m_agent.ScriptReply(operation, answer);
    else
        m_agent.ScriptReply(
            operation, L"<vltp><response><status>" + std::wstring(answer) + L"</status></response></vltp>");
}

} // namespace voltaro

// A crash must not look like success, and must not wait for anybody in a box.
static LONG WINAPI OnCrash(EXCEPTION_POINTERS* pointers)
{
    std::printf("crashed: 0x%08lx\n[  FAILED  ]\n", pointers->ExceptionRecord->ExceptionCode);
    std::fflush(stdout);
    TerminateProcess(GetCurrentProcess(), 3);
    return EXCEPTION_EXECUTE_HANDLER;
}

int main(int count, char** arguments)
{
    SetUnhandledExceptionFilter(&OnCrash);
    InitCommonControls();
    voltaro::platformCalls.showMessageBox = &voltaro::FailOnBox;
    testing::InitGoogleTest(&count, arguments);
    return RUN_ALL_TESTS();
}
