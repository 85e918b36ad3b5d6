#include "savings/profile_window.h"

#include "support/program.h"

namespace voltaro {

constexpr int kSaved = 101, kInbuilt = 102, kBranded = 103, kOthers = 104, kNote = 105, kType = 106, kSize = 107,
              kMonitorOn = 108, kMonitorOff = 109, kCpuMax = 110, kCpuIdle = 111, kCpuStandby = 112, kCpuOff = 113,
              kManual = 114, kAuto = 115, kEdit = 116, kSave = 117;

struct ProfileWindowTest : testing::Test, LoadedProgram {
    void Open() { OpenProfileWindow(WindowOf(WindowId::Savings)); }
    void Click(int id) { Command(WindowId::Profile, id); }
    void Set(int id, const wchar_t* text) { Do({{id, text}}); }
    [[nodiscard]] static std::wstring Watts() { return Shown(kMonitorOn) + L" " + Shown(kMonitorOff); }
    const HWND m_window = WindowOf(WindowId::Profile);
};

TEST_F(ProfileWindowTest, OpensWithTheSavedProfileOrTheDefaultMonitorToLookAt)
{
    Open();
    EXPECT_EQ(TakeOperations(), Operations{L"GetCurrentPowerConsumptionData"});
    EXPECT_EQ(CellOf(ControlOf(m_window, kSaved), 4, 1), L"62.40 Watts");
    EXPECT_TRUE(ListText(ControlOf(m_window, kSaved), false)
                    .ends_with(L"\nSystem Manufacturer\tHarrowgate Computers\r\nSystem Model\tFieldbook 14 G3\r\n"));
    EXPECT_EQ(Shown(kSize) + L" " + Shown(kCpuOff), L"17.00 0.85");
    for (const bool editing : {false, true}) {
        for (const int id : {kInbuilt, kType, kMonitorOn, kCpuMax, kSave})
            EXPECT_EQ(IsOn(id), editing) << id;
        Click(editing ? IDCANCEL : IDOK); // nothing to save
        Click(kEdit);
    }
    EXPECT_TRUE(!IsWindowVisible(m_window) && TakeOperations().empty());
    Agent().SetFault(L"GetCurrentPowerConsumptionData", {FaultKind::NotWellFormed, {}});
    Open();
    EXPECT_EQ(Shown(kCpuMax), L"62.40");
    EXPECT_FALSE(IsOn(kEdit)) << "the record may be out of date";
    Click(IDCANCEL);
    savedProfile = {};
    Agent().SetFault(L"GetCurrentPowerConsumptionData", {FaultKind::Status, {}});
    Open();
    EXPECT_EQ(Shown(kType) + L" " + Shown(kSize) + L" " + Watts(), L"LCD 17.00 21.23 0.49");
    EXPECT_FALSE(IsOn(kEdit)) << "no record came that could be edited";
    Agent().SetFault(L"GetAutoPowerConsumptionData", {FaultKind::Status, {}});
    boxes.Expect({{L"Power Consumption Settings", L"Unable to read"}});
    Click(kAuto);
    EXPECT_FALSE(IsOn(kEdit) || IsOn(kSave));
    Click(kManual);
    EXPECT_TRUE(IsOn(kCpuMax) && IsOn(kSave));
}

TEST_F(ProfileWindowTest, ChoicesOfMonitor)
{
    Open();
    Click(kEdit);
    for (const auto& [type, sizes, size, watts] : {std::tuple(L"CRT", 5, L"15.00", L"65.20 4.20"),
             {L"LCD", 16, L"27.00", L"36.91 0.51"}, {L"LED", 8, L"24.00", L"18.9 0.09"}}) {
        Set(kType, type);
        EXPECT_EQ(SendMessageW(ControlOf(m_window, kSize), CB_GETCOUNT, 0, 0), sizes) << type;
        Set(kSize, size);
        EXPECT_EQ(Watts(), watts);
    }
    Set(kSize, L"22.00");
    Set(kType, L"CRT"); // has that size too
    EXPECT_EQ(Watts(), L"141.00 3.50");
    for (const int kind : {kInbuilt, kBranded}) {
        Do({{kind}});
        EXPECT_TRUE(Watts() == L"0.00 0.00" && !IsOn(kMonitorOn) && !IsOn(kType));
        EXPECT_EQ(IsWindowVisible(ControlOf(m_window, kNote)) != FALSE, kind == kInbuilt);
    }
    Do({{kOthers}});
    EXPECT_EQ(Watts(), L"141.00 3.50");
    Set(kMonitorOn, L"99");
    Do({{kOthers}}); // chosen before: keeps the user's own figures
    EXPECT_EQ(Watts(), L"99 3.50");
    TakeOperations();
    boxes.Expect({{L"Refresh", {}, Answer::No}, {L"Refresh", {}, Answer::Yes}});
    Click(kRefreshKey);
    EXPECT_TRUE(TakeOperations().empty());
    Click(kRefreshKey);
    EXPECT_EQ(Shown(kSize) + L" " + Shown(kCpuOff), L"17.00 0.85") << "what the agent has";
}

TEST_F(ProfileWindowTest, AnUntouchedRecordGoesBackAsItCame)
{
    // Of the monitor; nothing of it is checked.
    constexpr const wchar_t* kRows[][4] = {{L"inbuilt", L"15.60", L"5", L"x"}, {L"BRANDED", L"9", L"-", L"7.5"},
        {L"lcd", L"17.30", L"5", L"0.400"}, {L"OLED", L"17.00", L"5.00", L"0.40"}};
    Agent().SetFault(L"ApplyPowerConsumptionData", {FaultKind::Status, L"Success"});
    for (const auto& [type, size, on, off] : kRows) {
        const PowerConsumptionData record{{}, type, size, on, off, L"-1", L"thirty", {}, {}, {}, {}, {}, {}};
        Agent().ScriptReply(L"GetCurrentPowerConsumptionData",
            simulator::ReplyText({L"response", {}, {ElementOf(L"details", record)}}));
        Click(IDCANCEL);
        Open();
        Click(kEdit);
        boxes.Expect({{L"Power Consumption Settings", {}}});
        Click(kSave);
        ExpectSent(L"ApplyPowerConsumptionData", Line(ElementOf(L"details", record)));
    }
    Click(kEdit);
    Do({{kBranded}});
    Do({{kOthers}});
    EXPECT_EQ(Watts(), L"21.23 0.49") << "the default monitor's";
}

TEST_F(ProfileWindowTest, RefusedPowersAreToldAndEmptied)
{
    Open();
    Click(kEdit);
    const std::wstring kHint = L"\n\n Hint : Please keep the value in 0.00 to 999.99 range.";
    const std::wstring kHigh = L"Value entered is too high." + kHint;
    const std::wstring kWrong = L"Please enter valid decimal values only" + kHint;
    for (const auto& [field, text, box] :
        {std::tuple(kMonitorOn, L"1000", kHigh), {kMonitorOff, L"1,5", kWrong}, {kCpuMax, L"", kWrong},
            {kCpuIdle, L"-1", kWrong}, {kCpuStandby, L"999.991", kHigh}, {kCpuOff, L"1e2", kWrong}}) {
        ExpectRefused({L"Invalid Input", box}, {{field, text}, {kSave}});
        Set(field, L"999.99");
    }
}

TEST_F(ProfileWindowTest, SavesAManualEntryComputesAnewThenSavesTheAutomatic)
{
    Open();
    shownDay = MakeShownDay({2024, 2, 29}, {{.poweredOn = 3600, .active = 3600}, {}, 0, 0}, savedProfile);
    Click(kManual);
    EXPECT_EQ(Watts(), L"21.20 0.65");
    for (const auto& [id, text] : {std::pair(kType, L"LED"), {kSize, L"24.00"}, {kCpuMax, L"100"}, {kCpuIdle, L"40.5"}})
        Set(id, text);
    boxes.Expect({{L"Power Consumption Settings", {}}, {L"Power Consumption Settings", {}}});
    Click(kSave);
    ExpectSent(L"ApplyPowerConsumptionData",
        L"details[ManualSetFlag=Yes MonitorType=LED MonitorSize=24.00 MonitorONPower=18.9 MonitorOFFPower=0.09 "
        L"CPUMaxPower=100.00 CPUIdlePower=40.50 CPUStandbyPower=2.50 CPUOffPower=1.00 System_Type=Notebook "
        L"Processor_Type=Quad core, 2.40 GHz System_Manufacturer=Harrowgate Computers System_Model=Fieldbook 14 G3]");
    EXPECT_EQ(TakeOperations(),
        (Operations{L"GetCurrentPowerConsumptionData", L"GetManualPowerConsumptionData", L"GetActivationstatus",
            L"ApplyPowerConsumptionData", L"GetCurrentPowerConsumptionData"}));
    EXPECT_TRUE(CellOf(ControlOf(m_window, kSaved), 4, 1) == L"100.00 Watts" && !IsOn(kSave) && !IsOn(kCpuMax));
    // An hour at 0.05 x 118.9 + 0.15 x 89.15 + 0.8 x 59.4 W.
    EXPECT_EQ(EnergyText(shownDay->figures.nowIs), L"0.067 kWh");
    Click(kAuto);
    EXPECT_EQ(Shown(kCpuMax), L"62.40");
    Click(IDOK);
    EXPECT_NE(LastRequest(L"ApplyPowerConsumptionData").find(L"<ManualSetFlag>No</ManualSetFlag>"), std::wstring::npos);
    boxes.Expect({{L"Power Consumption Settings", {}}});
    Click(kEdit);
    Do({{kInbuilt}});
    Click(kSave);
    const std::wstring sent = LastRequest(L"ApplyPowerConsumptionData");
    EXPECT_TRUE(sent.find(L"Flag>Yes<") != sent.npos && sent.find(L"<MonitorSize/>") != sent.npos) << sent;
}

} // namespace voltaro
