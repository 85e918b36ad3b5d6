#include "resources/resource_ids.h"
#include "shell/workers.h"
#include "support/program.h"

namespace voltaro {
namespace {

HWND Field(WindowId window, const wchar_t* label)
{
    return Labelled(WindowOf(window), label);
}

TEST(SystemInfoTest, TheLoadFillsAllPagesAndCopyAllTakesThem)
{
    LoadedProgram program;
    // Rows of each list, and the first of them.
    // clang-format off
    const struct { WindowId page; const wchar_t* list; int rows; const wchar_t *name, *value; } kLists[] = {
        {WindowId::SystemInfoCpu,     L"CPU Exceptions List",   15, L"Processor", L"Harrowgate HX4 Quad Core Processor @ 2.40GHz"},
        {WindowId::SystemInfoOs,      L"CPU Exceptions List",   14, L"OSName", L"Microsoft Windows 10 Pro"},
        {WindowId::SystemInfoPower,   L"Power Exceptions List", 12, L"StandbySupported", L"Yes"},
        {WindowId::SystemInfoNetwork, L"Power Exceptions List", 22, L"AdapterName", L"Gigabit Network Connection"},
        {WindowId::SystemInfoDisks,   L"Physical Disk List",    16, L"Model", L"Harrowgate NV-512"},
        {WindowId::SystemInfoDisks,   L"Logical Disk List",     24, L"Drive", L"C:"},
    };
    // clang-format on
    for (const auto& row : kLists) {
        const HWND list = Field(row.page, row.list);
        EXPECT_EQ(RowCount(list), row.rows) << row.list;
        EXPECT_EQ(CellOf(list, 0, 0), row.name);
        EXPECT_EQ(CellOf(list, 0, 1), row.value);
    }
    EXPECT_EQ(CellOf(Field(WindowId::SystemInfoDisks, L"Logical Disk List"), 7, 0), L" "); // between two disks

    program.Command(WindowId::Main, kSystemInfo);
    EXPECT_EQ(program.TakeOperations(), Operations{});
    EXPECT_TRUE(program.IsOpen(WindowId::SystemInfoCpu) && !program.IsOpen(WindowId::SystemInfoOs));
    ClickTab(FindWindowExW(WindowOf(WindowId::SystemInfo), nullptr, WC_TABCONTROLW, nullptr), 2);
    EXPECT_TRUE(program.IsOpen(WindowId::SystemInfoOs) && !program.IsOpen(WindowId::SystemInfoCpu));
    EXPECT_FALSE(IsWindowEnabled(WindowOf(WindowId::Main)));
    program.Command(WindowId::SystemInfo, GetDlgCtrlID(Field(WindowId::SystemInfo, L"Copy all")));
    ASSERT_TRUE(OpenClipboard(nullptr));
    const HANDLE data = GetClipboardData(CF_UNICODETEXT);
    const std::wstring text(static_cast<const wchar_t*>(GlobalLock(data)));
    GlobalUnlock(data);
    CloseClipboard();
    EXPECT_EQ(text.find(L"CPU\r\nDescription\tValue\r\nProcessor\t"), 0u);
    SendMessageW(WindowOf(WindowId::SystemInfo), WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindowVisible(WindowOf(WindowId::SystemInfo)));
    EXPECT_TRUE(IsWindowEnabled(WindowOf(WindowId::Main)));
}

TEST(SystemInfoTest, RefreshKeepsTheUsersPlace)
{
    LoadedProgram program(*simulator::FindScenario(L"large"));
    ASSERT_TRUE(StartWorkers());
    program.Command(WindowId::Main, kSystemInfo);
    const HWND list = Field(WindowId::SystemInfoDisks, L"Logical Disk List");
    const HWND refresh = Field(WindowId::SystemInfo, L"Refresh");
    const HWND busy = Field(WindowId::SystemInfo, L"Refreshing, please wait ..");
    ASSERT_EQ(RowCount(list), 500);
    SelectRow(list, 303);
    program.Command(WindowId::SystemInfo, ID_SYSTEM_INFO_REFRESH);
    EXPECT_TRUE(IsShown(busy) && !IsWindowEnabled(refresh));
    EXPECT_TRUE(WaitFor([&] { return !IsShown(busy); }));
    program.ExpectSent(L"GetSystemDetails", L"type=Refresh");
    EXPECT_EQ(SelectedRow(list), 303);

    program.Agent().SetFault(L"GetSystemDetails", {FaultKind::CloseAtOnce, {}});
    BoxScript boxes{{L"Connection Issue", {}}};
    program.Command(WindowId::SystemInfo, GetDlgCtrlID(refresh));
    EXPECT_TRUE(WaitFor([&] { return IsWindowEnabled(refresh) != FALSE; }));
    Pump();
    EXPECT_EQ(RowCount(list), 500);
    StopWorkers(StopOrder::MainWindowDestroyed);
}

TEST(BatteryTest, ShowsChargeStatusAndRows)
{
    LoadedProgram program;
    program.Command(WindowId::Main, kBatteryInfo);
    EXPECT_EQ(program.TakeOperations(), Operations{L"GetBatteryInfo"});
    const HWND bar = Field(WindowId::Battery, L"Battery charge");
    const HWND list = Field(WindowId::Battery, L"Battery info List");
    const auto status = [] { return WindowText(Field(WindowId::Battery, L"Status :")); };
    EXPECT_EQ(SendMessageW(bar, PBM_GETPOS, 0, 0), 87);
    EXPECT_EQ(status(), L"Charging, remaining time 3 Hrs : 25 Mins");
    EXPECT_EQ(ListText(list, false),
        L"Description\tValue\r\nPower Source\tOn AC\r\nBattery Status\tCharging\r\nBattery Charge\t87 %\r\n"
        L"Remaining Time\t3 Hrs : 25 Mins\r\nCapacity\t48.90 Wh\r\nVoltage\t11.40 V\r\nChemistry\tLi-ion\r\n"
        L"Manufacturer\tHarrowgate Energy Storage\r\nCycleCount\t214 of 1000 full cycles\r\n");

    program.Agent().ScriptReply(L"GetBatteryInfo",
        L"<vltp version=\"1.0\"><response><S>On Battery</S><B>Discharging</B><C>9 %</C></response></vltp>");
    SendMessageW(WindowOf(WindowId::Main), WM_POWERBROADCAST, PBT_APMPOWERSTATUSCHANGE, 0);
    Pump();
    EXPECT_EQ(status(), L"Discharging");
    EXPECT_EQ(SendMessageW(bar, PBM_GETPOS, 0, 0), 9);
    program.Agent().ScriptReply(L"GetBatteryInfo", L"<vltp version=\"1.0\"><response>");
    program.Command(WindowId::Battery, ID_BATTERY_REFRESH);
    EXPECT_EQ(RowCount(list), 3); // what cannot be read changes nothing
    program.Agent().ClearScripts();
    SetFocus(list);
    Press(VK_F5);
    EXPECT_EQ(RowCount(list), 9); // an answer of more than 700 bytes

    program.Agent().SetFault(L"GetBatteryInfo", {FaultKind::CloseAtOnce, {}});
    BoxScript boxes{{L"Connection Issue", {}}};
    program.Command(WindowId::Battery, ID_BATTERY_REFRESH);
    Press(VK_ESCAPE);
    EXPECT_FALSE(IsWindowVisible(WindowOf(WindowId::Battery)));
}

} // namespace
} // namespace voltaro
