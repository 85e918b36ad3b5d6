#pragma once

#include "base/windows_api.h"
#include "link/records.h"

#include <optional>

namespace voltaro {

// The fields of the profile window: one record, its choice of monitor and its powers.

enum ProfileControl : int {
    kSaved = 101,
    kInbuilt,
    kBranded,
    kOthers,
    kNote,
    kType,
    kSize,
    kMonitorOn,
    kMonitorOff,
    kCpuMax,
    kCpuIdle,
    kCpuStandby,
    kCpuOff,
    kManual,
    kAuto,
    kEdit,
    kSave,
    kCancel,
};

// What the fields are filled from, and what the user may do with them.
struct ProfileEntry {
    PowerConsumptionData read;
    bool known = true;     // the agent has sent it; else there is nothing to edit
    bool manual = false;   // figures that the user keeps himself
    bool editable = false; // else the fields only show
    bool unsaved = false;  // there is something to save
};

// Makes the fields of a new window ready: the list of types, the lengths of the edits.
void PrepareProfileFields(HWND window);

// Fills the fields from a record and greys what may not be done with it. Asks for nothing.
void ShowEntry(HWND window, const ProfileEntry& entry);

// Makes the fields editable as they stand.
void EditEntry(HWND window);

// Whether the user has changed the fields since they were filled.
[[nodiscard]] bool IsEntryEdited(HWND window);

// Gives the first field that takes a power the focus.
void FocusOnPowers(HWND window);

// The record to send for what the fields hold. Nothing when there is nothing to save, or when a field holds no power:
// the user is told of the first such field, and it is emptied.
[[nodiscard]] std::optional<PowerConsumptionData> EnteredRecord(HWND window);

// Commands of the choice of monitor. A kind without type and size shows no powers of its own; a type fills the list of
// sizes; a size shows its powers.
void OnKindWithoutSize(HWND window);
void OnKindWithSize(HWND window);
void OnMonitorType(HWND window);
void OnMonitorSize(HWND window);

} // namespace voltaro
