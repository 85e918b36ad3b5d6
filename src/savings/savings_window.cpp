// The savings report: the day is picked on the right, its figures and its graph stand on three pages. Opened from the
// main menu.
#include "savings/savings_window.h"

#include "base/error_log.h"
#include "base/local_clock.h"
#include "base/text.h"
#include "console/activation.h"
#include "console/agent.h"
#include "console/agent_state.h"
#include "console/window_tables.h"
#include "console/windows.h"
#include "savings/day_texts.h"
#include "savings/graph_view.h"
#include "savings/profile_window.h"
#include "savings/report_pages.h"
#include "savings/saved_profile.h"
#include "savings/shown_day.h"
#include "ui/boxes.h"
#include "ui/tabs.h"

#include <optional>
#include <string>

namespace voltaro {
namespace {

enum Id : int { kPicker = 101, kTab, kSettings, kHelp };

// clang-format off
constexpr Control kControls[] = {
    {Kind::Label,      kNoId,     L"Select Date :",                684,  60, 105,  18},
    {Kind::DatePicker, kPicker,   L"",                             684,  80, 105,  24},
    {Kind::Tab,        kTab,      L"",                               2,   1, 676, 523, kPlain, L"Power Savings Report"},
    {Kind::Push,       kSettings, L"&Power Consumption Settings",  684, 424, 105,  64, kWrapped},
    {Kind::Push,       kHelp,     L"&Help",                        684, 498, 105,  25},
};
// clang-format on
static_assert(IdsAreUnique(kControls) && FitInside(kControls, 794, 541));

constexpr const wchar_t* kTabCaptions[] = {L"Consumption and CO2", L"Estimates and Idle Pattern", L"Event Graph"};

constexpr const wchar_t* kRefusalCaption = L"Power Savings Report";
constexpr Box kNoData = {L"No data", L"Power savings data not available for date: %ls", BoxIcon::Information};
constexpr Box kDataError = {L"Data Error", L"May be error in Power savings data logged for date: %ls ."};

// A day typed or stepped to counts when it has rested for a moment, one chosen in the calendar when that closes. What
// reports the same choice twice starts the timer anew, so that the agent is asked once.
constexpr UINT_PTR kChosenTimer = 1;
constexpr UINT kRestMs = 500;

bool dayWaits = false; // the timer runs

LocalTime PickedDay(HWND window)
{
    SYSTEMTIME time{};
    DateTime_GetSystemtime(ControlOf(window, kPicker), &time);
    return LocalTimeOf(time);
}

// The picker takes no other day while the agent is asked for one.
class PickerOff {
public:
    explicit PickerOff(HWND window)
        : m_window(window)
        , m_focused(GetFocus() == ControlOf(window, kPicker))
    {
        Enable(window, kPicker, false);
    }
    ~PickerOff()
    {
        Enable(m_window, kPicker, true);
        if (m_focused && GetActiveWindow() == m_window)
            FocusOn(m_window, kPicker);
    }
    PickerOff(const PickerOff&) = delete;
    PickerOff& operator=(const PickerOff&) = delete;

private:
    HWND m_window;
    bool m_focused;
};

void RefreshPages()
{
    RefreshReportPages();
    RefreshGraphPage();
}

void TellOfDay(HWND window, const Box& box, const LocalTime& day)
{
    ShowMessage(window, box, WithName(box.text, PickerDate(day)));
}

// The profile is read with all else when the console connects; where that failed it is tried again for each day.
bool EnsureProfile()
{
    return savedProfile != PowerConsumptionData{} || ReadOrLose(ReadSavedProfile) != ReadResult::Lost;
}

// Asks the agent about the day. Nothing when the product is not active or the agent is lost; both are told.
std::optional<DayAnswer> AskForDay(HWND window, const LocalTime& day, DayReport& report)
{
    const PickerOff off(window);
    if (!CheckLicense(window, kRefusalCaption) || !EnsureProfile())
        return std::nullopt;
    std::optional<DayAnswer> answer;
    std::wstring status;
    {
        Reply reply = SendOrLose(WithText(Operation::GetEvents, L"fordate", RequestDate(day)));
        if (!reply.Answered())
            return std::nullopt;
        answer = ReadDayAnswer(reply.Root(), reply.Text(), LocalNow(), report);
        status = reply.Status();
    }
    return IsLicenseRefusal(window, kRefusalCaption, status) ? std::nullopt : answer;
}

void StopWaiting(HWND window)
{
    dayWaits = false;
    KillTimer(window, kChosenTimer);
}

void OnShowPickedDay(HWND window)
{
    StopWaiting(window);
    const LocalTime day = PickedDay(window);
    if (!IsWindowEnabled(ControlOf(window, kPicker)) || SecondsOf(day) > SecondsOf(LocalNow()))
        return;
    chosenDay = day;
    DayReport report;
    const std::optional<DayAnswer> answer = AskForDay(window, day, report);
    if (answer == DayAnswer::Report) {
        shownDay = MakeShownDay(day, report, savedProfile);
        shownDay->soFar = RequestDate(day) == RequestDate(LocalNow());
    } else if (answer)
        shownDay.reset();
    RefreshPages();
    if (answer == DayAnswer::NoData)
        TellOfDay(window, kNoData, day);
    else if (answer == DayAnswer::Damaged)
        TellOfDay(window, kDataError, day);
}

bool IsCalendarOpen(HWND window)
{
    const HWND calendar = DateTime_GetMonthCal(ControlOf(window, kPicker));
    return calendar && IsWindowVisible(calendar);
}

// Not while the picker handles its own message: a message box opened there would leave its calendar open.
void ShowPickedDaySoon(HWND window, UINT milliseconds)
{
    dayWaits = true;
    SetTimer(window, kChosenTimer, milliseconds, nullptr);
}

// The picker reports no change when its calendar is closed by a click on the day that it shows already; nor does its
// closing tell whether a day was chosen or it was left by Esc. The calendar's own notification to its parent does: that
// is the picker, or a window which opens with the calendar and holds it.
LRESULT CALLBACK CalendarSubclassProc(HWND parent, UINT message, WPARAM w, LPARAM l, UINT_PTR id, DWORD_PTR window)
{
    if (message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(l)->code == MCN_SELECT)
        ShowPickedDaySoon(reinterpret_cast<HWND>(window), kRestMs);
    else if (message == WM_NCDESTROY)
        RemoveWindowSubclass(parent, &CalendarSubclassProc, id);
    return DefSubclassProc(parent, message, w, l);
}

void WatchCalendarIn(HWND window, HWND parent)
{
    if (parent != nullptr)
        Checked(SetWindowSubclass(parent, &CalendarSubclassProc, 0, reinterpret_cast<DWORD_PTR>(window)),
            "SetWindowSubclass");
}

void OnTimer(HWND window)
{
    if (!IsCalendarOpen(window))
        OnShowPickedDay(window);
}

void OnSettings(HWND window)
{
    OpenProfileWindow(window);
}

void OnCancel(HWND window)
{
    StopWaiting(window);
    ShowWindow(window, SW_HIDE);
}

void OnDatePicked(HWND window)
{
    ShowPickedDaySoon(window, kRestMs);
}

void OnCalendarOpened(HWND window)
{
    WatchCalendarIn(window, GetParent(DateTime_GetMonthCal(ControlOf(window, kPicker))));
}

void OnCalendarClosed(HWND window)
{
    if (dayWaits)
        ShowPickedDaySoon(window, USER_TIMER_MINIMUM);
}

constexpr Command kCommands[] = {
    {kSettings, OnSettings},
    {kHelp, ShowHelp},
    {kPicker, OnDatePicked, DTN_DATETIMECHANGE},
    {kPicker, OnCalendarOpened, DTN_DROPDOWN},
    {kPicker, OnCalendarClosed, DTN_CLOSEUP},
    {IDOK, OnShowPickedDay},
    {kRefreshKey, OnShowPickedDay},
    {IDCANCEL, OnCancel},
};

void OnCreate(HWND window)
{
    DateTime_SetFormat(ControlOf(window, kPicker), L"d'/'MM'/'yyyy");
    WatchCalendarIn(window, ControlOf(window, kPicker));
    StopWaiting(window);
    chosenDay.reset();
    shownDay.reset();
}

// Up to the end of today: days in the future have no events.
void RenewRange(HWND window)
{
    SYSTEMTIME range[2]{};
    range[1] = SystemTimeOf(LocalNow());
    range[1].wHour = 23;
    range[1].wMinute = 59;
    range[1].wSecond = 59;
    DateTime_SetRange(ControlOf(window, kPicker), GDTR_MAX, range);
}

std::optional<LRESULT> OnMessage(HWND window, UINT message, WPARAM w, LPARAM)
{
    if (message == WM_ACTIVATE && LOWORD(w) != WA_INACTIVE)
        RenewRange(window); // a window left open over midnight
    if (message != WM_TIMER)
        return std::nullopt;
    OnTimer(window);
    return 0;
}

constexpr WindowTables kTables = {kControls, kCommands, L"powercalculations.htm", OnCreate, OnMessage};

void BindPages(HWND window)
{
    const HWND tab = ControlOf(window, kTab);
    if (TabCtrl_GetItemCount(tab) > 0)
        return;
    const TabPage pages[] = {
        {kTabCaptions[0], WindowOf(WindowId::SavingsTotals)},
        {kTabCaptions[1], WindowOf(WindowId::SavingsEstimates)},
        {kTabCaptions[2], WindowOf(WindowId::SavingsGraph)},
    };
    SetTabs(tab, pages);
}

void PickDay(HWND window, const LocalTime& day)
{
    const SYSTEMTIME time = SystemTimeOf(day);
    DateTime_SetSystemtime(ControlOf(window, kPicker), GDT_VALID, &time);
}

} // namespace

void OpenSavingsWindow(HWND)
{
    const HWND window = WindowOf(WindowId::Savings);
    BindPages(window);
    RenewRange(window);
    if (!IsWindowVisible(window)) {
        PickDay(window, chosenDay.value_or(LocalNow()));
        RecomputeSavings();
        FocusOn(window, kPicker);
    }
    ShowWindow(window, SW_SHOWNORMAL);
    SetForegroundWindow(window);
}

void RecomputeSavings()
{
    if (shownDay) {
        const bool soFar = shownDay->soFar;
        shownDay = MakeShownDay(shownDay->day, shownDay->report, savedProfile);
        shownDay->soFar = soFar;
    }
    RefreshPages();
}

LRESULT CALLBACK SavingsWindowProc(HWND window, UINT message, WPARAM w, LPARAM l)
{
    return AnswerFromTables(kTables, window, message, w, l);
}

} // namespace voltaro
