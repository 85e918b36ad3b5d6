#pragma once

#include "ui/commands.h"
#include "ui/controls.h"
#include "ui/navigation.h"

#include <span>

namespace voltaro {

// What a top-level window of this folder is made of.
struct FormTables {
    std::span<const Control> controls;
    std::span<const Command> commands; // IDCANCEL also serves the title bar
    const wchar_t* helpPage;
    void (*made)(HWND window) = nullptr; // called once, when the controls are there
};

// The procedure of such a window.
[[nodiscard]] LRESULT AnswerFromTables(const FormTables& tables, HWND window, UINT message, WPARAM w, LPARAM l);

// Shows a window in front, with the focus on its first field where it was hidden before.
void BringUp(HWND window);
// "Cancel": the window is hidden, never destroyed.
void HideForm(HWND window);
// "Help": what F1 opens.
void ShowHelp(HWND window);

} // namespace voltaro
