#include "console/help.h"

#include "base/ansi.h"
#include "base/text.h"
#include "console/state.h"

namespace voltaro {
namespace {

constexpr UINT kDisplayTopic = 0;

// The viewer is loaded when it is first asked for: most runs of the program never open the help.
void ShowTopic(HWND owner, const std::wstring& topic)
{
    using HtmlHelp = HWND(WINAPI*)(HWND, LPCWSTR, UINT, DWORD_PTR);
    static const HMODULE library = LoadLibraryExW(L"hhctrl.ocx", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (!library)
        return;
    const auto show = reinterpret_cast<HtmlHelp>(reinterpret_cast<void*>(GetProcAddress(library, "HtmlHelpW")));
    if (show)
        show(owner, topic.c_str(), kDisplayTopic, 0);
}

} // namespace

HelpViewer helpViewer = ShowTopic;

std::wstring HelpTopic(const wchar_t* page)
{
    return Format(L"%ls\\docs\\help\\Voltaro_Help_SE.chm::/%ls", Widened(state.installDirectory.data()).c_str(), page);
}

void OpenHelp(HWND owner, const wchar_t* page)
{
    helpViewer(owner, HelpTopic(page));
}

} // namespace voltaro
