#include "scheduler/job_controls.h"

#include <algorithm>
#include <vector>

namespace voltaro {
namespace {

SYSTEMTIME Now()
{
    SYSTEMTIME now;
    GetLocalTime(&now);
    return now;
}

SYSTEMTIME Picked(HWND window, int id)
{
    SYSTEMTIME picked{};
    DateTime_GetSystemtime(ControlOf(window, id), &picked);
    return picked;
}

bool Pick(HWND window, int id, SYSTEMTIME time)
{
    return DateTime_SetSystemtime(ControlOf(window, id), GDT_VALID, &time) != FALSE;
}

CalendarDate DateOf(const SYSTEMTIME& time)
{
    return {time.wYear, time.wMonth, time.wDay};
}

TimeOfDay TimeOf(const SYSTEMTIME& time)
{
    return {time.wHour, time.wMinute, time.wSecond};
}

} // namespace

CalendarDate Today()
{
    return DateOf(Now());
}

TimeOfDay TimeNow()
{
    return TimeOf(Now());
}

void ShowTime(HWND window, int id, std::wstring_view text)
{
    const TimeOfDay time = ParseTime(text).value_or(TimeOfDay{});
    SYSTEMTIME shown = Now(); // a picker of times wants a date too
    shown.wHour = static_cast<WORD>(time.hour);
    shown.wMinute = static_cast<WORD>(time.minute);
    shown.wSecond = static_cast<WORD>(time.second);
    Pick(window, id, shown);
}

std::wstring TimeShown(HWND window, int id)
{
    return TimeText(TimeOf(Picked(window, id)));
}

void ShowDate(HWND window, int id, std::wstring_view text)
{
    const CalendarDate date = ParseDate(text).value_or(Today());
    SYSTEMTIME shown = Now();
    shown.wYear = static_cast<WORD>(date.year);
    shown.wMonth = static_cast<WORD>(date.month);
    shown.wDay = static_cast<WORD>(date.day);
    if (!Pick(window, id, shown))
        Pick(window, id, Now()); // a date before the calendar that pickers know
}

std::wstring DateShown(HWND window, int id)
{
    return DateText(DateOf(Picked(window, id)));
}

void ShowAmong(HWND window, int id, std::span<const std::wstring> entries, std::wstring_view text)
{
    std::vector<std::wstring> shown(entries.begin(), entries.end());
    if (!text.empty() && std::ranges::find(shown, text) == shown.end())
        shown.emplace_back(text);
    FillCombo(window, id, shown);
    if (text.empty())
        SelectIndex(window, id, 0);
    else
        SelectExact(window, id, text);
}

void ShowNumber(HWND window, int id, Choices choices, std::int32_t number)
{
    FillChoices(window, id, choices, ShownChoice(choices, number));
}

} // namespace voltaro
