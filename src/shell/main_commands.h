#pragma once

#include <iterator>

namespace voltaro {

// Command ids of the main window: menu items, tray items and buttons.
enum MainCommand : int {
    kTrayClose = 3001,
    kTrayHelp = 3002,
    kTrayAbout = 3003,
    kResume = 3004,
    kPauseNone = 3005,    // in no menu; addressed all the same, without effect, as the pause state counts from it
    kPauseOneHour = 3006, // five commands in a row
    kPauseFiveHours = 3010,
    kTrayVoltaro = 3011,
    kStandby = 8001,
    kHibernate = 8002,
    kShutdown = 8003,
    kRestart = 8004,
    kLogOff = 8005,
    kLockScreen = 8006,
    kChange = 8101,
    kExitToTray = 8102,
    kSet = 8103,
    kResumeButton = 8105,
    kMenuExitToTray = 9001,
    kPowerScheme = 9002,
    kAbout = 9003,
    kHelp = 9004,
    kWebSite = 9009,
    kSystemInfo = 9011,
    kClose = 9014,
    kRefresh = 9017,
    kJobScheduler = 9018,
    kUpdate = 9022,
    kPorts = 9024,
    kBatteryInfo = 9025,
    kSavingsReport = 9030,
    kActivate = 9032,
    kReinitialize = 9034,
    kProxy = 9035,
    kSecurity = 9040,
    kSnooze = 9041,
};

inline constexpr int kPauseHours = 5;

// The buttons of the quick power actions, from left to right.
inline constexpr int kQuickActionButtons[] = {kLockScreen, kLogOff, kStandby, kHibernate, kShutdown, kRestart};

// Compile-time proof-reading: whether a table has one row for each of those buttons; `idOf` gives a row's button.
template <class Rows, class IdOf>
consteval bool CoversQuickActions(const Rows& rows, IdOf idOf)
{
    for (const int button : kQuickActionButtons) {
        int count = 0;
        for (const auto& row : rows)
            count += idOf(row) == button ? 1 : 0;
        if (count != 1)
            return false;
    }
    return std::size(rows) == std::size(kQuickActionButtons);
}

} // namespace voltaro
