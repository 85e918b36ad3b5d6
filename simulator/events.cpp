#include "simulator/events.h"

#include "base/text.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace voltaro::simulator {
namespace {

constexpr int kMinute = 60;
constexpr int kHour = 3600;
constexpr std::size_t kMaxLines = 47; // no further idle period begins after so many

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
// How a machine goes into the night and how it comes out of it in the morning.
constexpr struct Night {
    const wchar_t *evening, *morning;
} kNights[] = {
    {L"Qptime", L"QUptme"}, {L"Sdtime", L"SUptme"}, {L"Hstime", L"Hetime"}, {L"Qptime", L"QAgtme"}, {L"Qhtime", L"QHetme"},
};
// clang-format on

std::uint64_t Mixed(std::uint64_t value)
{
    value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9ULL;
    value = (value ^ (value >> 27)) * 0x94D049BB133111EBULL;
    return value ^ (value >> 31);
}

// A number that seems random, always the same for the same day.
std::uint64_t SeedOf(std::chrono::sys_days day)
{
    return Mixed(static_cast<std::uint64_t>(day.time_since_epoch().count()));
}

const Night& NightAfter(std::chrono::sys_days day)
{
    return kNights[SeedOf(day) % std::size(kNights)];
}

class Day {
public:
    explicit Day(const DateTime& date)
        : m_date(date)
        , m_seed(SeedOf(DayOf(date)))
    {
    }

    std::vector<std::wstring> Lines(int until)
    {
        const std::chrono::weekday weekday(DayOf(m_date));
        const bool weekend = weekday == std::chrono::Saturday || weekday == std::chrono::Sunday;
        const int lunch = Between(12 * kHour, 13 * kHour);
        const int meeting = Between(0, 2) == 0 ? Between(14 * kHour, 15 * kHour) : 24 * kHour;
        const int evening = weekend ? Between(14 * kHour, 16 * kHour) : Between(17 * kHour, 19 * kHour);
        m_now = weekend ? Between(9 * kHour, 11 * kHour) : Between(7 * kHour + 30 * kMinute, 9 * kHour);
        m_until = until;
        Stamp(NightAfter(DayOf(m_date) - std::chrono::days(1)).morning);
        bool eaten = weekend;
        bool met = weekend;
        while (m_now < evening && m_lines.size() < kMaxLines) {
            Pass(Between(15 * kMinute, 60 * kMinute), kWattsOn);
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
        Stamp(NightAfter(DayOf(m_date)).evening);
        Pass(24 * kHour - m_now, kWattsOff);
        AddPowerLines();
        return std::move(m_lines);
    }

private:
    int Between(int least, int most)
    {
        m_seed += 0x9E3779B97F4A7C15ULL;
        return least + static_cast<int>(Mixed(m_seed) % static_cast<std::uint64_t>(most - least + 1));
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
        const bool planned = std::wstring_view(stage.start) == kStandby.start;
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
    int m_now = 0, m_until = 0;                 // seconds of the day
    std::int64_t m_consumed = 0, m_without = 0; // watt seconds
    std::vector<std::wstring> m_lines;
};

} // namespace

std::vector<std::wstring> EventsOf(const DateTime& date, const DateTime& now)
{
    if (DayOf(date) > DayOf(now))
        return {};
    return Day(date).Lines(DayOf(date) == DayOf(now) ? now.second : 24 * kHour);
}

} // namespace voltaro::simulator
