#include "ui/commands.h"

namespace voltaro {
namespace {

bool Serve(std::span<const Command> commands, HWND window, int id, UINT notification)
{
    for (const Command& command : commands) {
        if (command.id == id && command.notification == notification) {
            command.handler(window);
            return true;
        }
    }
    return false;
}

} // namespace

bool Dispatch(std::span<const Command> commands, HWND window, WPARAM w)
{
    return Serve(commands, window, LOWORD(w), HIWORD(w));
}

bool Dispatch(std::span<const Command> commands, HWND window, const NMHDR& notice)
{
    const bool isDelete = notice.code == LVN_KEYDOWN && reinterpret_cast<const NMLVKEYDOWN&>(notice).wVKey == VK_DELETE;
    return Serve(commands, window, static_cast<int>(notice.idFrom), isDelete ? kDeleteKey : notice.code);
}

} // namespace voltaro
