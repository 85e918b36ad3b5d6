#include "simulator/events.h"

#include "base/text.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace voltaro::simulator {
namespace {

constexpr DateTime kNow{2026, 11, 21, 43200};

// The time of a time line, which is expected to be of that date; empty for a duration.
std::wstring TimeOf(const std::wstring& line, const DateTime& date)
{
    if (line.starts_with(L"Duratn"))
        return {};
    EXPECT_EQ(line.substr(6, 14), Format(L" # %04d/%02d/%02d ", date.year, date.month, date.day));
    EXPECT_TRUE(line.size() == 28 && line[22] == L':' && line[25] == L':') << line;
    return line.substr(20);
}

TEST(AgentEventsTest, EveryDayIsWellFormed)
{
    for (int number = 0; number < 12 * 28; ++number) {
        const DateTime date{2025, number / 28 + 1, number % 28 + 1, 0};
        const std::vector<std::wstring> lines = EventsOf(date, kNow);
        ASSERT_EQ(lines, EventsOf(date, kNow));
        ASSERT_TRUE(lines.size() >= 12 && lines.size() <= 60);
        EXPECT_EQ(lines[lines.size() - 2].substr(0, 9) + lines.back().substr(0, 9), L"Pwrcon # Pwrsav # ");
        std::wstring last, open; // the code of the state that has begun
        for (std::size_t i = 0; i + 2 < lines.size(); ++i) {
            const std::wstring code = lines[i].substr(0, 6);
            EXPECT_TRUE(code != L"Istime" || open.empty()) << lines[i];
            EXPECT_TRUE(code != L"Ietime" || open == L"Istime") << lines[i];
            open = code == L"Istime" ? code : code == L"Ietime" ? L"" : open;
            const std::wstring time = TimeOf(lines[i], date);
            EXPECT_TRUE(time.empty() || (time >= last && time < L"24")) << lines[i];
            last = std::max(last, time);
        }
        EXPECT_EQ(open, L"");
    }
}

TEST(AgentEventsTest, TodayEndsNowAndTomorrowIsEmpty)
{
    const std::vector<std::wstring> today = EventsOf(kNow, kNow);
    const std::vector<std::wstring> whole = EventsOf(kNow, {2026, 11, 22, 0});
    ASSERT_GT(today.size(), 2u);
    ASSERT_LT(today.size(), whole.size());
    for (std::size_t i = 0; i + 2 < today.size(); ++i) {
        EXPECT_EQ(today[i], whole[i]);
        EXPECT_LE(TimeOf(today[i], kNow), L"12:00:00");
    }
    EXPECT_TRUE(EventsOf({2026, 11, 22, 0}, kNow).empty());
}

TEST(AgentEventsTest, ReadsDays)
{
    const std::optional<DateTime> leapDay = ParseMonthDayYear(L"02292024");
    ASSERT_TRUE(leapDay);
    EXPECT_EQ(DayOf(*leapDay).time_since_epoch().count(), 19782);
    for (const wchar_t* wrong : {L"02292025", L"13012025", L"00012025", L"1012025", L"010120255", L"0101202x", L""})
        EXPECT_FALSE(ParseMonthDayYear(wrong)) << wrong;
}

} // namespace
} // namespace voltaro::simulator
