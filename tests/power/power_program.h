#pragma once

#include "power/policy_window.h"
#include "power/processor_strip.h"
#include "power/rule_window.h"
#include "power/scheme_pages.h"
#include "power/scheme_window.h"
#include "support/program.h"

namespace voltaro {

constexpr auto kEditor = WindowId::Scheme, kDisplayPage = WindowId::SchemeDisplay,
               kPowerOffPage = WindowId::SchemePowerOff, kPolicy = WindowId::Policy, kRule = WindowId::Rule;

// The program with the scheme editor open.
struct PowerProgram : LoadedProgram {
    explicit PowerProgram(const wchar_t* scenario = L"battery")
        : LoadedProgram(scenario)
    {
        OpenSchemeWindow(WindowOf(WindowId::Main));
        Agent().ClearRequests();
    }

    // Types a text unit by unit into an edit, over what is there.
    static void TypeUnits(int id, std::wstring_view text)
    {
        SendMessageW(Find(id), EM_SETSEL, 0, -1);
        for (const wchar_t unit : text)
            SendMessageW(Find(id), WM_CHAR, unit, 0);
    }

    // An input, and the title and the beginning of the text that refuse it.
    struct RefusalRow {
        const wchar_t *input, *title, *text = L"";
    };
    // Types and pastes each name: it is refused then (`typing`: with that title) or by the button, and emptied.
    void ExpectRefused(int edit, int button, std::wstring_view typing, std::initializer_list<RefusalRow> names)
    {
        for (const RefusalRow& row : names) {
            for (const bool pasted : {false, true}) {
                SCOPED_TRACE(row.input);
                boxes.Expect({{row.title, row.text}});
                pasted ? Do({{edit, row.input}}) : TypeUnits(edit, row.input);
                if (row.title != typing)
                    Do({{button}});
                boxes.ExpectAllSeen();
                EXPECT_EQ(Shown(edit), L"");
                EXPECT_EQ(GetFocus(), Find(edit));
            }
        }
    }
};

} // namespace voltaro
