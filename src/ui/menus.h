#pragma once

#include "base/handles.h"
#include "ui/commands.h"

#include <cstddef>

namespace voltaro {

// One row of a menu. A separator has neither text nor command; a popup has rows of its own, or takes the shared popup.
struct MenuItem {
    const wchar_t* text = nullptr;
    unsigned id = 0;
    const MenuItem* rows = nullptr;
    std::size_t count = 0;
    bool sharedPopup = false;
};

inline constexpr MenuItem kSeparator{};

template <std::size_t N>
consteval MenuItem Popup(const wchar_t* text, const MenuItem (&rows)[N])
{
    return {text, 0, rows, N, false};
}

// A popup whose menu is made once and shown in several places.
consteval MenuItem SharedPopup(const wchar_t* text)
{
    return {text, 0, nullptr, 0, true};
}

// Compile-time proof-reading: whether every item of a menu and of its popups has its command.
consteval bool HasCommands(std::span<const Command> commands, std::span<const MenuItem> rows)
{
    for (const MenuItem& row : rows) {
        const bool item = row.text && row.rows == nullptr && !row.sharedPopup;
        if (item && !HasCommand(commands, static_cast<int>(row.id)))
            return false;
        if (row.rows && !HasCommands(commands, std::span(row.rows, row.count)))
            return false;
    }
    return true;
}

// Builds a menu bar or a popup menu from its rows. `shared` takes the place of a SharedPopup row; whoever destroys the
// built menu first removes the shared popup from it (RemoveShared), since Windows destroys submenus with their menu.
[[nodiscard]] UniqueMenu BuildMenuBar(const MenuItem* rows, std::size_t count, HMENU shared = nullptr);
[[nodiscard]] UniqueMenu BuildPopup(const MenuItem* rows, std::size_t count, HMENU shared = nullptr);
void RemoveShared(HMENU menu, HMENU shared);

// Greys or enables, checks or unchecks the item with that command id anywhere in the menu. Unknown ids are ignored. An
// item on the bar itself shows its new state after the window's DrawMenuBar.
void EnableItem(HMENU menu, unsigned id, bool enabled);
void CheckItem(HMENU menu, unsigned id, bool checked);
[[nodiscard]] bool IsItemEnabled(HMENU menu, unsigned id);

} // namespace voltaro
