#pragma once

#include "power/policy_window.h"
#include "power/processor_strip.h"
#include "power/rule_window.h"
#include "power/scheme_pages.h"
#include "power/scheme_window.h"
#include "support/program.h"

namespace voltaro {

constexpr auto kEditor = WindowId::Scheme, kPolicy = WindowId::Policy, kRule = WindowId::Rule;

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
};

} // namespace voltaro
