#pragma once

#include "ui/commands.h"
#include "ui/controls.h"
#include "ui/navigation.h"

#include <optional>
#include <span>

namespace voltaro {

// What a top-level window, or a page of a tab control, is made of.
struct WindowTables {
    std::span<const Control> controls;
    std::span<const Command> commands;      // IDCANCEL also serves the title bar
    const wchar_t* helpPage;                // what F1 opens; null for a page, whose window answers
    void (*created)(HWND window) = nullptr; // called once, when the controls are there
    // The other messages that the window serves itself; nothing where it leaves one to the rest.
    std::optional<LRESULT> (*other)(HWND window, UINT message, WPARAM w, LPARAM l) = nullptr;
};

// The procedure of such a window. A disabled one takes no commands, no notifications and is not closed: other programs
// can send them all the same, while the window or box over it works on its data.
[[nodiscard]] LRESULT AnswerFromTables(const WindowTables& tables, HWND window, UINT message, WPARAM w, LPARAM l);

// Shows a window in front, with the focus on its first field where it was hidden before.
void ShowAndActivate(HWND window);
// "Cancel": the window is hidden, never destroyed.
void HideWindow(HWND window);
// "Help": what F1 opens.
void ShowHelp(HWND window);

} // namespace voltaro
