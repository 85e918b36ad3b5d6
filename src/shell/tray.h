#pragma once

#include "base/windows_api.h"

#include <optional>
#include <string_view>

namespace voltaro {

// The icon in the notification area. One record is kept for the whole run and reused by every change. An icon that the
// shell does not take, as at logon before the task bar is there, is tried again on a timer.
inline constexpr UINT kTrayIconId = 9013;
void AddTrayIcon(HWND main);
void ChangeTrayIcon(int iconResource, std::wstring_view tooltip);
void RemoveTrayIcon();

// Set for good by the first complete load: only then does a click on the icon restore the main window.
inline bool trayRestoreAllowed = false;

// Hides the main window; while the icon could not be added, minimises it, or nobody would find it again.
void SendToTray(HWND main);

// Restores the main window and brings the window that the user has to deal with to the front.
void RestoreFromTray(HWND main);

// Takes the icon's callback, the message that the task bar was made anew, and the retry timer. Clicks are kept and
// served by ServeTrayEvents; mouse moves are ignored. Nothing for any other message.
[[nodiscard]] std::optional<LRESULT> AnswerTray(UINT message, WPARAM w, LPARAM l);

// Serves kept SystemEvents: a click on the icon, its menu, an icon to be added again.
void ServeTrayEvents(HWND main, unsigned events);

} // namespace voltaro
