#include "shell/main_menus.h"

#include "base/error_log.h"
#include "shell/main_commands.h"
#include "shell/main_menu_items.h"
#include "shell/main_window.h"
#include "ui/controls.h"
#include "ui/menus.h"

#include <iterator>

namespace voltaro {
namespace {

// clang-format off
constexpr std::uint8_t kStart = static_cast<std::uint8_t>(Occasion::StartUp);
constexpr std::uint8_t kFailed = static_cast<std::uint8_t>(Occasion::CheckFailed);
constexpr std::uint8_t kLost = static_cast<std::uint8_t>(Occasion::AgentLost);
constexpr std::uint8_t kLoaded = static_cast<std::uint8_t>(Occasion::Loaded);

// On which occasions a command or control is greyed, and on which it is enabled.
struct Availability {
    int id;
    std::uint8_t greyedOn;
    std::uint8_t enabledOn;
};

// Communication Ports (administrators only), Battery Info (by the battery) and the pause and resume items (by the
// running state) are enabled elsewhere.
constexpr Availability kMenuItems[] = {
    {kPauseOneHour,     kStart,                   0},
    {kPauseOneHour + 1, kStart,                   0},
    {kPauseOneHour + 2, kStart,                   0},
    {kPauseOneHour + 3, kStart,                   0},
    {kPauseFiveHours,   kStart,                   0},
    {kResume,           kStart,                   0},
    {kTrayVoltaro,      kStart,                   kLoaded},
    {kSystemInfo,       kStart | kFailed | kLost, kLoaded},
    {kBatteryInfo,      kStart,                   0},
    {kSavingsReport,    kStart | kFailed | kLost, kLoaded},
    {kPowerScheme,      kStart | kFailed | kLost, kLoaded},
    {kSecurity,         kStart | kFailed | kLost, kLoaded},
    {kJobScheduler,     kStart | kFailed | kLost, kLoaded},
    {kSnooze,           kStart | kFailed | kLost, kLoaded},
    {kPorts,            kStart | kLost,           0},
    {kProxy,            kStart | kFailed,         kLoaded},
    {kUpdate,           kStart | kFailed,         kLoaded},
    {kRefresh,          kStart | kFailed,         kLoaded},
    {kActivate,         kStart | kFailed | kLost, kLoaded},
};

constexpr Availability kMainControls[] = {
    {kChange,       kStart | kFailed, kLoaded},
    {kResumeButton, kStart | kFailed, kLoaded},
    {kLockScreen,   kFailed,          kLoaded},
    {kLogOff,       kFailed,          kLoaded},
    {kStandby,      kFailed,          kLoaded},
    {kHibernate,    kFailed,          kLoaded},
    {kShutdown,     kFailed,          kLoaded},
    {kRestart,      kFailed,          kLoaded},
    {kSavingsList,  kFailed,          kLoaded},
};
// clang-format on

struct MainMenus {
    UniqueMenu pause;
    UniqueMenu tray;
    HMENU bar = nullptr; // the window owns and destroys it
};
MainMenus menus;

template <std::size_t N, class Change>
void ForOccasion(const Availability (&rows)[N], Occasion occasion, Change change)
{
    const auto bit = static_cast<std::uint8_t>(occasion);
    for (const Availability& row : rows) {
        if ((row.greyedOn | row.enabledOn) & bit)
            change(row.id, (row.enabledOn & bit) != 0);
    }
}

} // namespace

void BuildMainMenus(HWND window)
{
    menus.pause = BuildPopup(kPauseItems, std::size(kPauseItems));
    UniqueMenu bar = BuildMenuBar(kBarItems, std::size(kBarItems), menus.pause.Get());
    menus.tray = BuildPopup(kTrayItems, std::size(kTrayItems), menus.pause.Get());
    Checked(SetMenu(window, bar.Get()), "SetMenu");
    menus.bar = bar.Release();
    EnableItem(menus.tray.Get(), kResume, false);
}

void DestroyMainMenus()
{
    RemoveShared(menus.bar, menus.pause.Get());
    RemoveShared(menus.tray.Get(), menus.pause.Get());
    menus = MainMenus();
}

HMENU MainMenuBar()
{
    return menus.bar;
}

HMENU TrayMenu()
{
    return menus.tray.Get();
}

HMENU PauseMenu()
{
    return menus.pause.Get();
}

void ApplyOccasion(HWND window, Occasion occasion)
{
    ForOccasion(kMenuItems, occasion, [](int id, bool enabled) {
        EnableItem(menus.bar, static_cast<unsigned>(id), enabled);
        EnableItem(menus.tray.Get(), static_cast<unsigned>(id), enabled);
    });
    ForOccasion(kMainControls, occasion, [&](int id, bool enabled) { Enable(window, id, enabled); });
    DrawMenuBar(window);
}

} // namespace voltaro
