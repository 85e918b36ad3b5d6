#include "simulator/events.h"

#include "base/text.h"

#include <algorithm>
#include <cstdint>

namespace voltaro::simulator {
namespace {

constexpr int kMinute = 60;
constexpr int kHour = 3600;
constexpr std::size_t kMostLines = 52; // no further idle period begins after so many

// A part of an idle period. Standby with a planned duration writes that duration after each of its two stamps.
struct Stage {
    const wchar_t *start, *end;
    int leastMinutes, mostMinutes;
    int watts; // drawn meanwhile
};
struct Idle {
    int weight; // how often, of 12
    Stage stages[3];
};

// clang-format off
constexpr int kWattsOn = 58, kWattsIdle = 50, kWattsOff = 1;
constexpr Stage kDim        {L"Dstime", L"Detime",  1,  6, 47};
constexpr Stage kMonitorOff {L"Mstime", L"Metime",  4, 20, 29};
constexpr Stage kStandby    {L"Sbtime", L"Setime", 15, 70,  3};
constexpr Idle kIdles[] = {
    {4, {}},
    {3, {kDim}},
    {3, {kDim, kMonitorOff}},
    {2, {kDim, kMonitorOff, kStandby}},
};
constexpr Idle kLunch = {0, {kDim, kMonitorOff, {L"Sbtime", L"Setime", 30, 50, 3}}};
// How the night ends and how the evening begins; a machine goes into the night and comes out of it in either way.
constexpr const wchar_t* kMorningCodes[] = {L"QUptme", L"SUptme", L"QAgtme", L"Hetime", L"QUptme", L"QHetme", L"SUptme"};
constexpr const wchar_t* kEveningCodes[] = {L"Qptime", L"Sdtime", L"Qptime", L"Hstime", L"Sdtime"};
// clang-format on

class Day {
public:
    explicit Day(const DateTime& date)
        : m_date(date)
        , m_seed(static_cast<std::uint64_t>(DayNumber(date)) * 0x9E3779B97F4A7C15ULL)
        , m_weekday(static_cast<int>(((DayNumber(date) + 4) % 7 + 7) % 7))
    {
    }

    std::vector<std::wstring> Lines(int until)
    {
        const bool weekend = m_weekday == 0 || m_weekday == 6;
        const int lunch = Between(12 * kHour, 13 * kHour);
        const int meeting = Between(0, 2) == 0 ? Between(14 * kHour, 15 * kHour) : 24 * kHour;
        const int evening = weekend ? Between(14 * kHour, 16 * kHour) : Between(17 * kHour, 19 * kHour);
        m_now = weekend ? Between(9 * kHour, 11 * kHour) : Between(7 * kHour + 30 * kMinute, 9 * kHour);
        m_until = until;
        Stamp(kMorningCodes[Between(0, static_cast<int>(std::size(kMorningCodes)) - 1)]);
        bool eaten = weekend;
        bool met = weekend;
        while (m_now < evening && m_lines.size() < kMostLines) {
            Pass(Between(8 * kMinute, 45 * kMinute), kWattsOn);
            if (!eaten && m_now > lunch) {
                eaten = true;
                RunIdle(kLunch);
            } else if (!met && m_now > meeting) {
                met = true;
                RunStage({L"Qstime", L"Qetime", 20, 60, 3}); // a standby that the user asked for
            } else if (m_now < evening) {
                RunIdle(PickIdle());
            }
        }
        Pass(Between(5 * kMinute, 20 * kMinute), kWattsOn);
        Stamp(kEveningCodes[Between(0, static_cast<int>(std::size(kEveningCodes)) - 1)]);
        Pass(24 * kHour - m_now, kWattsOff);
        AddPowerLines();
        return std::move(m_lines);
    }

private:
    int Between(int least, int most)
    {
        m_seed += 0x9E3779B97F4A7C15ULL;
        std::uint64_t mixed = (m_seed ^ (m_seed >> 30)) * 0xBF58476D1CE4E5B9ULL;
        mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBULL;
        return least + static_cast<int>((mixed ^ (mixed >> 31)) % static_cast<std::uint64_t>(most - least + 1));
    }

    bool Happened() const { return m_now <= m_until; }

    void Stamp(const wchar_t* code)
    {
        if (Happened())
            m_lines.push_back(Format(L"%ls # %04d/%02d/%02d %02d:%02d:%02d", code, m_date.year, m_date.month,
                m_date.day, m_now / kHour, m_now / kMinute % 60, m_now % 60));
    }

    void Pass(int seconds, int watts)
    {
        const std::int64_t counted = std::clamp(m_until - m_now, 0, seconds);
        m_consumed += counted * watts;
        m_without += counted * (watts == kWattsOff ? kWattsOff : kWattsOn);
        m_now += seconds;
    }

    void RunStage(const Stage& stage)
    {
        const int length = Between(stage.leastMinutes * kMinute, stage.mostMinutes * kMinute);
        // The planned duration is all of the standby, or less when the machine went on into hibernate.
        const bool planned = stage.start == kStandby.start;
        const int minutes = planned && Between(0, 3) == 0 ? 10 : length / kMinute;
        const std::wstring duration = Format(L"Duratn # %04d", minutes);
        Stamp(stage.start);
        if (planned && Happened())
            m_lines.push_back(duration);
        Pass(length, stage.watts);
        Stamp(stage.end);
        if (planned && Happened())
            m_lines.push_back(duration);
    }

    void RunIdle(const Idle& idle)
    {
        Stamp(L"Istime");
        Pass(Between(2 * kMinute, 5 * kMinute), kWattsIdle);
        for (const Stage& stage : idle.stages) {
            if (stage.start != nullptr)
                RunStage(stage);
        }
        Pass(Between(1, 4), kWattsIdle);
        Stamp(L"Ietime");
    }

    const Idle& PickIdle()
    {
        int rest = Between(0, 11);
        const Idle* idle = kIdles;
        while (rest >= idle->weight)
            rest -= (idle++)->weight;
        return *idle;
    }

    // Every fifth day has no figures of its own.
    void AddPowerLines()
    {
        const bool known = m_date.day % 5 != 0;
        const double consumed = known ? static_cast<double>(m_consumed) / 3.6e6 : 0;
        const double saved = known ? static_cast<double>(m_without - m_consumed) / 3.6e6 : 0;
        m_lines.push_back(Format(L"Pwrcon # %.3f", consumed));
        m_lines.push_back(Format(L"Pwrsav # %.3f", saved));
    }

    DateTime m_date;
    std::uint64_t m_seed;
    int m_weekday;                              // Sunday is 0
    int m_now = 0, m_until = 0;                 // seconds of the day
    std::int64_t m_consumed = 0, m_without = 0; // watt seconds
    std::vector<std::wstring> m_lines;
};

} // namespace

std::vector<std::wstring> EventsOf(const DateTime& date, const DateTime& now)
{
    const std::int64_t daysAgo = DayNumber(now) - DayNumber(date);
    if (daysAgo < 0)
        return {};
    return Day(date).Lines(daysAgo == 0 ? now.second : 24 * kHour);
}

} // namespace voltaro::simulator
