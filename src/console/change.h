#pragma once

#include "base/windows_api.h"
#include "console/agent.h"
#include "ui/boxes.h"

#include <optional>
#include <string>

namespace voltaro {

// The road of one change: the activation gate, the request, and the answer's licence words, whose boxes carry
// `caption`. Gives the status word, empty when the answer has none or cannot be read, "Failure" when the change could
// not even be sent; nothing when it was refused or the agent is lost, which the user has been told.
[[nodiscard]] std::optional<std::wstring> AnswerToChange(HWND owner, const wchar_t* caption, const Request& request);

// F5 is pressed more easily than "Refresh" is chosen: asked before it overwrites what the user changed.
inline constexpr Box kDiscardChanges = {L"Refresh",
    L"Reading the settings again discards what you have changed here.\n\nDo you want to read them again?",
    BoxIcon::Question, BoxButtons::YesNo};

} // namespace voltaro
