#pragma once

#include "base/windows_api.h"

#include <functional>
#include <optional>

namespace voltaro {

// A top-level window (or a child page) for tests, shown and destroyed with the object. Messages go to `handler` first;
// what it leaves gets the answers that all windows of the program give.
class TestWindow {
public:
    using Handler = std::function<std::optional<LRESULT>(HWND window, UINT message, WPARAM w, LPARAM l)>;

    explicit TestWindow(Handler handler = {}, HWND parent = nullptr);
    ~TestWindow();
    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;
    [[nodiscard]] HWND Get() const { return m_window; }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM w, LPARAM l);

    Handler m_handler;
    HWND m_window;
};

// Serves the thread's messages as the program's loop does, until none is left.
void Pump();
// Serves messages until the condition holds; false when that has not come to be in time.
bool WaitFor(const std::function<bool()>& condition, unsigned milliseconds = 20'000);

// Presses a key in the window that has the focus, held down keys being told by `modifiers` (VK_CONTROL, VK_SHIFT; 0),
// and serves what follows.
void Press(WORD key, WORD modifier = 0, WORD secondModifier = 0);

// Turns to a page as the user does, by a click on its tab, and serves what follows.
void ClickTab(HWND tab, int index);

} // namespace voltaro
