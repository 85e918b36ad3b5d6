#pragma once

// The program in a test, and what the tests of its windows use throughout.
#include "base/platform_calls.h"
#include "base/text.h"
#include "console/agent_records.h"
#include "console/background_refresh.h"
#include "console/connection_state.h"
#include "console/main_hold.h"
#include "console/program_texts.h"
#include "console/ui_calls.h"
#include "console/windows.h"
#include "link/exchange.h"
#include "savings/saved_profile.h"
#include "savings/shown_day.h"
#include "shell/about.h"
#include "shell/main_commands.h"
#include "shell/main_menus.h"
#include "shell/program.h"
#include "shell/tray.h"
#include "shell/update_window.h"
#include "shell/window_table.h"
#include "shell/workers.h"
#include "simulator/server.h"
#include "simulator/xml.h"
#include "support/box_script.h"
#include "support/expectations.h"
#include "support/test_window.h"
#include "ui/combo_box.h"
#include "ui/controls.h"
#include "ui/list_view.h"
#include "ui/menus.h"
#include "ui/tabs.h"
#include "ui/theme.h"
#include "ui/ui_thread.h"

#include <atomic>
#include <thread>
#include <variant>

namespace voltaro {

using simulator::FaultKind;
using Operations = std::vector<std::wstring>;

inline constexpr wchar_t kMalformed[] = L"<vltp><response><status>Success",
                         kNoStatus[] = L"<vltp><response></response></vltp>", kNoAnswer[] = L"no answer";

using ControlName = std::variant<int, const wchar_t*>; // a control's id, or the label that the user finds it by

// A step of the user: a button or a menu item is chosen; a combo box, a picker or an edit takes the text.
struct Step {
    ControlName control;
    const wchar_t* text = nullptr;
};

// All windows of the program.
void DestroyWindows();

// A window and its pages.
[[nodiscard]] std::vector<HWND> WithPages(HWND window);

// The whole program: all windows, hidden, against a simulated agent; a transport second lasts 100 ms. Nothing is loaded
// until Load, no workers run and no icon shows until a test starts them.
class ConsoleProgram {
public:
    explicit ConsoleProgram(const simulator::Scenario& scenario = simulator::DefaultScenario());
    ~ConsoleProgram();

    // The first connection check and load, as start-up runs it.
    void Load();
    [[nodiscard]] simulator::AgentServer& Agent() { return m_agent; }
    [[nodiscard]] static bool IsOpen(WindowId window) { return IsWindowVisible(WindowOf(window)) != FALSE; }
    // What the agent holds; between requests it does not touch it.
    [[nodiscard]] simulator::MachineState& Machine()
    {
        return *m_agent.WithMachine([](simulator::Machine& machine) { return &machine.State(); });
    }

    // Sends a command as a click, a menu choice or a control's notification does, and serves what follows.
    void Command(HWND window, int id, int notification = 0);
    void Command(WindowId window, int id) { Command(WindowOf(window), id); }
    void MainCommand(int id) { Command(WindowId::Main, id); }
    static void ClickTrayIcon()
    {
        SendMessageW(WindowOf(WindowId::Main), kTrayMessage, 9013, WM_LBUTTONUP);
        Pump();
    }
    // The window that lies over the others that are open.
    [[nodiscard]] static HWND Front();
    // Whether the main window takes input again, nothing lying over it.
    [[nodiscard]] static bool IsMainFree() { return IsEnabled(WindowOf(WindowId::Main)) && IsConsoleReady(); }
    // Does one step after the other as the user does it, the window hearing of each, then serves what follows.
    void Do(std::initializer_list<Step> steps);
    // The box refuses what the first step enters: it is emptied, has the focus, and nothing is sent.
    void ExpectRefused(const ExpectedBox& box, std::initializer_list<Step> steps);
    static void DoubleClick(HWND list, int row);

    // A control of a window, else of the one in front, or its pages; what it shows or chooses; whether it can be used.
    [[nodiscard]] static HWND Find(ControlName name, WindowId window = WindowId::Count);
    [[nodiscard]] static std::wstring Shown(ControlName name, WindowId window = WindowId::Count);
    [[nodiscard]] static bool IsOn(ControlName name, WindowId window = WindowId::Count)
    {
        return IsEnabled(Find(name, window));
    }

    Operations TakeOperations() { return m_agent.TakeOperations(); }
    [[nodiscard]] std::wstring LastRequest(std::wstring_view operation) const { return m_agent.LastRequest(operation); }
    // Expects the last request of an operation in the usual envelope; `fields` as Line() shows elements.
    void ExpectSent(const std::wstring& operation, const std::wstring& fields);

    // Answers the operation so, whatever it asks: with a document, a status word or kNoAnswer; any other as usual.
    void AnswerWith(std::wstring_view operation, std::wstring_view answer);

private:
    simulator::AgentServer m_agent;
    PlatformCalls m_calls = platformCalls; // as they were before

public:
    BoxScript boxes{}; // what is not expected here fails the test
};

// The program once it has loaded; the requests of the load are forgotten.
struct LoadedProgram : ConsoleProgram {
    explicit LoadedProgram(const wchar_t* scenario = L"battery")
        : ConsoleProgram(*simulator::FindScenario(scenario))
    {
        Load();
        TakeOperations();
    }
    const HWND main = WindowOf(WindowId::Main);
};

} // namespace voltaro
