#pragma once

#include "base/platform_calls.h"

#include <cstdint>
#include <string>

namespace voltaro {

enum class BoxIcon : std::uint8_t { None, Information, Warning, Question };
enum class BoxButtons : std::uint8_t { Ok, YesNo };
enum class Answer : std::uint8_t { Ok, Yes, No, TimedOut };

// A message box as a constexpr row beside the code that shows it.
struct Box {
    const wchar_t* caption;
    const wchar_t* text;
    BoxIcon icon = BoxIcon::Warning;
    BoxButtons buttons = BoxButtons::Ok;
};

// Shows a box with an OK button; `owner` may be null. An owner that is hidden or minimised is left out, since Windows
// would hide the box with it. The second form shows `text` in the place of the row's own, for
// texts that carry a name.
void ShowMessage(HWND owner, const Box& box);
void ShowMessage(HWND owner, const Box& box, const std::wstring& text);

// Shows a Yes/No box; true on Yes. Whatever else ends it (the end of the program) counts as No.
[[nodiscard]] bool AskQuestion(HWND owner, const Box& box);
[[nodiscard]] bool AskQuestion(HWND owner, const Box& box, const std::wstring& text);

// A box that closes itself after the given time and then answers TimedOut. Its owner is enabled again afterwards if it
// was enabled before.
[[nodiscard]] Answer AskWithTimeout(HWND owner, const Box& box, unsigned milliseconds);

// What a box is about to show, as handed to platformCalls.showMessageBox.
struct BoxCall {
    HWND owner;
    std::wstring caption;
    std::wstring text;
    BoxIcon icon;
    BoxButtons buttons;
    unsigned milliseconds; // 0: stays until answered
};

// How many boxes are open on the user-interface thread; boxes may nest.
[[nodiscard]] int OpenBoxes();
// Called after every box. Windows enables a box's owner again, whoever else holds it disabled.
inline void (*boxClosed)() = nullptr;

// For the end of the session: from then on boxes are answered at once (Ok, No or TimedOut) without being shown.
void SuppressMessageBoxes();

} // namespace voltaro
