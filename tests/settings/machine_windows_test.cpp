#include "link/document.h"
#include "resources/resource_ids.h"
#include "settings/machine_texts.h"
#include "settings/system_info_pages.h"
#include "support/pixels.h"
#include "support/program.h"

namespace voltaro {

struct MachineWindows : testing::Test, LoadedProgram { };

TEST_F(MachineWindows, TheLoadFillsAllPagesAndCopyAllTakesThem)
{
    // Rows of each list, and the first of them.
    // clang-format off
    const struct { const wchar_t* title; WindowId page; const wchar_t* list; int rows; const wchar_t *name, *value; } kLists[] = {
        {L"CPU",                WindowId::SystemInfoCpu,     L"CPU Exceptions List",   15, L"Processor", L"Harrowgate HX4 Quad Core Processor @ 2.40GHz"},
        {L"Operating System",   WindowId::SystemInfoOs,      L"CPU Exceptions List",   14, L"OSName", L"Microsoft Windows 10 Pro"},
        {L"Power Capabilities", WindowId::SystemInfoPower,   L"Power Exceptions List", 12, L"StandbySupported", L"Yes"},
        {L"Network",            WindowId::SystemInfoNetwork, L"Power Exceptions List", 22, L"AdapterName", L"Gigabit Network Connection"},
        {L"Physical Disks",     WindowId::SystemInfoDisks,   L"Physical Disk List",    16, L"Model", L"Harrowgate NV-512"},
        {L"Logical Disks",      WindowId::SystemInfoDisks,   L"Logical Disk List",     24, L"Drive", L"C:"},
    };
    // clang-format on
    std::wstring all;
    for (const auto& row : kLists) {
        const HWND list = Find(row.list, row.page);
        EXPECT_EQ(RowCount(list), row.rows) << row.list;
        EXPECT_TRUE(CellOf(list, 0, 0) == row.name && CellOf(list, 0, 1) == row.value) << row.name;
        all += row.title + (L"\r\n" + Replaced(ListText(list, false), L" \t \r\n", L"\r\n")) + L"\r\n";
    }
    for (const auto& [state, picture, system, logo, height] :
        {std::tuple(L"On", IDB_MACHINE_ON, L"xubuntu Linux", IDB_SYSTEM_RING, 25),
            {L"Off", IDB_MACHINE_OFF, L"Windows by Microsoft on Ubuntu Linux", IDB_SYSTEM_PANES, 38},
            {L"Off", IDB_MACHINE_OFF, L"Debian GNU/Linux", IDB_SYSTEM_PROMPT, 25}}) {
        SystemDetails details;
        const std::wstring cpu = Format(L"<CPUInfo><a/><a/><a/><a/><s>%ls</s></CPUInfo>", state);
        const auto answer = ParseAnswer((L"<d>" + cpu + L"<OSInfo><n>" + system + L"</n></OSInfo></d>").c_str());
        details.Read(&*answer);
        const auto draw = [](HDC dc, void* of) { DrawMachine(dc, *static_cast<SystemDetails*>(of)); };
        const Pixels page(RenderBitmap(90, 150, draw, &details).Get());
        EXPECT_TRUE(Shows(page, picture, {5, 15, 80, 90}) && Shows(page, logo, {4, 99, 84, 99 + height})) << system;
    }
    for (const wchar_t* none : {L"Windows 10", L"microsoft windows", L"UBUNTU"})
        EXPECT_EQ(LogoOf(none), SystemLogo::None) << none;
    MainCommand(kSystemInfo);
    EXPECT_EQ(TakeOperations(), Operations{});
    ClickTab(FindWindowExW(WindowOf(WindowId::SystemInfo), nullptr, WC_TABCONTROLW, nullptr), 2);
    EXPECT_TRUE(IsOpen(WindowId::SystemInfoOs) && !IsOpen(WindowId::SystemInfoCpu));
    Command(WindowId::SystemInfo, GetDlgCtrlID(Find(L"Copy all", WindowId::SystemInfo)));
    EXPECT_EQ(ClipboardText(), all);
}

TEST(SystemInfoTest, RefreshKeepsTheUsersPlace)
{
    LoadedProgram program(L"large");
    ASSERT_TRUE(StartWorkers());
    program.MainCommand(kSystemInfo);
    const HWND list = program.Find(L"Logical Disk List", WindowId::SystemInfoDisks);
    const HWND refresh = program.Find(L"Refresh", WindowId::SystemInfo);
    const HWND busy = program.Find(L"Refreshing, please wait ..", WindowId::SystemInfo);
    ASSERT_EQ(RowCount(list), 500);
    SelectRow(list, 303);
    program.Agent().SetFault(L"GetSystemDetails", {FaultKind::Late, L"100"});
    for (int i = 0; i < 2; ++i) {
        program.Command(WindowId::SystemInfo, ID_SYSTEM_INFO_REFRESH); // the second during the first
        EXPECT_TRUE(IsShown(busy) && !IsEnabled(refresh));
        EXPECT_TRUE(WaitFor([&] { return !program.Agent().Requests().empty(); }));
    }
    EXPECT_TRUE(WaitFor([&] { return !IsShown(busy); }));
    program.ExpectSent(L"GetSystemDetails", L"type=Refresh");
    EXPECT_TRUE(!WaitFor([&] { return program.Agent().Requests().size() > 1; }, 150) && SelectedRow(list) == 303);
    program.Agent().SetFault(L"GetSystemDetails", {FaultKind::CloseAtOnce, {}});
    program.boxes.Expect({{L"Connection Issue", {}}});
    program.Command(WindowId::SystemInfo, GetDlgCtrlID(refresh));
    EXPECT_TRUE(WaitFor([&] { return IsEnabled(refresh); }) && RowCount(list) == 500);
    StopWorkers(StopOrder::MainWindowDestroyed);
}

TEST_F(MachineWindows, TheBatteryWindowShowsChargeStatusAndRows)
{
    MainCommand(kBatteryInfo);
    EXPECT_EQ(TakeOperations(), Operations{L"GetBatteryInfo"});
    const HWND bar = Find(L"Battery charge"), list = Find(L"Battery info List");
    EXPECT_EQ(SendMessageW(bar, PBM_GETPOS, 0, 0), 87);
    EXPECT_EQ(Shown(L"Status :"), L"Charging, remaining time 3 Hrs : 25 Mins");
    EXPECT_EQ(ListText(list, false),
        L"Description\tValue\r\nPower Source\tOn AC\r\nBattery Status\tCharging\r\nBattery Charge\t87 %\r\n"
        L"Remaining Time\t3 Hrs : 25 Mins\r\nCapacity\t48.90 Wh\r\nVoltage\t11.40 V\r\nChemistry\tLi-ion\r\n"
        L"Manufacturer\tHarrowgate Energy Storage\r\nCycleCount\t214 of 1000 full cycles\r\n");
    Agent().ScriptReply(L"GetBatteryInfo",
        L"<vltp version=\"1.0\"><response><S>On Battery</S><B>Discharging</B><C>9 %</C></response></vltp>");
    SendMessageW(WindowOf(WindowId::Main), WM_POWERBROADCAST, PBT_APMPOWERSTATUSCHANGE, 0);
    Pump();
    EXPECT_TRUE(Shown(L"Status :") == L"Discharging" && SendMessageW(bar, PBM_GETPOS, 0, 0) == 9);
    Agent().ScriptReply(L"GetBatteryInfo", L"<vltp version=\"1.0\"><response>");
    Command(WindowId::Battery, ID_BATTERY_REFRESH);
    EXPECT_EQ(RowCount(list), 3); // what cannot be read changes nothing
    Agent().ClearScripts();
    Command(WindowId::Battery, ID_BATTERY_REFRESH);
    EXPECT_EQ(RowCount(list), 9); // an answer of more than 700 bytes
    Agent().SetFault(L"GetBatteryInfo", {FaultKind::CloseAtOnce, {}});
    boxes.Expect({{L"Connection Issue", {}}});
    Command(WindowId::Battery, ID_BATTERY_REFRESH);
}

} // namespace voltaro
