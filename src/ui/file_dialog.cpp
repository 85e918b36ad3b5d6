#include "ui/file_dialog.h"

#include "ui/boxes.h"

#include <vector>

namespace voltaro {
namespace {

constexpr std::size_t kMaxPath = MAX_PATH - 1; // without the NUL
constexpr Box kPathTooLong = {L"Path too long",
    L"The path of the selected file is longer than 259 characters.\nPlease select a file with a shorter path."};

std::optional<std::wstring> ChooseExistingFile(HWND owner, const FileDialog& dialog)
{
    std::vector<wchar_t> path(32768); // the longest path Windows knows
    OPENFILENAMEW request{};
    request.lStructSize = sizeof request;
    request.hwndOwner = owner;
    request.lpstrFilter = dialog.filter;
    request.lpstrTitle = dialog.title;
    request.lpstrFile = path.data();
    request.nMaxFile = static_cast<DWORD>(path.size());
    // The program's own current directory stays as it is.
    request.Flags = OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    if (!GetOpenFileNameW(&request))
        return std::nullopt;
    return std::wstring(path.data());
}

} // namespace

std::optional<std::wstring> ChooseFile(HWND owner, const FileDialog& dialog)
{
    auto path = (platformCalls.chooseFile ? platformCalls.chooseFile : ChooseExistingFile)(owner, dialog);
    if (path && path->size() > kMaxPath) {
        ShowMessage(GetAncestor(owner, GA_ROOT), kPathTooLong);
        return std::nullopt;
    }
    return path;
}

} // namespace voltaro
