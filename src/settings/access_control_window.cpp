// Communication ports: from where the agent may be managed, and on which ports it listens. Opened from the main menu,
// for administrators.
#include "settings/access_control_window.h"

#include "console/windows.h"
#include "resources/resource_ids.h"
#include "settings/record_window.h"
#include "settings/settings_rules.h"

namespace voltaro {
namespace {

enum Id : int {
    kLocalHost = 101,
    kLocalAddress,
    kManager1,
    kManager1Address,
    kManager2,
    kManager2Address,
    kTcpPort,
    kUdpPort,
    kChange,
    kCancel,
};

// clang-format off
constexpr Control kControls[] = {
    {Kind::Label,       kNoId,            L"Enable Agent Management From :",  10,   4, 310, 18},
    {Kind::CheckBox,    kLocalHost,       L"Local Host",                      20,  23, 140, 22},
    {Kind::IpAddress,   kLocalAddress,    L"",                               168,  23, 154, 22, kDisabled, L"Local Host address"},
    {Kind::CheckBox,    kManager1,        L"Remote Manager 1",                20,  47, 140, 22},
    {Kind::IpAddress,   kManager1Address, L"",                               168,  47, 154, 22, kPlain,    L"Remote Manager 1 address"},
    {Kind::CheckBox,    kManager2,        L"Remote Manager 2",                20,  71, 140, 22},
    {Kind::IpAddress,   kManager2Address, L"",                               168,  71, 154, 22, kPlain,    L"Remote Manager 2 address"},
    {Kind::Label,       kNoId,            L"TCP Port :",                      20, 102,  68, 18},
    {Kind::NumberEdit,  kTcpPort,         L"",                                90,  99,  60, 22},
    {Kind::Label,       kNoId,            L"UDP Port :",                     190, 102,  70, 18},
    {Kind::NumberEdit,  kUdpPort,         L"",                               262,  99,  60, 22},
    {Kind::DefaultPush, kChange,          L"Change",                         150, 129,  82, 25, kDisabled},
    {Kind::Push,        kCancel,          L"Cancel",                         240, 129,  82, 25},
};

constexpr Binding<HostSettings> kBindings[] = {
    {kLocalHost,       Shown::YesNo,   &HostSettings::localhost},
    {kManager1,        Shown::YesNo,   &HostSettings::remoteManager1Enable},
    {kManager1Address, Shown::Address, &HostSettings::remoteManager1},
    {kManager2,        Shown::YesNo,   &HostSettings::remoteManager2Enable},
    {kManager2Address, Shown::Address, &HostSettings::remoteManager2},
    {kTcpPort,         Shown::Text,    &HostSettings::tcpPort},
    {kUdpPort,         Shown::Text,    &HostSettings::udpPort},
};
// clang-format on
static_assert(IdsAreUnique(kControls) && FitInside(kControls, 334, 161));

constexpr const wchar_t* kInvalidPort = L"Invalid Port Number";
constexpr const wchar_t* kPortRange = L"Please enter an integer value in the range (1024 – 65535) as the port number.";

// In the order of HostFault.
constexpr RefusedField kRefusals[] = {
    {kTcpPort, {kInvalidPort, L"TCP port cannot be blank."}},
    {kTcpPort, {kInvalidPort, kPortRange}},
    {kUdpPort, {kInvalidPort, L"UDP port cannot be blank."}},
    {kUdpPort, {kInvalidPort, kPortRange}},
};

constexpr RecordForm<HostSettings> kForm = {
    .read = Operation::GetHostSettings,
    .apply = Operation::ApplyHostSettings,
    .record = &hostSettings,
    .bindings = kBindings,
    .applyButton = kChange,
    .applied = {L"Restart Voltaro",
        L"Please restart Voltaro for the new settings to take effect.\n(both Voltaro service and Voltaro console.)",
        BoxIcon::Information},
    .failed = {L"Unable to Set", L"Unable to set access control settings"},
    .complete = CheckHostSettings,
    .refusals = kRefusals,
    .tellFirst = true,
};

constexpr Command kCommands[] = {
    {kChange, ApplyRecord<&kForm>},
    {kCancel, HideWindow},
    {ID_ACCESS_CONTROL_REFRESH, RefreshRecord<&kForm>},
    {ID_ACCESS_CONTROL_HELP, ShowHelp},
    {kRefreshKey, RefreshRecordByKey<&kForm>},
    {IDOK, ApplyRecord<&kForm>},
    {IDCANCEL, HideWindow},
};

void ShowLocalAddress(HWND window)
{
    SendMessageW(ControlOf(window, kLocalAddress), IPM_SETADDRESS, 0, MAKEIPADDRESS(127, 0, 0, 1));
}

constexpr WindowTables kTables = {kControls, kCommands, L"access control.htm", ShowLocalAddress};

} // namespace

LRESULT CALLBACK AccessControlWindowProc(HWND window, UINT message, WPARAM w, LPARAM l)
{
    return AnswerFromTables(kTables, window, message, w, l);
}

void OpenAccessControlWindow(HWND)
{
    OpenRecord<&kForm>(WindowOf(WindowId::AccessControl));
}

ReadResult ReadHostSettings()
{
    return ReadRecordInto(Operation::GetHostSettings, hostSettings);
}

} // namespace voltaro
