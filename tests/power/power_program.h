#pragma once

#include "base/text.h"
#include "console/state.h"
#include "power/policy_window.h"
#include "power/processor_strip.h"
#include "power/rule_window.h"
#include "power/scheme_form.h"
#include "power/scheme_window.h"
#include "support/box_script.h"
#include "support/program.h"
#include "support/test_window.h"
#include "ui/controls.h"

#include <gtest/gtest.h>

namespace voltaro {

using Names = std::vector<std::wstring>;

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

    // The fields of the last request of an operation; its envelope is expected to be the usual one.
    std::wstring FieldsOf(std::wstring_view operation)
    {
        const std::wstring text = Replaced(LastRequest(operation), L"\r\n", L"\n");
        const std::wstring before = L"<?xml version='1.0'?>\n<vltp version=\"1.0\">\n\t<request>\n\t\t<MessageId>{ID}</"
                                    L"MessageId>\n\t\t<operation>"
            + std::wstring(operation) + L"</operation>\n";
        const std::wstring after = L"\n\t</request>\n</vltp>\n";
        EXPECT_TRUE(text.starts_with(before) && text.ends_with(after)) << text;
        return text.size() < before.size() + after.size()
            ? text
            : text.substr(before.size(), text.size() - before.size() - after.size());
    }

    // Answers the operation so, whatever it asks: a status word, "malformed", "no status" or "no answer".
    void AnswerWith(std::wstring_view operation, std::wstring_view word)
    {
        Agent().ClearScripts();
        Agent().ClearFaults();
        state.connected = true;
        if (word == L"no answer")
            Agent().SetFault(operation, {simulator::FaultKind::CloseAtOnce, {}});
        else if (word == L"malformed")
            Agent().ScriptReply(operation, L"<vltp><response><status>Success");
        else if (word == L"no status")
            Agent().ScriptReply(operation, L"<vltp><response></response></vltp>");
        else
            Agent().ScriptReply(
                operation, L"<vltp><response><status>" + std::wstring(word) + L"</status></response></vltp>");
    }
};

// A name that is refused: with which box, and how its text begins.
struct RefusedName {
    const wchar_t* name;
    const wchar_t* title;
    const wchar_t* text = L"";
};

// Types and pastes each name; what typing lets pass is refused by the button. Each time the edit is emptied and has the
// focus. `typing`: the title of the refusal while typing.
inline void ExpectRefused(PowerProgram& program, WindowId window, int edit, int button, std::wstring_view typing,
    std::initializer_list<RefusedName> names)
{
    for (const RefusedName& row : names) {
        for (const bool pasted : {false, true}) {
            SCOPED_TRACE(row.name);
            program.boxes.Expect({{row.title, row.text}});
            if (pasted)
                program.Type(window, edit, row.name);
            else
                program.TypeUnits(window, edit, row.name);
            if (row.title != typing)
                program.Command(window, button);
            program.boxes.ExpectAllSeen();
            EXPECT_EQ(TextOf(WindowOf(window), edit), L"");
            EXPECT_EQ(GetFocus(), ControlOf(WindowOf(window), edit));
        }
    }
}

// One answer to a change: the box it raises, and what is read again.
struct AnswerRow {
    const wchar_t* word;
    const wchar_t* title;
    const wchar_t* text;
    Names readAgain;
};

// Makes the change once for each answer. `question`: one that is answered with Yes each time, or none.
template <class Change>
void ExpectAnswers(PowerProgram& program, const wchar_t* operation, const wchar_t* question,
    std::vector<AnswerRow> rows, Change change)
{
    rows.push_back({L"Not Activated", nullptr, L"is not activated", {L"GetActivationstatus"}});
    rows.push_back({L"malformed", L"", L"", {}});
    rows.push_back({L"no answer", L"Connection Issue", L"is not responding", {}});
    for (const AnswerRow& row : rows) {
        SCOPED_TRACE(std::wstring(operation) + L" " + row.word);
        program.AnswerWith(operation, row.word);
        if (question != nullptr)
            program.boxes.Expect({{question, L"Are you sure", Answer::Yes}});
        // A licence refusal carries the title of the failure, which comes first.
        const wchar_t* title = row.title != nullptr ? row.title : rows.front().title;
        if (*title != L'\0')
            program.boxes.Expect({{title, row.text}});
        program.Agent().ClearRequests();
        change();
        Names expected = {L"GetActivationstatus", operation};
        expected.insert(expected.end(), row.readAgain.begin(), row.readAgain.end());
        EXPECT_EQ(program.TakeOperations(), expected);
        program.boxes.ExpectAllSeen();
    }
    program.AnswerWith(operation, L"");
    program.Agent().ClearScripts();
}

} // namespace voltaro
