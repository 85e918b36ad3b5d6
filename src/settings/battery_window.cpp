// Battery information: status, charge and what else the agent reports of the battery. Opened from the main menu.
#include "settings/battery_window.h"

#include "base/text.h"
#include "console/agent_records.h"
#include "console/agent_state.h"
#include "console/window_tables.h"
#include "console/windows.h"
#include "resources/resource_ids.h"
#include "settings/machine_texts.h"
#include "ui/list_view.h"

namespace voltaro {
namespace {

enum Id : int { kStatus = 101, kBar, kCharge, kList };

// clang-format off
constexpr Control kControls[] = {
    {Kind::GroupBox,       kNoId,   L"Battery",           12,   6, 494,  76},
    {Kind::Label,          kNoId,   L"Status :",          28,  28,  60,  18},
    {Kind::PlainEdit,      kStatus, L"",                  92,  28, 400,  18, kNoTabStop},
    {Kind::SmoothProgress, kBar,    L"",                  28,  53, 400,  18, kPlain, L"Battery charge"},
    {Kind::Label,          kCharge, L"",                 438,  54,  60,  18},
    {Kind::ListView,       kList,   L"Battery info List", 12,  92, 494, 192, kPlain, L"Battery information"},
};
constexpr Column kColumns[] = {{L"Description", 180}, {L"Value", 290}};
// clang-format on
static_assert(IdsAreUnique(kControls) && FitInside(kControls, 519, 296));

HWND Window()
{
    return WindowOf(WindowId::Battery);
}

void OnRefresh(HWND)
{
    ReadOrLose(ReadBatteryInfo);
    RefreshBatteryWindow();
}

constexpr Command kCommands[] = {
    {ID_BATTERY_REFRESH, OnRefresh},
    {kRefreshKey, OnRefresh},
    {IDOK, HideWindow},
    {IDCANCEL, HideWindow},
};

void MakeList(HWND window)
{
    SetColumns(ControlOf(window, kList), kColumns);
}

constexpr WindowTables kTables = {kControls, kCommands, L"battery info.htm", MakeList};

} // namespace

LRESULT CALLBACK BatteryWindowProc(HWND window, UINT message, WPARAM w, LPARAM l)
{
    return AnswerFromTables(kTables, window, message, w, l);
}

void OpenBatteryWindow(HWND)
{
    if (ReadOrLose(ReadBatteryInfo) == ReadResult::Lost)
        return;
    RefreshBatteryWindow();
    ShowAndActivate(Window());
}

void RefreshBatteryWindow()
{
    const BatteryInfo& battery = agentRecords.battery;
    SetText(Window(), kStatus, BatteryStatusLine(battery));
    SetText(Window(), kCharge, battery.Charge());
    SendMessageW(ControlOf(Window(), kBar), PBM_SETPOS, static_cast<WPARAM>(ChargePercent(battery)), 0);
    FillList(ControlOf(Window(), kList), battery.rows.size(), [&](std::size_t row, std::size_t column) {
        return column == 0 ? BatteryLabel(battery, row) : battery.rows[row].value.c_str();
    });
}

} // namespace voltaro
