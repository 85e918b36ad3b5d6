#pragma once

#include "base/text.h"
#include "console/connection_state.h"
#include "console/windows.h"
#include "power/policy_window.h"
#include "power/processor_strip.h"
#include "power/rule_window.h"
#include "power/scheme_form.h"
#include "power/scheme_window.h"
#include "support/box_script.h"
#include "support/program.h"
#include "support/refusals.h"
#include "support/test_window.h"
#include "ui/controls.h"

namespace voltaro {

using Names = std::vector<std::wstring>;

inline constexpr wchar_t kMalformed[] = L"<vltp><response><status>Success",
                         kNoStatus[] = L"<vltp><response></response></vltp>", kNoAnswer[] = L"no answer";

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

    // Expects the last request of an operation in the usual envelope. "|" stands for the start of a detail's line.
    void ExpectSent(const std::wstring& operation, const std::wstring& fields)
    {
        const std::wstring expected = L"<?xml version='1.0'?>\n<vltp version=\"1.0\">\n\t<request>\n\t\t<MessageId>{ID}"
                                      L"</MessageId>\n\t\t<operation>"
            + operation + L"</operation>\n\t\t" + Replaced(fields, L"|", L"\n\t\t\t") + L"\n\t</request>\n</vltp>\n";
        EXPECT_EQ(LastRequest(operation), Replaced(expected, L"\n", L"\r\n"));
    }

    // Answers the operation so, whatever it asks: with a document, a status word or kNoAnswer.
    void AnswerWith(std::wstring_view operation, const std::wstring& answer)
    {
        Agent().ClearRequests();
        Agent().ClearScripts();
        Agent().ClearFaults();
        connection.connected = true;
        if (answer == kNoAnswer)
            Agent().SetFault(operation, {simulator::FaultKind::CloseAtOnce, {}});
        else
            Agent().ScriptReply(operation,
                answer[0] == L'<' ? answer : L"<vltp><response><status>" + answer + L"</status></response></vltp>");
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

// A change that is sent to the agent, and what its answers lead to.
struct Change {
    const wchar_t* operation;
    const wchar_t* question; // asked first and answered with Yes; null for none
    ExpectedBox failed;
    Names readAfterSuccess;
    Names readAfterOthers{}; // after an answer that says neither
    ExpectedBox denied{};    // the box for "Permission denied", if it has one of its own
};

// Sends what would close or change a window to one that another window lies over; nothing may come of it.
inline void SendPastDisabled(WindowId window, std::initializer_list<int> commands)
{
    SendMessageW(WindowOf(window), WM_CLOSE, 0, 0);
    for (const int command : commands)
        SendMessageW(WindowOf(window), WM_COMMAND, static_cast<WPARAM>(command), 0);
}

// Makes the change once for each answer: expects its box, and what is read again.
template <class Make>
void ExpectAnswers(PowerProgram& program, const Change& change, Make make)
{
    const struct {
        const wchar_t* word;
        ExpectedBox box;
        Names readAgain;
    } rows[] = {
        {L"Failure", change.failed, {}},
        {L"Permission denied", change.denied.caption.empty() ? change.failed : change.denied, change.readAfterOthers},
        {kNoStatus, change.failed, {}},
        {L"Success", {}, change.readAfterSuccess},
        {L"success", {}, change.readAfterSuccess},
        {L"Not Activated", {change.failed.caption, L"is not activated"}, {L"GetActivationstatus"}},
        {kMalformed, change.failed, {}},
        {kNoAnswer, {L"Connection Issue", L"is not responding"}, {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::wstring(change.operation) + L" " + row.word);
        program.AnswerWith(change.operation, row.word);
        if (change.question != nullptr)
            program.boxes.Expect({{change.question, L"Are you sure", Answer::Yes}});
        if (!row.box.caption.empty())
            program.boxes.Expect({row.box});
        make();
        Names expected = {L"GetActivationstatus", change.operation};
        expected.insert(expected.end(), row.readAgain.begin(), row.readAgain.end());
        EXPECT_EQ(program.TakeOperations(), expected);
        program.boxes.ExpectAllSeen();
    }
    program.Agent().ClearFaults();
    connection.connected = true;
}

} // namespace voltaro
