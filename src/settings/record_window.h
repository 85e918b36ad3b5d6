#pragma once

#include "console/agent.h"
#include "console/change.h"
#include "settings/form_window.h"
#include "ui/boxes.h"

#include <cstdint>
#include <span>
#include <type_traits>
#include <vector>

namespace voltaro {

// The mechanics of a window that edits one record of the agent: read it, show it by its bindings, check what the user
// made of it, pass the activation gate, send it, report, read it again. A window gives its tables.

// How a control stands for a field of the record.
enum class Form : std::uint8_t {
    Text,    // an edit
    YesNo,   // a check box
    Address, // an IP address control; blank is "0.0.0.0"
    Minutes, // a list of times; shows its first entry for a number that it does not have
    Feature, // a check box for "YES", grey for "NA"
};

template <class Record>
struct Binding {
    int id;
    Form form;
    FieldText Record::*slot;
};

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
    int applyButton; // made grey: it waits for the first record, so that nothing is overwritten with blanks
    Box applied;
    Box failed;
    // Makes what the controls hold what is sent; gives the number of a refusal, counted from 1, or 0.
    std::size_t (*complete)(Record& edited) = [](Record&) -> std::size_t { return 0; };
    std::span<const RefusedField> refusals = {};
    void (*enable)(HWND window) = [](HWND) {}; // greys the controls that depend on others
};

// The steps that no record's type matters for.
void ShowField(HWND window, int id, Form form, const FieldText& value);
[[nodiscard]] FieldText FieldShown(HWND window, int id, Form form, const FieldText& asRead);
void Refuse(HWND window, const RefusedField& refusal);
// The gate, the request and the box that tells the outcome; the window's controls are disabled meanwhile. True when the
// agent has taken the change.
[[nodiscard]] bool SendChange(HWND window, const Request& request, const Box& applied, const Box& failed);

// What the controls hold, field by field, and what they held when the record was shown last.
using ShownFields = std::vector<FieldText>;

template <const auto* form>
ShownFields FieldsShown(HWND window)
{
    ShownFields fields;
    for (const auto& binding : form->bindings)
        fields.push_back(FieldShown(window, binding.id, binding.form, (*form->record).*binding.slot));
    return fields;
}

template <const auto* form>
inline ShownFields shownFields;

// Shows the record as the agent sent it last; before the first one the controls stay as they are.
template <const auto* form>
void ShowRecord(HWND window)
{
    if (!IsWindowEnabled(ControlOf(window, form->applyButton)))
        return;
    for (const auto& binding : form->bindings)
        ShowField(window, binding.id, binding.form, (*form->record).*binding.slot);
    form->enable(window);
    shownFields<form> = FieldsShown<form>(window);
}

// Reads the record and shows it. What does not come leaves the controls as they are; false when the agent is lost.
template <const auto* form>
bool ReadAndShow(HWND window)
{
    using Record = typename std::remove_cvref_t<decltype(*form)>::RecordType;
    Reply reply = SendOrLose(Plain(form->read));
    if (const auto record = reply.template Read<Record>()) {
        *form->record = *record;
        Enable(window, form->applyButton, true);
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
    const bool edited
        = IsWindowEnabled(ControlOf(window, form->applyButton)) && shownFields<form> != FieldsShown<form>(window);
    if (!edited || Ask(window, kDiscardChanges))
        RefreshRecord<form>(window);
}

// The main window's command: reads, then shows. A window that is open already keeps what the user typed.
template <const auto* form>
void OpenRecord(HWND window)
{
    if (!IsWindowVisible(window)) {
        ShowRecord<form>(window); // not what the user left there unsent
        if (!ReadAndShow<form>(window))
            return;
    }
    BringUp(window);
}

// "Change".
template <const auto* form>
void ApplyRecord(HWND window)
{
    using Record = typename std::remove_cvref_t<decltype(*form)>::RecordType;
    if (!IsWindowEnabled(ControlOf(window, form->applyButton)))
        return;
    Record edited = *form->record;
    for (const Binding<Record>& binding : form->bindings)
        edited.*binding.slot = FieldShown(window, binding.id, binding.form, edited.*binding.slot);
    if (const std::size_t refusal = form->complete(edited))
        return Refuse(window, form->refusals[refusal - 1]);
    if (SendChange(window, WithRecord(form->apply, edited), form->applied, form->failed))
        RefreshRecord<form>(window);
}

} // namespace voltaro
