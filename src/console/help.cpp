#include "console/help.h"

#include "base/ansi.h"
#include "base/platform_calls.h"
#include "base/system_procedure.h"
#include "base/text.h"
#include "console/program_texts.h"
#include "console/windows.h"
#include "ui/boxes.h"

namespace voltaro {
namespace {

constexpr UINT kDisplayTopic = 0;
constexpr UINT kCloseAll = 0x12;

constexpr Box kNoFile = {L"Voltaro Help", L"The help file is missing:\n\n"};
constexpr Box kNoViewer = {L"Voltaro Help", L"The help viewer of Windows (hhctrl.ocx) cannot be loaded."};

using HtmlHelp = HWND WINAPI(HWND, LPCWSTR, UINT, DWORD_PTR);
HtmlHelp* viewer = nullptr; // null until it has been asked for

// The viewer is loaded when it is first asked for: most runs of the program never open the help.
bool LoadViewer()
{
    if (viewer == nullptr)
        viewer = SystemProcedure<HtmlHelp>(L"hhctrl.ocx", "HtmlHelpW");
    return viewer != nullptr;
}

// A box would disable the desktop, which the main window's help is owned by.
HWND BoxOwner(HWND owner)
{
    return owner == GetDesktopWindow() ? WindowOf(WindowId::Main) : owner;
}

// Asked for a file that is not there the viewer shows a box of its own, or nothing, so it is not asked.
void ShowTopic(HWND owner, const std::wstring& topic)
{
    const std::wstring file = topic.substr(0, topic.find(L"::"));
    if (GetFileAttributesW(file.c_str()) == INVALID_FILE_ATTRIBUTES)
        ShowMessage(BoxOwner(owner), kNoFile, kNoFile.text + file);
    else if (!LoadViewer())
        ShowMessage(BoxOwner(owner), kNoViewer);
    else
        viewer(owner, topic.c_str(), kDisplayTopic, 0);
}

} // namespace

std::wstring HelpTopic(const wchar_t* page)
{
    return Format(
        L"%ls\\docs\\help\\Voltaro_Help_SE.chm::/%ls", Widened(programTexts.installDirectory.data()).c_str(), page);
}

void OpenHelp(HWND owner, const wchar_t* page)
{
    (platformCalls.showHelp ? platformCalls.showHelp : ShowTopic)(owner, HelpTopic(page));
}

void CloseHelp()
{
    if (viewer)
        viewer(nullptr, nullptr, kCloseAll, 0);
}

} // namespace voltaro
