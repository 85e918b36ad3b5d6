#include "ui/menus.h"

#include "base/error_log.h"
#include <span>

namespace voltaro {
namespace {

// A row that cannot be appended is missing.
void AppendRows(HMENU menu, const MenuItem* rows, std::size_t count, HMENU shared)
{
    for (const MenuItem& item : std::span(rows, count)) {
        if (item.sharedPopup) {
            Checked(AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(shared), item.text), "AppendMenuW");
        } else if (item.rows != nullptr) {
            UniqueMenu popup = BuildPopup(item.rows, item.count, shared);
            if (Checked(AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(popup.Get()), item.text), "AppendMenuW"))
                popup.Release(); // now destroyed with its menu
        } else if (item.text == nullptr) {
            Checked(AppendMenuW(menu, MF_SEPARATOR, 0, nullptr), "AppendMenuW");
        } else {
            Checked(AppendMenuW(menu, MF_STRING, item.id, item.text), "AppendMenuW");
        }
    }
}

} // namespace

UniqueMenu BuildMenuBar(const MenuItem* rows, std::size_t count, HMENU shared)
{
    UniqueMenu menu(Checked(CreateMenu(), "CreateMenu"));
    AppendRows(menu.Get(), rows, count, shared);
    return menu;
}

UniqueMenu BuildPopup(const MenuItem* rows, std::size_t count, HMENU shared)
{
    UniqueMenu menu(Checked(CreatePopupMenu(), "CreatePopupMenu"));
    AppendRows(menu.Get(), rows, count, shared);
    return menu;
}

void RemoveShared(HMENU menu, HMENU shared)
{
    for (int at = GetMenuItemCount(menu) - 1; at >= 0; --at) {
        const HMENU popup = GetSubMenu(menu, at);
        if (popup == nullptr)
            continue;
        if (popup == shared)
            RemoveMenu(menu, static_cast<UINT>(at), MF_BYPOSITION);
        else
            RemoveShared(popup, shared);
    }
}

void EnableItem(HMENU menu, unsigned id, bool enabled)
{
    EnableMenuItem(menu, id, MF_BYCOMMAND | static_cast<UINT>(enabled ? MF_ENABLED : MF_GRAYED));
}

void CheckItem(HMENU menu, unsigned id, bool checked)
{
    CheckMenuItem(menu, id, MF_BYCOMMAND | static_cast<UINT>(checked ? MF_CHECKED : MF_UNCHECKED));
}

bool IsItemEnabled(HMENU menu, unsigned id)
{
    const UINT state = GetMenuState(menu, id, MF_BYCOMMAND);
    return state != static_cast<UINT>(-1) && (state & (MF_GRAYED | MF_DISABLED)) == 0;
}

} // namespace voltaro
