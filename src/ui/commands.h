#pragma once

#include "base/windows_api.h"

#include <span>

namespace voltaro {

// Delete pressed in a list view, as a notification code of its own: outside the range of the codes of Windows.
inline constexpr UINT kDeleteKey = 0x10000;

// One row of a window's command table: a control, menu item or dialog key (IDOK for Enter, IDCANCEL for Esc) and the
// function that serves it. `notification` is the control's notification code, of WM_COMMAND or WM_NOTIFY; 0 is a click
// or a menu choice.
struct Command {
    int id;
    void (*handler)(HWND window);
    UINT notification = 0;
};

// Compile-time proof-reading: whether a click or a menu choice with that id has exactly one row.
consteval bool HasCommand(std::span<const Command> commands, int id)
{
    int rows = 0;
    for (const Command& command : commands)
        rows += command.id == id && command.notification == 0 ? 1 : 0;
    return rows == 1;
}

// Serves WM_COMMAND from a table; `w` is the message's first parameter. Returns true when a row matched.
bool Dispatch(std::span<const Command> commands, HWND window, WPARAM w);
// The same for WM_NOTIFY.
bool Dispatch(std::span<const Command> commands, HWND window, const NMHDR& notice);

} // namespace voltaro
