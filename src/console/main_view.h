#pragma once

namespace voltaro {

// What the main window does for the rest of the program; it puts its functions here when it is made.
struct MainView {
    // Idle view, the items that a lost agent greys, an empty savings list.
    void (*showAgentLost)() = nullptr;
    // The scheme list from the state's names, the current scheme selected.
    void (*showSchemes)() = nullptr;
    // Selects the current scheme in that list; a choice that the user has begun keeps its buttons.
    void (*selectCurrentScheme)() = nullptr;
    // The charge beside the battery.
    void (*showCharge)() = nullptr;
    // The license's picture, the indicators and the host line, only when the console is ready.
    void (*repaint)() = nullptr;
};
inline MainView mainView;

} // namespace voltaro
