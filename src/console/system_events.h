#pragma once

#include "base/windows_api.h"

namespace voltaro {

// What the shell and the system tell the main window and what asks for work of its own. It is kept, and served once by
// the message loop when no request waits and no box is open; the same thing told ten times is one piece of work.
enum SystemEvent : unsigned {
    kTrayClicked = 1,
    kTrayMenuAsked = 2,
    kPowerChanged = 4,
    kTaskbarCreated = 8,
};

// Keeps the event, from the user-interface thread.
void KeepEvent(SystemEvent event);

// Has what is kept served next, if it can be now: called when a wait or a box is over.
void ServeKeptEvents();

// For the main window's kServeEventsMessage: takes what is to be served now; 0 while a request waits or a box is open.
[[nodiscard]] unsigned TakeEvents();

} // namespace voltaro
