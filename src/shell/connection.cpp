#include "shell/connection.h"

#include "base/platform_calls.h"
#include "console/activation.h"
#include "console/agent_records.h"
#include "console/agent_state.h"
#include "console/connection_state.h"
#include "console/main_hold.h"
#include "console/windows.h"
#include "savings/saved_profile.h"
#include "settings/access_control_window.h"
#include "settings/proxy_window.h"
#include "settings/system_info_window.h"
#include "shell/main_commands.h"
#include "shell/main_menus.h"
#include "shell/main_window.h"
#include "shell/pause.h"
#include "shell/tray.h"
#include "ui/boxes.h"
#include "ui/combo_box.h"
#include "ui/controls.h"
#include "ui/list_view.h"
#include "ui/menus.h"
#include "ui/window_class.h"

#include <iterator>
#include <shlobj.h>

namespace voltaro {
namespace {

// The hint is laid out otherwise than in the lost agent's box; users know both.
constexpr Box kNotResponding = {L"Connection Issue",
    L"Voltaro service on 'localhost' is not responding!\nPlease check if Voltaro service is started and try to "
    L"reconnect "
    L".\n\nHint :\n           To check for services (in Windows) go to Start->Run.. , type 'services.msc', press "
    L"Enter.\n"
    L"           To reconnect (in Voltaro Console Menu) click on Voltaro->Reinitialize ."};
constexpr Box kSchemesFailed = {L"Failed to communicate with Voltaro Agent", L"Voltaro Agent not responding"};

constexpr int kConnectionTries = 3;

constexpr const wchar_t* kSavingsRows[] = {L"Date (YYYY-MM-DD)", L"Power saved", L"Percentage power saved",
    L"Co2 emission saved", L"Power Consumption (After Savings)"};

HWND Main()
{
    return WindowOf(WindowId::Main);
}

// Idle view and everything greyed that needs an agent.
void ShowNotConnected()
{
    ShowIdleView(Main());
    ApplyOccasion(Main(), Occasion::CheckFailed);
    Repaint(Main());
}

bool AgentAnswers()
{
    for (int attempt = 0; attempt < kConnectionTries; ++attempt) {
        if (attempt > 0 && !WaitForNextTry(timing.connectionRetry))
            return false;
        if (Send(Plain(Operation::GetSystemStatus)).Answered())
            return true;
    }
    return false;
}

// Reads the system details and shows them; false when the agent does not answer.
bool LoadSystemDetails()
{
    Reply reply = Send(Plain(Operation::GetSystemDetails));
    SetProgress(Main(), 20);
    connection.detailsAnswered = reply.Answered();
    if (!connection.detailsAnswered)
        return false;
    Repaint(Main());
    agentRecords.details.Read(reply.Root());
    FillSystemInfo();
    return true;
}

void LoadSavingsTotal()
{
    Reply reply = Send(Plain(Operation::GetSavingsTillDate));
    if (!reply.Root())
        return;
    const std::span<const Element> values = DetailsOrResponseFields(*reply.Root());
    std::vector<std::vector<std::wstring>> rows;
    rows.reserve(std::size(kSavingsRows));
    for (std::size_t i = 0; i < std::size(kSavingsRows); ++i)
        rows.push_back({kSavingsRows[i], std::wstring(TextAt(values, i))});
    FillList(ControlOf(Main(), kSavingsList), rows);
}

void BecomeConnected()
{
    ReleaseMainWindow(HoldReason::Check);
    ShowWindow(Main(), SW_RESTORE);
    UpdateWindow(Main());
    if (IsUserAnAdmin())
        EnableItem(MainMenuBar(), kPorts, true);
    ShowRunningState();
    connection.connected = true;
    trayRestoreAllowed = true;
    ApplyOccasion(Main(), Occasion::Loaded);
    Repaint(Main());
    SetProgress(Main(), 90);
}

} // namespace

void CheckAgentConnection()
{
    ShowBusyView(Main());
    SetProgress(Main(), 10);
    if (AgentAnswers()) {
        LoadConsoleData();
        return;
    }
    connection.detailsAnswered = false;
    ShowMessage(nullptr, kNotResponding);
    ShowNotConnected();
}

void LoadConsoleData()
{
    if (!LoadSystemDetails()) {
        connection.connected = false;
        ShowNotConnected();
        return;
    }
    ReadBatteryInfo();
    EnableItem(MainMenuBar(), kBatteryInfo, !agentRecords.noBattery);
    if (ReadPowerSchemes() == ReadResult::Lost)
        ShowMessage(Main(), kSchemesFailed);
    ShowNormalControls(Main());
    ReadPolicies();
    ReadCurrentPowerSettings();
    ReadHostSettings();
    ReadProxySettings();
    ReadActivationStatus();
    LoadSavingsTotal();
    BecomeConnected();
    ReadPauseStatus();
    SetProgress(Main(), 95);
    ReadSavedProfile();
    ReadPatchDetails();
    SetProgress(Main(), 100);
    ShowIdleView(Main());
}

void RefreshConsoleData(HWND main)
{
    if (ReadPowerSchemes() != ReadResult::Lost) {
        ReadPolicies();
        ReadCurrentPowerSettings();
    } else {
        ShowMessage(main, kSchemesFailed);
    }
    SelectExact(main, kSchemeList, agentRecords.currentScheme.powerScheme);
    ReadBatteryInfo();
    ReadActivationStatus();
    ReadPauseStatus();
    ShowNormalControls(main);
    Repaint(main);
}

void RunCheck(HWND main)
{
    HoldMainWindow(HoldReason::Check, nullptr);
    CheckAgentConnection();
    ReleaseMainWindow(HoldReason::Check);
    Repaint(main, true);
}

void OnReinitialize(HWND main)
{
    connection.connected = false;
    connection.detailsAnswered = false;
    Repaint(main);
    RunCheck(main);
    DrawMenuBar(main);
}

} // namespace voltaro
