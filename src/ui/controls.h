#pragma once

#include "base/windows_api.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace voltaro {

// What a control row creates. Styles, class names and Windows' oddities live in the interpreter, not in the rows.
enum class Kind : std::uint8_t {
    GroupBox,        // a frame with a caption
    TabStopGroupBox, // the same, reachable by Tab
    Label,           // static text; also names the field that follows it for a screen reader
    Edit,            // one line, border, scrolls sideways
    NumberEdit,      // digits only
    PasswordEdit,    // masked
    PlainEdit,       // read-only one line without border, scrolls sideways
    CentredPlainEdit,
    Combo,       // drop-down list in the given order; the height is that of the opened list
    SortedCombo, // drop-down list that sorts itself
    CheckBox,
    Radio, // automatic; the first of a group carries kGroup
    Push,
    DefaultPush,
    BitmapPush, // a push-like button that shows only its picture
    DefaultBitmapPush,
    Trackbar,
    Progress,
    SmoothProgress,
    BusyBar,  // runs to and fro while PBM_SETMARQUEE has it on
    ListView, // report view with border, full-row selection, copies as text by keyboard and menu
    Tab,
    TimePicker,
    DatePicker,
    IpAddress,
    Link, // text with <a> parts
};

enum ControlFlags : std::uint8_t {
    kPlain = 0,
    kHidden = 1,   // created hidden
    kDisabled = 2, // created disabled
    kGroup = 4,    // starts a group for the arrow keys
    kNoTabStop = 8,
    kWrapped = 16, // buttons: the text takes as many lines as it needs
};

inline constexpr int kNoId = -1;

// One row of a window's table, in tab order. Pixels, relative to the client area of the window that holds it.
// `name` is what a screen reader says for a field that has no visible label right before it in the table.
struct Control {
    Kind kind;
    int id;
    const wchar_t* text;
    int x;
    int y;
    int width;
    int height;
    std::uint8_t flags = kPlain;
    const wchar_t* name = nullptr;
};

// Creates the children of a window from its rows, all with one font, which the caller keeps. False when one cannot be
// made; then the window's own creation is to fail.
bool CreateControls(HWND window, std::span<const Control> rows, HFONT font);

// Compile-time proof-reading of tables.
consteval bool IdsAreUnique(std::span<const Control> rows)
{
    for (std::size_t i = 0; i < rows.size(); ++i) {
        for (std::size_t k = i + 1; k < rows.size(); ++k) {
            if (rows[i].id != kNoId && rows[i].id == rows[k].id)
                return false;
        }
    }
    return true;
}

// True when every rectangle lies inside a client area of that size (a combo counts by its closed height).
consteval bool FitInside(std::span<const Control> rows, int width, int height)
{
    for (const Control& row : rows) {
        const bool combo = row.kind == Kind::Combo || row.kind == Kind::SortedCombo;
        const int rowHeight = combo ? 24 : row.height;
        if (row.x < 0 || row.y < 0 || row.x + row.width > width || row.y + rowHeight > height)
            return false;
    }
    return true;
}

// Small readings and writings by control id. A missing control reads as empty and ignores writes.
[[nodiscard]] HWND ControlOf(HWND window, int id);
[[nodiscard]] std::wstring TextOf(HWND window, int id);
void SetText(HWND window, int id, std::wstring_view text);
[[nodiscard]] bool IsChecked(HWND window, int id);
void SetChecked(HWND window, int id, bool checked);
// A control that is disabled or hidden while it has the focus lends it to the next one, and has it back when it is
// enabled or shown again, unless the user has gone elsewhere.
void Enable(HWND window, int id, bool enabled);
void Enable(HWND window, std::span<const int> ids, bool enabled);
void Show(HWND window, int id, bool visible);
void Show(HWND window, std::span<const int> ids, bool visible);
// Longest text that an edit takes from the user, in UTF-16 units; FieldText::kEditLimit unless set here. A text that
// the program sets is shown whole.
void LimitText(HWND window, int id, std::size_t units);
// Gives a control the focus without choosing it: Windows takes the focus on a radio for a click when none of its group
// is chosen.
void GiveFocus(HWND control);
// Gives a field the focus and selects its text; how every refused input ends.
void FocusOn(HWND window, int id);

} // namespace voltaro
