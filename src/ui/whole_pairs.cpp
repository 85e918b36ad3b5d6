#include "ui/whole_pairs.h"

#include "base/error_log.h"
#include "base/text.h"
#include "ui/controls.h"

#include <string>

namespace voltaro {
namespace {

// A pair is typed as two characters, so a first half may wait for its second one as long as there is room for it.
bool EndsWithHalf(std::wstring_view beforeCaret, std::wstring_view afterCaret, std::size_t limit)
{
    if (beforeCaret.empty())
        return false;
    const std::wstring_view front = beforeCaret.substr(0, beforeCaret.size() - 1);
    if (IsLowSurrogate(beforeCaret.back()))
        return front.empty() || !IsHighSurrogate(front.back());
    const bool full = beforeCaret.size() + afterCaret.size() >= limit;
    const bool completed = !afterCaret.empty() && IsLowSurrogate(afterCaret.front());
    return IsHighSurrogate(beforeCaret.back()) && full && !completed;
}

void RemoveHalfAtCaret(HWND edit)
{
    DWORD start = 0;
    DWORD caret = 0;
    SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&caret));
    const auto limit = static_cast<std::size_t>(SendMessageW(edit, EM_GETLIMITTEXT, 0, 0));
    std::wstring text = TextOf(GetParent(edit), GetDlgCtrlID(edit));
    const std::wstring_view view = text;
    if (caret <= view.size() && EndsWithHalf(view.substr(0, caret), view.substr(caret), limit)) {
        SendMessageW(edit, EM_SETSEL, caret - 1, caret);
        DefSubclassProc(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L""));
    }
    SecureZeroMemory(text.data(), text.size() * sizeof(wchar_t)); // may be a password
}

LRESULT CALLBACK EditSubclassProc(HWND edit, UINT message, WPARAM w, LPARAM l, UINT_PTR id, DWORD_PTR)
{
    const LRESULT result = DefSubclassProc(edit, message, w, l);
    if (message == WM_CHAR || message == WM_PASTE || message == EM_REPLACESEL)
        RemoveHalfAtCaret(edit);
    else if (message == WM_NCDESTROY)
        RemoveWindowSubclass(edit, &EditSubclassProc, id);
    return result;
}

} // namespace

void KeepPairsWhole(HWND edit)
{
    Checked(SetWindowSubclass(edit, &EditSubclassProc, 0, 0), "SetWindowSubclass");
}

} // namespace voltaro
