#pragma once

namespace voltaro {

// What the user is told when input is refused: the box's caption and its text, as shown. A text that names the refused
// input holds "%ls" in its place; RefusalText puts the input in.
struct Refusal {
    const wchar_t* title;
    const wchar_t* text;
};

} // namespace voltaro
