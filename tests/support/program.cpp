#include "support/program.h"

#include "base/timing.h"
#include "console/background_refresh.h"
#include "console/main_hold.h"
#include "console/system_events.h"
#include "link/host_config.h"
#include "shell/connection.h"
#include "shell/main_menus.h"
#include "shell/program.h"
#include "shell/window_table.h"
#include "support/installation.h"
#include "support/test_window.h"
#include "ui/combo_box.h"
#include "ui/controls.h"
#include "ui/ui_thread.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

namespace voltaro {

ConsoleProgram::ConsoleProgram(const simulator::Scenario& scenario)
    : m_agent(scenario)
    , m_door(boxDoor)
{
    AdoptUiThread();
    AllowWaits();
    timing = {100, 20, 480'000, 20, 20, 200};
    EXPECT_TRUE(m_agent.Start());
    Install(L"voltaro_test", m_agent.Port());
    EXPECT_TRUE(ReadInstallPath(state.installDirectory));
    PrepareVersionTexts();
    static const bool registered = RegisterClasses();
    EXPECT_TRUE(registered);
    EXPECT_TRUE(CreateWindows());
    EXPECT_EQ(servicePort, m_agent.Port());
}

ConsoleProgram::~ConsoleProgram()
{
    for (std::size_t i = kWindowCount; i-- > 0;) {
        if (IsWindow(state.windows[i]))
            DestroyWindow(state.windows[i]);
    }
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) { } // the quit message too
    std::destroy_at(&state);
    std::construct_at(&state);
    ReleaseAllHolders();
    ReleaseMainWindow(HoldReason::Check);
    refreshRequests = 0;
    static_cast<void>(TakeEvents());
    boxDoor = m_door;
    boxClosed = nullptr;
    timing = Timing();
    AllowWaits();
}

void ConsoleProgram::Load()
{
    PrepareForCheck();
    RunCheck(WindowOf(WindowId::Main));
    Pump();
}

void ConsoleProgram::Command(WindowId window, int id, int notification)
{
    const HWND handle = WindowOf(window);
    SendMessageW(handle, WM_COMMAND, MAKEWPARAM(id, notification), reinterpret_cast<LPARAM>(GetDlgItem(handle, id)));
    Pump();
}

void ConsoleProgram::Type(WindowId window, int id, std::wstring_view text)
{
    SendMessageW(ControlOf(WindowOf(window), id), EM_SETSEL, 0, -1);
    SendMessageW(
        ControlOf(WindowOf(window), id), EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(std::wstring(text).c_str()));
    Pump();
}

void ConsoleProgram::Choose(WindowId window, int id, std::wstring_view entry)
{
    EXPECT_GE(SelectExact(WindowOf(window), id, entry), 0) << std::wstring(entry);
    Command(window, id, CBN_SELCHANGE);
}

Operations ConsoleProgram::TakeOperations()
{
    Operations names;
    for (const simulator::ReceivedRequest& request : m_agent.Requests())
        names.push_back(request.operation);
    m_agent.ClearRequests();
    return names;
}

std::wstring ConsoleProgram::LastRequest(std::wstring_view operation)
{
    const std::vector<simulator::ReceivedRequest> requests = m_agent.Requests();
    const auto found = std::find_if(
        requests.rbegin(), requests.rend(), [&](const auto& request) { return request.operation == operation; });
    if (found == requests.rend())
        return {};
    std::wstring text = found->text;
    const std::size_t at = text.find(L"<MessageId>");
    constexpr std::size_t kTag = 11;
    constexpr std::size_t kIdentifier = 38;
    if (at != std::wstring::npos && text.size() > at + kTag + kIdentifier)
        text.replace(at + kTag, kIdentifier, L"{ID}");
    return text;
}

} // namespace voltaro
