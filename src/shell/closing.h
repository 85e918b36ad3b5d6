#pragma once

#include "base/windows_api.h"

namespace voltaro {

// Asks whether to close; the question closes itself after five seconds and then counts as Yes.
void OnCloseQuestion(HWND main);

// Says that the console closes for an update, five seconds at most, and closes it.
void CloseForUpdate(HWND main);

// The end of the main window is the end of the program: workers stopped, tray icon gone, quit posted.
LRESULT OnMainDestroyed();

// The session wants to end. Only a closing application, a log-off or a critical end stops the program here; consent is
// given in every case.
LRESULT OnQueryEndSession(LPARAM reason);
LRESULT OnEndSession(HWND main, WPARAM ending, LPARAM reason);

} // namespace voltaro
