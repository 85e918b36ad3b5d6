#include "savings/profile_window.h"

#include "savings/profile_record.h"
#include "savings/saved_profile.h"
#include "savings/scripted_day.h"
#include "savings/shown_day.h"
#include "simulator/xml.h"
#include "support/program.h"
#include "ui/combo_box.h"
#include "ui/controls.h"
#include "ui/list_view.h"
#include "ui/navigation.h"
#include <gtest/gtest.h>

#include <algorithm>

namespace voltaro {
namespace {

// clang-format off
enum Id : int { kSaved = 101, kInbuilt, kBranded, kOthers, kNote, kType, kSize, kMonitorOn, kMonitorOff, kCpuMax,
    kCpuIdle, kCpuStandby, kCpuOff, kManual, kAuto, kEdit, kSave };
// clang-format on

class ProfileWindowTest : public testing::Test {
protected:
    void Open() { OpenProfileWindow(WindowOf(WindowId::Savings)); }
    void Click(int id) { m_program.Command(WindowId::Profile, id); }
    void ClickRadio(int id)
    {
        SetChecked(m_window, id, true); // as the user's click leaves it
        Click(id);
    }
    void Type(int id, const wchar_t* text) { m_program.Type(WindowId::Profile, id, text); }
    void Choose(int id, const wchar_t* entry) { m_program.Choose(WindowId::Profile, id, entry); }
    [[nodiscard]] std::wstring Text(int id) const { return TextOf(m_window, id); }
    [[nodiscard]] std::wstring Watts() const { return Text(kMonitorOn) + L" " + Text(kMonitorOff); }
    [[nodiscard]] bool IsOn(int id) const { return IsWindowEnabled(ControlOf(m_window, id)) != FALSE; }
    // The record of the last apply, without the line breaks between its elements.
    std::wstring Applied()
    {
        std::wstring text = m_program.LastRequest(L"ApplyPowerConsumptionData");
        std::erase_if(text, [](wchar_t unit) { return unit < L' '; });
        const std::size_t from = std::min(text.find(L"<details>"), text.size());
        return text.substr(from, text.find(L"</details>") - from);
    }

    LoadedProgram m_program;
    HWND m_window = WindowOf(WindowId::Profile);
};

TEST_F(ProfileWindowTest, OpensWithTheSavedProfileOrTheDefaultMonitorToLookAt)
{
    Open();
    EXPECT_EQ(m_program.TakeOperations(), Operations{L"GetCurrentPowerConsumptionData"});
    EXPECT_EQ(CellOf(ControlOf(m_window, kSaved), 4, 1), L"62.40 Watts");
    EXPECT_EQ(SelectedText(m_window, kSize) + L" " + Text(kCpuOff), L"17.00 0.85");
    for (const int id : {kInbuilt, kType, kMonitorOn, kCpuMax, kSave})
        EXPECT_FALSE(IsOn(id)) << id;
    Click(IDOK); // nothing to save
    Click(kEdit);
    for (const int id : {kInbuilt, kType, kMonitorOn, kCpuMax, kSave})
        EXPECT_TRUE(IsOn(id)) << id;
    Click(IDCANCEL);
    EXPECT_FALSE(IsWindowVisible(m_window));
    EXPECT_TRUE(m_program.TakeOperations().empty());

    m_program.Agent().SetFault(L"GetCurrentPowerConsumptionData", {FaultKind::NotWellFormed, {}});
    Open();
    EXPECT_EQ(Text(kCpuMax), L"62.40");
    EXPECT_FALSE(IsOn(kEdit)) << "the record may be out of date";
    Click(IDCANCEL);

    savedProfile = {};
    m_program.Agent().SetFault(L"GetCurrentPowerConsumptionData", {FaultKind::Status, {}});
    Open();
    EXPECT_EQ(SelectedText(m_window, kType) + L" " + SelectedText(m_window, kSize), L"LCD 17.00");
    EXPECT_EQ(Watts(), L"21.23 0.49");
    EXPECT_FALSE(IsOn(kEdit)) << "no record came that could be edited";
    m_program.Agent().SetFault(L"GetAutoPowerConsumptionData", {FaultKind::Status, {}});
    const BoxScript boxes{{L"Power Consumption Settings", L"Unable to read"}};
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
        Choose(kType, type);
        EXPECT_EQ(SendMessageW(ControlOf(m_window, kSize), CB_GETCOUNT, 0, 0), sizes) << type;
        Choose(kSize, size);
        EXPECT_EQ(Watts(), watts);
    }
    Choose(kSize, L"22.00");
    Choose(kType, L"CRT"); // has that size too
    EXPECT_EQ(Watts(), L"141.00 3.50");
    for (const int kind : {kInbuilt, kBranded}) {
        ClickRadio(kind);
        EXPECT_EQ(Watts(), L"0.00 0.00");
        EXPECT_FALSE(IsOn(kMonitorOn) || IsOn(kType));
        EXPECT_EQ(IsWindowVisible(ControlOf(m_window, kNote)) != FALSE, kind == kInbuilt);
    }
    ClickRadio(kOthers);
    EXPECT_EQ(Watts(), L"141.00 3.50");

    m_program.TakeOperations();
    BoxScript boxes{{L"Refresh", {}, Answer::No}};
    Click(kRefreshKey);
    EXPECT_TRUE(m_program.TakeOperations().empty());
    boxes.Expect({{L"Refresh", {}, Answer::Yes}});
    Click(kRefreshKey);
    EXPECT_EQ(SelectedText(m_window, kSize) + L" " + Text(kCpuOff), L"17.00 0.85") << "what the agent has";
    Click(kEdit);
    Click(kRefreshKey); // nothing was typed
    EXPECT_FALSE(IsOn(kSave));
}

TEST_F(ProfileWindowTest, AnUntouchedRecordGoesBackAsItCame)
{
    const struct {
        const wchar_t *type, *size, *on, *off, *watts, *wattsAsOther;
    } kRows[] = {{L"inbuilt", L"15.60", L"5", L"x", L"0.00 0.00", L"21.23 0.49"},
        {L"BRANDED", L"9", L"-", L"7.5", L"0.00 0.00", L"21.23 0.49"},
        {L"lcd", L"17.30", L"5", L"0.400", L"5 0.400", L"8.40 0.73"}, // a size that no row has
        {L"OLED", L"17.00", L"5.00", L"0.40", L"5.00 0.40", L"21.23 0.49"}};
    m_program.Agent().SetFault(L"ApplyPowerConsumptionData", {FaultKind::Status, L"Success"});
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.type);
        PowerConsumptionData record = RoundProfile();
        record.monitorType = row.type;
        record.monitorSize = row.size;
        record.monitorOnPower = row.on;
        record.monitorOffPower = row.off;
        record.cpuIdlePower = L"thirty"; // what was not touched is not checked
        m_program.Agent().ScriptReply(L"GetCurrentPowerConsumptionData",
            simulator::ReplyText({L"response", {}, {ElementOf(L"details", record)}}));
        Open();
        Click(kEdit);
        EXPECT_EQ(Watts(), row.watts);
        const BoxScript boxes{{L"Power Consumption Settings", {}}};
        Click(kSave);
        EXPECT_TRUE(Applied().starts_with(std::wstring(L"<details><ManualSetFlag/><MonitorType>") + row.type
            + L"</MonitorType><MonitorSize>" + row.size + L"</MonitorSize><MonitorONPower>" + row.on
            + L"</MonitorONPower><MonitorOFFPower>" + row.off
            + L"</MonitorOFFPower><CPUMaxPower>60.00</CPUMaxPower><CPUIdlePower>thirty<"))
            << Applied();
        Click(kEdit);
        ClickRadio(kBranded);
        ClickRadio(kOthers);
        EXPECT_EQ(Watts(), row.wattsAsOther);
        Click(IDCANCEL);
    }
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
        Type(field, text);
        const BoxScript boxes{{L"Invalid Input", box}};
        Click(kSave);
        EXPECT_EQ(Text(field), L"");
        EXPECT_EQ(GetFocus(), ControlOf(m_window, field));
        Type(field, L"999.99");
    }
    EXPECT_EQ(m_program.TakeOperations(), Operations{L"GetCurrentPowerConsumptionData"}) << "nothing was sent";
}

TEST_F(ProfileWindowTest, SavesAManualEntryReckonsAnewThenSavesTheAutomatic)
{
    Open();
    shownDay = MakeShownDay({2024, 2, 29}, {{.poweredOn = 3600, .active = 3600}, {}, 0, 0}, savedProfile);
    Click(kManual);
    EXPECT_EQ(Watts(), L"21.20 0.65");
    Choose(kType, L"LED");
    Choose(kSize, L"24.00");
    Type(kCpuMax, L"100");
    Type(kCpuIdle, L"40.5");
    const BoxScript boxes{{L"Power Consumption Settings", {}}, {L"Power Consumption Settings", {}}};
    Click(kSave);
    EXPECT_EQ(Applied(),
        L"<details><ManualSetFlag>Yes</ManualSetFlag><MonitorType>LED</MonitorType><MonitorSize>24.00</MonitorSize>"
        L"<MonitorONPower>18.9</MonitorONPower><MonitorOFFPower>0.09</MonitorOFFPower>"
        L"<CPUMaxPower>100.00</CPUMaxPower><CPUIdlePower>40.50</CPUIdlePower>"
        L"<CPUStandbyPower>2.50</CPUStandbyPower><CPUOffPower>1.00</CPUOffPower><System_Type>Notebook</System_Type>"
        L"<Processor_Type>Quad core, 2.40 GHz</Processor_Type>"
        L"<System_Manufacturer>Harrowgate Computers</System_Manufacturer><System_Model>Fieldbook 14 G3</System_Model>");
    EXPECT_EQ(m_program.TakeOperations(),
        (Operations{L"GetCurrentPowerConsumptionData", L"GetManualPowerConsumptionData", L"GetActivationstatus",
            L"ApplyPowerConsumptionData", L"GetCurrentPowerConsumptionData"}));
    EXPECT_EQ(CellOf(ControlOf(m_window, kSaved), 4, 1), L"100.00 Watts");
    EXPECT_FALSE(IsOn(kSave) || IsOn(kCpuMax));
    // An hour at 0.05 x 118.9 + 0.15 x 89.15 + 0.8 x 59.4 W.
    EXPECT_EQ(EnergyText(shownDay->figures.nowIs), L"0.067 kWh");

    Click(kAuto);
    EXPECT_EQ(Text(kCpuMax), L"62.40");
    Click(IDOK);
    EXPECT_TRUE(Applied().starts_with(L"<details><ManualSetFlag>No</ManualSetFlag><MonitorType>LCD</MonitorType>"));
}

TEST_F(ProfileWindowTest, RefusalsOfTheAgentLeaveTheFieldsAsTheyAre)
{
    constexpr const wchar_t* kCaption = L"Power Consumption Settings";
    Open();
    m_program.TakeOperations();
    const Change change = {.operation = L"ApplyPowerConsumptionData",
        .question = nullptr,
        .failed = {L"Error", L"Unable to Set"},
        .readAfterSuccess = {L"GetCurrentPowerConsumptionData"},
        .done = {kCaption, {}},
        .unlicensed = L"Unable to Set"};
    m_program.ExpectAnswers(change, [&] {
        if (!IsOn(kSave))
            Click(kEdit);
        ClickRadio(kBranded);
        Click(kSave);
        EXPECT_TRUE(!IsOn(kSave) || IsChecked(m_window, kBranded));
    });
}

} // namespace
} // namespace voltaro
