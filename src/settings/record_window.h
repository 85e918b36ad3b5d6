#pragma once

#include "console/agent.h"
#include "console/change.h"
#include "console/window_tables.h"
#include "ui/binding.h"
#include "ui/boxes.h"

#include <optional>
#include <span>
#include <type_traits>

namespace voltaro {

// The mechanics of a window that edits one record of the agent: read it, show it by its bindings, check what the user
// made of it, check the license, send it, report, read it again. A window gives its tables.

// What a refused input shows; the edit is then emptied and gets the focus.
struct RefusedField {
    int id;
    Box box;
};

template <class Record>
struct RecordForm {
    using RecordType = Record;
    Operation read;
    Operation apply;
    Record* record; // as the agent sent it last
    std::span<const Binding<Record>> bindings;
    int applyButton; // grey until a record has come, and after a read that gave none: what is not known is not sent
    Box applied;
    Box failed;
    // Makes what the controls hold what is sent; gives the number of a refusal, counted from 1, or 0.
    std::size_t (*complete)(Record& edited, const Record& asRead)
        = [](Record&, const Record&) -> std::size_t { return 0; };
    std::span<const RefusedField> refusals = {};
    void (*enable)(HWND window) = [](HWND) {}; // greys the controls that depend on others
    bool tellFirst = false;                    // the box comes before the record is read again
};

// The steps that no record's type matters for.
void RefuseField(HWND window, const RefusedField& refusal);
// The license check, the request, with the window's controls disabled meanwhile, and its box when it failed. True when
// the agent has taken the change.
[[nodiscard]] bool ChangeRecord(HWND window, const Request& request, const Box& failed);

// What the controls held when the record was shown last; empty before the first one.
template <const auto* form>
inline ShownTexts shownTexts;

// Shows the record as the agent sent it last.
template <const auto* form>
void ShowRecord(HWND window)
{
    ShowFields(window, form->bindings, *form->record);
    form->enable(window);
    shownTexts<form> = EnteredTexts(window, form->bindings);
}

// Reads the record and shows it. Without a record in the answer the controls stay as they are and cannot be sent; false
// when the agent is lost.
template <const auto* form>
bool ReadAndShow(HWND window)
{
    using Record = typename std::remove_cvref_t<decltype(*form)>::RecordType;
    Reply reply = SendOrLose(Plain(form->read));
    const std::optional<Record> record = reply.template Read<Record>();
    Enable(window, form->applyButton, record.has_value());
    if (record) {
        *form->record = *record;
        ShowRecord<form>(window);
    }
    return reply.Answered();
}

// "Refresh".
template <const auto* form>
void RefreshRecord(HWND window)
{
    static_cast<void>(ReadAndShow<form>(window));
}

// F5, which is pressed more easily than "Refresh" is chosen: asks before it overwrites what the user changed.
template <const auto* form>
void RefreshRecordByKey(HWND window)
{
    const bool edited = IsWindowEnabled(ControlOf(window, form->applyButton))
        && shownTexts<form> != EnteredTexts(window, form->bindings);
    if (!edited || AskQuestion(window, kDiscardChanges))
        RefreshRecord<form>(window);
}

// The main window's command: reads, then shows. A window that is open already keeps what the user typed.
template <const auto* form>
void OpenRecord(HWND window)
{
    if (!IsWindowVisible(window)) {
        if (!shownTexts<form>.empty())
            ShowRecord<form>(window); // not what the user left there unsent
        if (!ReadAndShow<form>(window))
            return;
    }
    ShowAndActivate(window);
}

// "Change".
template <const auto* form>
void ApplyRecord(HWND window)
{
    if (!IsWindowEnabled(ControlOf(window, form->applyButton)))
        return;
    auto edited = WithEntered(window, form->bindings, *form->record, shownTexts<form>);
    if (const std::size_t refusal = form->complete(edited, *form->record))
        return RefuseField(window, form->refusals[refusal - 1]);
    if (!ChangeRecord(window, WithRecord(form->apply, edited), form->failed))
        return;
    if (form->tellFirst)
        ShowMessage(window, form->applied);
    RefreshRecord<form>(window);
    if (!form->tellFirst)
        ShowMessage(window, form->applied);
}

} // namespace voltaro
