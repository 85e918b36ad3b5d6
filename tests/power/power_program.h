#pragma once

#include "power/policy_window.h"
#include "power/processor_strip.h"
#include "power/rule_window.h"
#include "power/scheme_pages.h"
#include "power/scheme_window.h"
#include "support/program.h"
#include "support/refusals.h"

namespace voltaro {

using Names = Operations;

// The program loaded from a simulated agent, with the scheme editor open.
struct PowerProgram : ConsoleProgram {
    explicit PowerProgram(const simulator::Scenario& scenario = simulator::DefaultScenario())
        : ConsoleProgram(scenario)
    {
        Load();
        OpenSchemeWindow(WindowOf(WindowId::Main));
        Agent().ClearRequests();
    }

    BoxScript boxes{std::initializer_list<ExpectedBox>{}};

    // Types a text unit by unit into an edit, over what is there.
    static void TypeUnits(WindowId window, int id, std::wstring_view text)
    {
        const HWND edit = ControlOf(WindowOf(window), id);
        SendMessageW(edit, EM_SETSEL, 0, -1);
        for (const wchar_t unit : text)
            SendMessageW(edit, WM_CHAR, unit, 0);
    }
};

// Types and pastes each name; what typing lets pass is refused by the button. Each time the edit is emptied and has the
// focus. `typing`: the title of the refusal while typing.
inline void ExpectRefused(PowerProgram& program, WindowId window, int edit, int button, std::wstring_view typing,
    std::initializer_list<RefusalRow> names)
{
    for (const RefusalRow& row : names) {
        for (const bool pasted : {false, true}) {
            SCOPED_TRACE(row.input);
            program.boxes.Expect({{row.title, row.text}});
            if (pasted)
                program.Type(window, edit, row.input);
            else
                program.TypeUnits(window, edit, row.input);
            if (row.title != typing)
                program.Command(window, button);
            program.boxes.ExpectAllSeen();
            EXPECT_EQ(TextOf(WindowOf(window), edit), L"");
            EXPECT_EQ(GetFocus(), ControlOf(WindowOf(window), edit));
        }
    }
}

// Sends what would close or change a window to one that another window lies over; nothing may come of it.
inline void SendPastDisabled(WindowId window, std::initializer_list<int> commands)
{
    SendMessageW(WindowOf(window), WM_CLOSE, 0, 0);
    for (const int command : commands)
        SendMessageW(WindowOf(window), WM_COMMAND, static_cast<WPARAM>(command), 0);
}

} // namespace voltaro
