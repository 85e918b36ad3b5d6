#pragma once

#include "base/windows_api.h"

#include <optional>
#include <string_view>

namespace voltaro {

// The icon in the notification area. One record is kept for the whole run and reused by every change.
inline constexpr UINT kTrayIconId = 9013;
void AddTrayIcon(HWND main);
void ChangeTrayIcon(int iconResource, std::wstring_view tooltip);
void RemoveTrayIcon();

// Serves the tray's callback message and the news that the task bar was made anew (the icon is added again as it
// stands). Nothing for any other message.
[[nodiscard]] std::optional<LRESULT> AnswerTray(HWND main, UINT message, WPARAM w, LPARAM l);

} // namespace voltaro
