// System security: hardware and system features that the agent switches off on this machine. Opened from the main menu.
#include "settings/device_control_window.h"

#include "console/windows.h"
#include "settings/record_window.h"

namespace voltaro {
namespace {

enum Id : int {
    kHost = 101,
    kUsbStorage,
    kCdDvdRom,
    kWebCam,
    kBlueTooth,
    kWifi,
    kWakeOnLan,
    kRegistryEdit,
    kFireWall,
    kApply,
    kCancel,
};

// clang-format off
constexpr Control kControls[] = {
    {Kind::GroupBox,    kNoId,         L"Host Name :",                                   14,   8, 366,  50},
    {Kind::Label,       kHost,         L"",                                              34,  31, 330,  18},
    {Kind::Label,       kNoId,         L"Select the feature that you want to 'disable'", 16,  68, 364,  18},
    {Kind::GroupBox,    kNoId,         L"Desktop Security :",                            14,  92, 366, 188},
    {Kind::CheckBox,    kUsbStorage,   L"Disable USB Storage",                           34, 113, 330,  22},
    {Kind::CheckBox,    kCdDvdRom,     L"Disable CD/DVD Rom",                            34, 140, 330,  22},
    {Kind::CheckBox,    kWebCam,       L"Disable Web Cam",                               34, 167, 330,  22},
    {Kind::CheckBox,    kBlueTooth,    L"Disable Blue Tooth",                            34, 194, 330,  22},
    {Kind::CheckBox,    kWifi,         L"Disable WIFI",                                  34, 221, 330,  22},
    {Kind::CheckBox,    kWakeOnLan,    L"Disable Wake On LAN",                           34, 248, 330,  22},
    {Kind::GroupBox,    kNoId,         L"Edit Controls :",                               14, 288, 366,  80},
    {Kind::CheckBox,    kRegistryEdit, L"Disable Registry Edit",                         34, 309, 330,  22},
    {Kind::CheckBox,    kFireWall,     L"Disable Fire Wall",                             34, 334, 330,  22},
    {Kind::Label,       kNoId,         L"Features shown in grey cannot be controlled on this machine.", 16, 378, 364, 36},
    {Kind::DefaultPush, kApply,        L"Apply",                                        202, 420,  85,  25, kDisabled},
    {Kind::Push,        kCancel,       L"Cancel",                                       295, 420,  85,  25},
};

constexpr Binding<DeviceSettings> kBindings[] = {
    {kUsbStorage,   Shown::Feature, &DeviceSettings::usbStorage},
    {kCdDvdRom,     Shown::Feature, &DeviceSettings::cdDvdRom},
    {kWebCam,       Shown::Feature, &DeviceSettings::webCam},
    {kBlueTooth,    Shown::Feature, &DeviceSettings::blueTooth},
    {kWifi,         Shown::Feature, &DeviceSettings::wifi},
    {kWakeOnLan,    Shown::Feature, &DeviceSettings::wakeOnLan},
    {kRegistryEdit, Shown::Feature, &DeviceSettings::registryEdit},
    {kFireWall,     Shown::Feature, &DeviceSettings::fireWall},
};
// clang-format on
static_assert(IdsAreUnique(kControls) && FitInside(kControls, 394, 461));

DeviceSettings devices;

constexpr RecordForm<DeviceSettings> kForm = {
    .read = Operation::GetDeviceSettings,
    .apply = Operation::ApplyDeviceSettings,
    .record = &devices,
    .bindings = kBindings,
    .applyButton = kApply,
    .applied
    = {L"System Security Settings", L"System security settings have been set successfully.", BoxIcon::Information},
    .failed = {L"Error", L"Unable to Set"},
};

constexpr Command kCommands[] = {
    {kApply, ApplyRecord<&kForm>},
    {kCancel, HideWindow},
    {kRefreshKey, RefreshRecordByKey<&kForm>},
    {IDOK, ApplyRecord<&kForm>},
    {IDCANCEL, HideWindow},
};

constexpr WindowTables kTables = {kControls, kCommands, L"system security.htm"};

} // namespace

LRESULT CALLBACK DeviceControlWindowProc(HWND window, UINT message, WPARAM w, LPARAM l)
{
    return AnswerFromTables(kTables, window, message, w, l);
}

void OpenDeviceControlWindow(HWND)
{
    const HWND window = WindowOf(WindowId::DeviceControl);
    SetText(window, kHost, kAgentHost);
    OpenRecord<&kForm>(window);
}

} // namespace voltaro
