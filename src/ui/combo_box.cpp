#include "ui/combo_box.h"

#include "base/text.h"
#include "ui/canvas.h"
#include "ui/controls.h"

#include <algorithm>
#include <vector>

namespace voltaro {
namespace {

std::wstring EntryOf(HWND combo, int index)
{
    const LRESULT length = SendMessageW(combo, CB_GETLBTEXTLEN, static_cast<WPARAM>(index), 0);
    if (length <= 0)
        return {};
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    const LRESULT copied
        = SendMessageW(combo, CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(std::max<LRESULT>(copied, 0)));
    return text;
}

// Selects the first entry that `matches`; without one nothing is selected.
template <class Matches>
int SelectWhere(HWND window, int id, Matches matches)
{
    const HWND combo = ControlOf(window, id);
    const int count = combo != nullptr ? static_cast<int>(SendMessageW(combo, CB_GETCOUNT, 0, 0)) : 0;
    int index = 0;
    while (index < count && !matches(EntryOf(combo, index)))
        ++index;
    const int found = index < count ? index : -1;
    SelectIndex(window, id, found);
    return found;
}

// A list that is narrower than its longest entry would cut it.
void OpenAsWideAs(HWND combo, std::span<const std::wstring> entries)
{
    const WindowDc dc(combo);
    const SelectGuard font(dc.Get(), reinterpret_cast<HGDIOBJ>(SendMessageW(combo, WM_GETFONT, 0, 0)));
    LONG widest = 0;
    for (const std::wstring& entry : entries) {
        SIZE size{};
        GetTextExtentPoint32W(dc.Get(), entry.c_str(), static_cast<int>(entry.size()), &size);
        widest = std::max(widest, size.cx);
    }
    constexpr LONG kMargins = 8; // pixels
    const LONG width = widest + kMargins + GetSystemMetrics(SM_CXVSCROLL);
    SendMessageW(combo, CB_SETDROPPEDWIDTH, static_cast<WPARAM>(width), 0);
}

} // namespace

void FillCombo(HWND window, int id, std::span<const std::wstring> entries)
{
    const HWND combo = ControlOf(window, id);
    SendMessageW(combo, CB_RESETCONTENT, 0, 0);
    for (const std::wstring& entry : entries)
        SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry.c_str()));
    OpenAsWideAs(combo, entries);
}

void FillChoices(HWND window, int id, Choices choices, std::size_t selected)
{
    std::vector<std::wstring> entries;
    for (const Choice& choice : choices)
        entries.emplace_back(choice.text);
    FillCombo(window, id, entries);
    SelectIndex(window, id, static_cast<int>(selected));
}

std::wstring SelectedText(HWND window, int id)
{
    const int index = SelectedIndex(window, id);
    return index >= 0 ? EntryOf(ControlOf(window, id), index) : std::wstring();
}

int SelectedIndex(HWND window, int id)
{
    const HWND combo = ControlOf(window, id);
    return combo != nullptr ? static_cast<int>(SendMessageW(combo, CB_GETCURSEL, 0, 0)) : -1;
}

void SelectIndex(HWND window, int id, int index)
{
    SendMessageW(ControlOf(window, id), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

int SelectExact(HWND window, int id, std::wstring_view text)
{
    return SelectWhere(window, id, [text](std::wstring_view entry) { return entry == text; });
}

int SelectName(HWND window, int id, std::wstring_view name)
{
    const int exact = SelectExact(window, id, name);
    if (exact >= 0 || name.empty())
        return exact;
    return SelectWhere(window, id, [name](std::wstring_view entry) { return EqualsIgnoreCase(entry, name); });
}

} // namespace voltaro
