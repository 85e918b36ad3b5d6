#pragma once

#include "base/windows_api.h"
#include "console/agent.h"
#include "ui/boxes.h"

#include <optional>
#include <span>
#include <string>

namespace voltaro {

// A word of the agent that has a box of its own.
struct WordBox {
    const wchar_t* word = nullptr;
    Box box{};
};

// What a change is told by. `refused`: the caption of the boxes for a license that is not active.
struct ChangeTexts {
    const wchar_t* refused;
    Box failed;
    std::span<const WordBox> words = {}; // instead of `failed`
    bool onlyFailureFails = false;       // whatever else is answered counts as Unclear and shows no box
};

// What became of a change; the user has been told of everything but Done.
enum class ChangeResult : std::uint8_t {
    Done,
    Failed,  // the agent says so, or says nothing that can be read, or the change could not even be sent
    Unclear, // another word: the agent may have made the change
    NotMade, // the license is not active, or the agent is lost
};

// Makes one change: asks the agent for the activation status, sends the request, and tells the user how it ended.
[[nodiscard]] ChangeResult SubmitChange(HWND owner, const ChangeTexts& texts, const Request& request);

// Its two halves, for a window that greys its controls while it waits and no longer. The first gives the status word,
// or nothing when the change was not made, which the user has been told.
[[nodiscard]] std::optional<std::wstring> SendChange(HWND owner, const ChangeTexts& texts, const Request& request);
[[nodiscard]] ChangeResult TellOutcome(HWND owner, const ChangeTexts& texts, std::wstring_view status);

// F5 is pressed more easily than "Refresh" is chosen: asked before it overwrites what the user changed.
inline constexpr Box kDiscardChanges = {L"Refresh",
    L"Reading the settings again discards what you have changed here.\n\nDo you want to read them again?",
    BoxIcon::Question, BoxButtons::YesNo};

} // namespace voltaro
