#pragma once

#include "shell/main_commands.h"
#include "shell/main_window.h"
#include "ui/menus.h"

namespace voltaro {

// The menu bar of the main window and the menu of its icon in the notification area. The pause submenu stands in both.
// clang-format off
inline constexpr MenuItem kPauseItems[] = {
    {L"For &1 Hour",  kPauseOneHour},
    {L"For &2 Hours", kPauseOneHour + 1},
    {L"For &3 Hours", kPauseOneHour + 2},
    {L"For &4 Hours", kPauseOneHour + 3},
    {L"For &5 Hours", kPauseFiveHours},
};

inline constexpr MenuItem kVoltaroItems[] = {
    {L"Re&initialize", kReinitialize},
    SharedPopup(L"&Pause"),
    {L"&Resume", kResume},
    kSeparator,
    {L"&Exit to Tray", kMenuExitToTray},
    {L"&Close", kClose},
};

inline constexpr MenuItem kInformationItems[] = {
    {L"&System Info", kSystemInfo},
    {L"&Battery Info", kBatteryInfo},
    kSeparator,
    {L"&Power Savings Report", kSavingsReport},
};

inline constexpr MenuItem kSettingsItems[] = {
    {L"&Power Scheme", kPowerScheme},
    {L"&Communication Ports", kPorts},
    kSeparator,
    {L"P&roxy Connection", kProxy},
    kSeparator,
    {L"&System Security", kSecurity},
    kSeparator,
    {L"&Job Scheduler", kJobScheduler},
    kSeparator,
    {L"Snoo&ze", kSnooze},
};

inline constexpr MenuItem kHelpItems[] = {
    {L"&Help", kHelp},
    {L"&About", kAbout},
    kSeparator,
    {L"&Update Voltaro", kUpdate},
    kSeparator,
    {kWebSiteHost, kWebSite},
};

inline constexpr MenuItem kBarItems[] = {
    Popup(L"&Voltaro", kVoltaroItems),
    Popup(L"I&nformation", kInformationItems),
    Popup(L"&Settings", kSettingsItems),
    Popup(L"&Help", kHelpItems),
    {L"&Refresh", kRefresh},
    {L"&Activate now...", kActivate},
};

inline constexpr MenuItem kTrayItems[] = {
    {L"Close", kTrayClose},
    kSeparator,
    {L"Voltaro", kTrayVoltaro},
    kSeparator,
    SharedPopup(L"Pause"),
    {L"Resume", kResume},
    kSeparator,
    {L"Help", kTrayHelp},
    {L"About", kTrayAbout},
    kSeparator,
    {kWebSiteHost, kWebSite},
};
// clang-format on

} // namespace voltaro
