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

// The program with the scheme editor open. An id alone names a control of its windows, or an item of its menu.
struct PowerProgram : LoadedProgram {
    explicit PowerProgram(const wchar_t* scenario = L"battery")
        : LoadedProgram(scenario)
    {
        OpenSchemeWindow(WindowOf(WindowId::Main));
        Agent().ClearRequests();
    }

    static WindowId Holder(int id)
    {
        for (const WindowId window : {kDisplayPage, kPowerOffPage, WindowId::SchemeProcessor, kPolicy, kRule}) {
            if (ControlOf(WindowOf(window), id) != nullptr)
                return window;
        }
        return kEditor;
    }
    static HWND In(int id) { return ControlOf(WindowOf(Holder(id)), id); }
    static bool IsOn(int id) { return IsEnabled(In(id)); }
    static std::wstring Shown(int id)
    {
        return ClassOf(In(id)) == WC_EDITW ? WindowText(In(id)) : SelectedText(WindowOf(Holder(id)), id);
    }
    struct IdStep {
        int id;
        const wchar_t* text = nullptr;
    };
    using LoadedProgram::Do;
    void Do(std::initializer_list<IdStep> steps)
    {
        for (const IdStep& step : steps)
            Do({{Holder(step.id), step.id, step.text}});
    }
    // Types a text unit by unit into an edit, over what is there.
    static void TypeUnits(int id, std::wstring_view text)
    {
        SendMessageW(In(id), EM_SETSEL, 0, -1);
        for (const wchar_t unit : text)
            SendMessageW(In(id), WM_CHAR, unit, 0);
    }

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
                EXPECT_EQ(GetFocus(), In(edit));
            }
        }
    }
};

} // namespace voltaro
