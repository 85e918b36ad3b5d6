#pragma once

namespace voltaro {

// What the main window does for the rest of the program; it puts its functions here when it is made.
struct MainView {
    // Idle view, the items that a lost agent greys, an empty savings list.
    void (*showAgentLost)() = nullptr;
    // The scheme list from the state's names, the current scheme selected; "Set" hidden and "Change" shown.
    void (*showSchemes)() = nullptr;
    void (*normalControls)() = nullptr;
    // The licence's menu item; and only when the console is ready its picture, the indicators and the host line.
    void (*repaint)() = nullptr;
};
inline MainView mainView;

} // namespace voltaro
