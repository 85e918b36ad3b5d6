#include "scheduler/job_controls.h"

#include "base/local_clock.h"
#include "ui/combo_box.h"

#include <algorithm>
#include <vector>

namespace voltaro {
namespace {

LocalTime Picked(HWND window, int id)
{
    SYSTEMTIME picked{};
    DateTime_GetSystemtime(ControlOf(window, id), &picked);
    return LocalTimeOf(picked);
}

bool Pick(HWND window, int id, const LocalTime& time)
{
    const SYSTEMTIME shown = SystemTimeOf(time);
    return DateTime_SetSystemtime(ControlOf(window, id), GDT_VALID, &shown) != FALSE;
}

} // namespace

void ShowTime(HWND window, int id, std::wstring_view text)
{
    const std::chrono::hh_mm_ss time(ParseTime(text).value_or(std::chrono::seconds(0)));
    LocalTime shown = LocalNow(); // a picker of times wants a date too
    shown.hour = static_cast<int>(time.hours().count());
    shown.minute = static_cast<int>(time.minutes().count());
    shown.second = static_cast<int>(time.seconds().count());
    Pick(window, id, shown);
}

std::wstring TimeShown(HWND window, int id)
{
    const LocalTime time = Picked(window, id);
    return TimeText(
        std::chrono::hours(time.hour) + std::chrono::minutes(time.minute) + std::chrono::seconds(time.second));
}

void ShowDate(HWND window, int id, std::wstring_view text)
{
    LocalTime shown = LocalNow();
    if (const auto date = ParseDate(text)) {
        shown.year = static_cast<int>(date->year());
        shown.month = static_cast<int>(static_cast<unsigned>(date->month()));
        shown.day = static_cast<int>(static_cast<unsigned>(date->day()));
    }
    if (!Pick(window, id, shown))
        Pick(window, id, LocalNow()); // a date before the calendar that pickers know
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
