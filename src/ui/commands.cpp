#include "ui/commands.h"

namespace voltaro {

bool Dispatch(std::span<const Command> commands, HWND window, WPARAM w)
{
    for (const Command& command : commands) {
        if (command.id == LOWORD(w) && command.notification == HIWORD(w)) {
            command.handler(window);
            return true;
        }
    }
    return false;
}

} // namespace voltaro
