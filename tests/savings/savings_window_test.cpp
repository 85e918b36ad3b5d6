#include "savings/savings_window.h"

#include "savings/graph_view.h"
#include "support/pixels.h"
#include "support/program.h"

namespace voltaro {

// By hand: off until 08:00; idle from 10:00 to 12:00 (dim 30 min, monitor off 60 min); shut down 20:00 to 22:00.
constexpr wchar_t kScriptedDay[]
    = L"<vltp><response><details><e>QUptme # 2024/02/29 08:00:00</e><e>Istime # 2024/02/29 10:00:00</e>"
      L"<e>Dstime # 2024/02/29 10:10:00</e><e>Detime # 2024/02/29 10:40:00</e><e>Mstime # 2024/02/29 10:40:00</e>"
      L"<e>Metime # 2024/02/29 11:40:00</e><e>Ietime # 2024/02/29 12:00:00</e><e>Sdtime # 2024/02/29 20:00:00</e>"
      L"<e>SUptme # 2024/02/29 22:00:00</e></details></response></vltp>";

// Round powers: 53.75 W with the usual load, 50 W idle.
const PowerConsumptionData kRoundProfile
    = {{}, L"LCD", {}, L"20.00", L"1.00", L"60.00", L"30.00", L"2.00", L"1.00", {}, {}, {}, {}};

// The size of the pages, and how many pixels of one have that colour.
constexpr int kWidth = 670, kHeight = 497;
static int InkOf(WindowId page, COLORREF colour)
{
    const auto print = [](HDC dc, void* window) {
        SendMessageW(static_cast<HWND>(window), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT);
    };
    return Pixels(RenderBitmap(kWidth, kHeight, print, WindowOf(page)).Get()).CountIn(colour, {0, 0, kWidth, kHeight});
}

constexpr int kPicker = 101;
const Operations kOneDay = {L"GetActivationstatus", L"GetVLTEvents"};

// The five lists, and what they say of the scripted day ("|" for a line break).
// clang-format off
const struct { WindowId page; int list; std::wstring_view text; } kLists[] = {
    {WindowId::SavingsTotals, 101, L"Description\tValue|System's Total Power consumption\t0.745 kWh|System was IDLE for :\t2 Hrs : 0 Mins|"
        L"System (without Voltaro) would have been powered ON for :\t16 Hrs : 0 Mins|"
        L"System was powered OFF by Voltaro for :\t10 Hrs : 0 Mins|System was powered ON for :\t14 Hrs : 0 Mins|"
        L"Voltaro saved power consumption for :\t3 Hrs : 30 Mins|"
        L"System's (with Voltaro) actual power consumption is :\t0.745 kWh|"},
    {WindowId::SavingsTotals, 102, L"Description\tValue|Saved by Voltaro\t0.115 kWh|Saved by Voltaro (in percentage)\t13.372 %|CO2 emissions saved\t80.50 Grams|"},
    {WindowId::SavingsEstimates, 101, L"Description\tValue\tPower Consumption|Without Voltaro (would have been)\t16 Hrs : 0 Mins\t0.860 kWh|"
        L"Due to Voltaro (now is)\t14 Hrs : 0 Mins\t0.745 kWh|Saved by Voltaro\t3 Hrs : 30 Mins\t0.115 kWh|"
        L"Saved by Voltaro (in percentage)\t13.372 %\t|CO2 emissions saved\t80.50 Grams\t|"},
    {WindowId::SavingsEstimates, 102, L"Idle Duration Category\tOccurrences\tTotal Duration\tPower Consumption|"
        L"0 - 5 mins\t0\t0 Hrs : 0 Mins\t0.000 kWh|5 mins - 10 mins\t0\t0 Hrs : 0 Mins\t0.000 kWh|"
        L"10 mins - 30 mins\t0\t0 Hrs : 0 Mins\t0.000 kWh|30 mins - 1 hr\t0\t0 Hrs : 0 Mins\t0.000 kWh|"
        L"1 hr - 2 hrs\t1\t2 Hrs : 0 Mins\t0.100 kWh|2 hrs - 4 hrs\t0\t0 Hrs : 0 Mins\t0.000 kWh|"
        L"> 4 hrs\t0\t0 Hrs : 0 Mins\t0.000 kWh|Total Idle hrs\t1\t2 Hrs : 0 Mins\t0.100 kWh|"},
    {WindowId::SavingsGraph, 101, L"System Duration\tCumulative Value|IDLE\t2 Hrs : 0 Mins|ACTIVE\t12 Hrs : 0 Mins|"
        L"IDLE without Power Savings\t0 Hrs : 30 Mins|DIM (Upon IDLE)\t0 Hrs : 30 Mins|"
        L"MONITOR OFF (Upon IDLE)\t1 Hr  : 0 Mins|STANDBY (Upon IDLE)\t0 Hrs : 0 Mins|"
        L"STANDBY (Done Manually)\t0 Hrs : 0 Mins|HIBERNATE (Upon IDLE)\t0 Hrs : 0 Mins|"
        L"SHUTDOWN (Upon IDLE)\t2 Hrs : 0 Mins|ON\t14 Hrs : 0 Mins|OFF  (Done by Voltaro)\t10 Hrs : 0 Mins|"},
};
// clang-format on

struct SavingsWindowTest : testing::Test, LoadedProgram {
    SavingsWindowTest()
    {
        savedProfile = kRoundProfile;
        Agent().ScriptReply(L"GetVLTEvents", kScriptedDay);
        MainCommand(kSavingsReport);
    }
    [[nodiscard]] HWND Picker() const { return ControlOf(WindowOf(WindowId::Savings), kPicker); }
    void Choose(const wchar_t* day) { Do({{kPicker, day}, {IDOK}}); }
    // What the agent is asked after the picker's notification, once the day has rested.
    Operations AskedAfter(UINT code, unsigned milliseconds)
    {
        const NMHDR header{Picker(), kPicker, code};
        SendMessageW(WindowOf(WindowId::Savings), WM_NOTIFY, kPicker, reinterpret_cast<LPARAM>(&header));
        static_cast<void>(WaitServingWindows(nullptr, milliseconds));
        Pump();
        return TakeOperations();
    }
    void ExpectLists(bool shown)
    {
        for (const auto& row : kLists) {
            const HWND list = ControlOf(WindowOf(row.page), row.list);
            EXPECT_EQ(IsShown(list), shown);
            const std::wstring text = Replaced(ListText(list, false), L"\r\n", L"|");
            EXPECT_TRUE(!shown || text == row.text) << text;
            const bool emission = row.text.ends_with(L"Grams|") || row.text.ends_with(L"Grams\t|");
            EXPECT_TRUE(!shown || !emission || TipOver(list, RowCount(list) - 1) == L"Saved power (kWh) x 700 Grams");
        }
    }
};

TEST_F(SavingsWindowTest, ADayCountsOnceItRestsAndNotFromTheFuture)
{
    constexpr unsigned kLongEnough = 650; // a day rests for 500 ms
    Do({{kPicker, L"2024-02-28"}});
    EXPECT_TRUE(AskedAfter(DTN_DATETIMECHANGE, 0).empty());
    Do({{kPicker, L"2024-02-29"}});
    EXPECT_EQ(AskedAfter(DTN_DATETIMECHANGE, kLongEnough), kOneDay);
    EXPECT_TRUE(AskedAfter(DTN_CLOSEUP, kLongEnough).empty()) << "left without a choice";
    NMSELCHANGE selected{};
    selected.nmhdr.code = MCN_SELECT;
    SendMessageW(Picker(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&selected));
    EXPECT_EQ(AskedAfter(DTN_CLOSEUP, kLongEnough), kOneDay) << "the same day chosen again";
    EXPECT_TRUE(AskedAfter(DTN_DATETIMECHANGE, 0).empty());
    Command(WindowId::Savings, IDCANCEL);
    EXPECT_TRUE(AskedAfter(0, kLongEnough).empty()) << "closed meanwhile";
    SYSTEMTIME now;
    GetLocalTime(&now);
    SYSTEMTIME range[2]{now, {2020, 1, 0, 1, 0, 0, 0, 0}}; // as the window was opened long ago
    DateTime_SetRange(Picker(), GDTR_MAX, range);
    SendMessageW(WindowOf(WindowId::Savings), WM_ACTIVATE, WA_CLICKACTIVE, 0);
    DateTime_GetRange(Picker(), range);
    EXPECT_TRUE(range[1].wYear == now.wYear && range[1].wDay == now.wDay);
    Choose(Format(L"%d-01-01", now.wYear + 1).c_str());
    EXPECT_EQ(LastRequest(L"GetVLTEvents").find(L"0101"), std::wstring::npos) << "no day in the future";
}

TEST_F(SavingsWindowTest, TheGraphHasTooltipsAndIsCopied)
{
    const HWND page = WindowOf(WindowId::SavingsGraph);
    ClickTab(FindWindowExW(WindowOf(WindowId::Savings), nullptr, WC_TABCONTROLW, nullptr), 2);
    Choose(L"2024-02-29");
    EXPECT_EQ(AreaTipAt(page, {209, 439}), L"SHUTDOWN (Upon IDLE)\n2 Hrs : 0 Mins\n8.3 % of the day");
    EXPECT_EQ(AreaTipAt(page, {105, 199}), L"");
    SendMessageW(page, WM_RBUTTONUP, 0, MAKELPARAM(100, 100));
    SendMessageW(page, WM_TIMER, 1, 0); // the note that tells of the copy goes
    EXPECT_FALSE(KillTimer(page, 1)) << "for good";
    ASSERT_TRUE(OpenClipboard(nullptr));
    const Pixels copied(static_cast<HBITMAP>(GetClipboardData(CF_BITMAP)));
    CloseClipboard();
    ASSERT_TRUE(copied.Width() == kWidth && copied.Height() == kHeight);
    const COLORREF kGrid = RGB(196, 196, 196), kIdle = RGB(0, 96, 0), kActive = RGB(0, 42, 138),
                   plot = copied.At(140, 150);
    const std::tuple<int, int, COLORREF> kPixels[] = {{105, 440, kIdle}, {105, 439, kActive}, {105, 199, plot},
        {85, 300, kActive}, {84, 300, kGrid}, {124, 301, kActive}, {125, 301, plot}, {319, 20, kGrid}, {60, 19, plot},
        {60, 0, kGrid}, {49, 300, 0}, {50, 300, 0}, {51, 301, plot}, {319, 481, 0}};
    for (const auto& [x, y, colour] : kPixels)
        EXPECT_EQ(copied.At(x, y), colour) << x << ", " << y;
    EXPECT_EQ(copied.CountIn(RGB(128, 128, 0), {210, 200, 254, 201}), 44) << "solid";
    const int dashes = copied.CountIn(RGB(140, 227, 55), {126, 470, 171, 471});
    EXPECT_TRUE(dashes > 15 && dashes < 45) << dashes;
    EXPECT_GT(copied.CountIn(RGB(10, 10, 10), {0, 100, 29, 320}), 50) << "the caption stands upright";
    EXPECT_GT(copied.CountIn(RGB(0, 0, 0), {545, 85, 650, 270}), 100) << "texts in the second column of the list";
    UpdateWindow(page);
    shownDay = MakeShownDay({2024, 2, 29}, {{.active = 43200}, {}, 0, 0}, kRoundProfile);
    RefreshGraphPage();
    UpdateWindow(page);
    EXPECT_EQ(GetPixel(WindowDc(page).Get(), 105, 460), RGB(0, 42, 138)) << "another day";
    EXPECT_EQ(AreaTipAt(page, {209, 439}), L"");
}

TEST_F(SavingsWindowTest, AProfileThatIsMissingIsReadWithTheDay)
{
    const Operations kBoth = {L"GetActivationstatus", L"GetCurrentPowerConsumptionData", L"GetVLTEvents"};
    for (const bool readable : {false, true}) {
        savedProfile = {};
        if (!readable)
            Agent().SetFault(L"GetCurrentPowerConsumptionData", {FaultKind::NotWellFormed, {}});
        Choose(L"2024-02-29");
        EXPECT_TRUE(TakeOperations() == kBoth && shownDay->profileKnown == readable);
        EXPECT_EQ(shownDay->profile.cpuMax > 0, readable);
        EXPECT_EQ(InkOf(WindowId::SavingsTotals, RGB(192, 0, 0)) > 50, !readable) << "the warning";
        shownDay->soFar = readable;
        RecomputeSavings();
        EXPECT_TRUE(GetUpdateRect(WindowOf(WindowId::SavingsTotals), nullptr, FALSE) && shownDay->soFar == readable);
        Agent().ClearFaults();
    }
}

TEST_F(SavingsWindowTest, AChosenDayFillsThePagesAndAFailureEmptiesThem)
{
    EXPECT_TRUE(TakeOperations().empty());
    ExpectLists(false);
    EXPECT_EQ(AreaTipAt(WindowOf(WindowId::SavingsGraph), {209, 439}), L"");
    for (const WindowId page : {WindowId::SavingsTotals, WindowId::SavingsEstimates, WindowId::SavingsGraph}) {
        EXPECT_GT(InkOf(page, RGB(83, 83, 83)), 150) << "what to do";
        chosenDay = LocalTime{2024, 3, 5}; // of which the agent has nothing
        EXPECT_EQ(InkOf(page, RGB(83, 83, 83)), 0);
        chosenDay.reset();
    }
    // clang-format off
    const struct { const wchar_t* operation; simulator::Fault fault; ExpectedBox box; bool listsStay; } kRows[] = {
        {L"GetVLTEvents", {FaultKind::Status, L"Failure"}, {L"No data", L"Power savings data not available for date: 5/03/2024"}, false},
        {L"GetVLTEvents", {FaultKind::NotWellFormed, {}}, {L"Data Error", L"May be error in Power savings data logged for date: 5/03/2024 ."}, false},
        {L"GetVLTEvents", {FaultKind::Status, L"Not Activated"}, {L"Power Savings Report", L"is not activated"}, true},
        {L"GetActivationstatus", {FaultKind::Status, L"License Expired"}, {L"Power Savings Report", L"has expired"}, true},
        {L"GetVLTEvents", {FaultKind::CloseAtOnce, {}}, {L"Connection Issue", L""}, true},
    };
    // clang-format on
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.box.caption);
        Choose(L"2024-02-29");
        EXPECT_NE(LastRequest(L"GetVLTEvents").find(L"<fordate>02292024</fordate>"), std::wstring::npos);
        EXPECT_EQ(TakeOperations(), kOneDay);
        ExpectLists(true);
        Agent().ClearScripts();
        Agent().SetFault(row.operation, row.fault);
        boxes.Expect({row.box});
        Choose(L"2024-03-05");
        EXPECT_EQ(LastRequest(L"GetVLTEvents").empty(), row.operation[3] == L'A') << "not activated";
        TakeOperations();
        Command(WindowId::Savings, IDCANCEL);
        const SYSTEMTIME other{2024, 1, 0, 1, 0, 0, 0, 0};
        DateTime_SetSystemtime(Picker(), GDT_VALID, &other);
        OpenSavingsWindow(nullptr); // as it was, and asks nothing
        SYSTEMTIME time{};
        DateTime_GetSystemtime(Picker(), &time);
        EXPECT_TRUE(TakeOperations().empty() && IsEnabled(Picker()) && time.wMonth == 3 && time.wDay == 5);
        ExpectLists(row.listsStay);
        Agent().ClearFaults();
        Agent().ScriptReply(L"GetVLTEvents", kScriptedDay);
    }
}

} // namespace voltaro
