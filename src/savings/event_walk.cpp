#include "savings/event_walk.h"

#include "base/text.h"

#include <algorithm>
#include <vector>

namespace voltaro {
namespace {

using Total = std::int64_t DayDurations::*;

// A state from its start to its end: the totals that the interval goes to (the second may be missing), and whether it
// is taken out of an idle period around it.
struct StateRow {
    EventCode start;
    EventCode end;
    Total total;
    Total part;
    bool leavesIdle;
};

// The state that the day's first event ends began before midnight: its totals, and whether the interval since midnight
// counts as an idle period.
struct FirstEventRow {
    EventCode end;
    Total total;
    Total part;
    bool isIdlePeriod;
};

// clang-format off
using D = DayDurations;
constexpr StateRow kStates[] = {
    {EventCode::DimStart,             EventCode::DimEnd,             &D::dim,        nullptr,               true},
    {EventCode::MonitorOffStart,      EventCode::MonitorOffEnd,      &D::monitorOff, nullptr,               true},
    {EventCode::StandbyStart,         EventCode::StandbyEnd,         &D::standby,    nullptr,               true},
    {EventCode::HibernateStart,       EventCode::HibernateEnd,       &D::hibernate,  &D::hibernateUponIdle, true},
    {EventCode::SecondHibernateStart, EventCode::SecondHibernateEnd, &D::hibernate,  nullptr,               true},
    // A power-off within an idle period stays in the period's remainder too: reports stay comparable with earlier ones.
    {EventCode::PowerOffStart,        EventCode::PowerOffEnd,        &D::off,        nullptr,               false},
    {EventCode::PowerOffStart,        EventCode::PowerOffAgentEnd,   &D::off,        nullptr,               false},
    {EventCode::ShutdownStart,        EventCode::ShutdownEnd,        &D::off,        &D::shutdown,          true},
};

constexpr FirstEventRow kFirstEvents[] = {
    {EventCode::PowerOffEnd,        &D::off,                nullptr,               false},
    {EventCode::PowerOffAgentEnd,   &D::off,                nullptr,               false},
    {EventCode::ShutdownEnd,        &D::off,                &D::shutdown,          true},
    {EventCode::DimEnd,             &D::dim,                nullptr,               true},
    {EventCode::MonitorOffEnd,      &D::monitorOff,         nullptr,               true},
    {EventCode::HibernateEnd,       &D::hibernate,          &D::hibernateUponIdle, true},
    {EventCode::SecondHibernateEnd, &D::hibernate,          nullptr,               false},
    {EventCode::StandbyEnd,         &D::standby,            nullptr,               false},
    {EventCode::IdleEnd,            &D::idleWithoutSavings, nullptr,               true},
};
// clang-format on

// Never below 0, and 0 when either end is damaged.
std::int64_t Between(std::int64_t from, std::int64_t to)
{
    return from == kNoTime || to == kNoTime ? 0 : std::max<std::int64_t>(0, to - from);
}

std::int64_t MidnightBefore(std::int64_t time)
{
    return time == kNoTime ? kNoTime : time - time % kDaySeconds;
}

class DayWalk {
public:
    // `now` is kNoTime for a past day.
    DayWalk(std::span<const DayEvent> events, std::int64_t now, DayReport& report)
        : m_events(events)
        , m_now(now)
        , m_day(report.durations)
        , m_histogram(report.histogram)
    {
    }

    void Run()
    {
        CreditFirstEvent();
        for (std::size_t i = 0; i < m_events.size();)
            i = Step(i);
        // One second more than is credited: a past day ends with its last second, which belongs to the
        // period. Today's open period is counted alike, though it ends now.
        if (m_idleOpen)
            CloseIdle(ClosingTime(m_idleStart), 1);
        CloseDay();
    }

private:
    [[nodiscard]] EventCode CodeAt(std::size_t i) const
    {
        return i < m_events.size() ? m_events[i].code : EventCode::None;
    }

    // Where a state without an end ends: now, or with the last second of its own day.
    [[nodiscard]] std::int64_t ClosingTime(std::int64_t start) const
    {
        if (m_now != kNoTime || start == kNoTime)
            return m_now;
        return MidnightBefore(start) + kDaySeconds - 1;
    }

    void Credit(Total total, Total part, std::int64_t seconds)
    {
        m_day.*total += seconds;
        if (part)
            m_day.*part += seconds;
    }

    void CreditFirstEvent()
    {
        if (m_events.empty())
            return;
        const DayEvent& first = m_events.front();
        const std::int64_t seconds = Between(MidnightBefore(first.at), first.at);
        if (first.code == EventCode::TimedStandbyEnd)
            SplitStandbyOverMidnight(seconds);
        for (const FirstEventRow& row : kFirstEvents) {
            if (row.end != first.code)
                continue;
            Credit(row.total, row.part, seconds);
            if (row.isIdlePeriod)
                m_histogram.Enter(seconds);
        }
    }

    // The planned and the whole length of the standby follow its end, in minutes; it began so much before its end. Up
    // to the planned end it was standby, then the machine went on into hibernate.
    void SplitStandbyOverMidnight(std::int64_t sinceMidnight)
    {
        const bool hasPlanned = CodeAt(1) == EventCode::Duration;
        const bool hasWhole = hasPlanned && CodeAt(2) == EventCode::Duration;
        const std::int64_t planned = hasPlanned ? m_events[1].minutes * 60 : 0;
        const std::int64_t whole = hasWhole ? m_events[2].minutes * 60 : 0;
        // Without the whole length the standby counts as begun at midnight.
        const std::int64_t start = whole > 0 ? sinceMidnight - whole : 0;
        const std::int64_t standby
            = planned > 0 ? std::clamp<std::int64_t>(start + planned, 0, sinceMidnight) : sinceMidnight;
        m_day.standby += standby;
        m_day.hibernate += sinceMidnight - standby;
    }

    // Handles the event at i; returns the place of the next one to look at.
    std::size_t Step(std::size_t i)
    {
        switch (m_events[i].code) {
        case EventCode::IdleStart: OpenIdle(m_events[i].at); return i + 1;
        case EventCode::IdleEnd:
            if (m_idleOpen)
                CloseIdle(m_events[i].at, 0);
            return i + 1;
        case EventCode::TimedStandbyStart: return StepTimedStandby(i);
        default: return StepState(i);
        }
    }

    std::size_t StepState(std::size_t i)
    {
        const bool isLast = i + 1 == m_events.size();
        const std::int64_t start = m_events[i].at;
        for (const StateRow& row : kStates) {
            if (row.start != m_events[i].code || (!isLast && row.end != m_events[i + 1].code))
                continue;
            const std::int64_t seconds = Between(start, isLast ? ClosingTime(start) : m_events[i + 1].at);
            Credit(row.total, row.part, seconds);
            if (row.leavesIdle)
                m_spentInIdle += seconds;
            return i + 2;
        }
        return i + 1;
    }

    // "Sbtime", "Duratn", "Setime"; the length may be missing, and the end when nothing else follows.
    std::size_t StepTimedStandby(std::size_t i)
    {
        const bool hasLength = CodeAt(i + 1) == EventCode::Duration;
        const std::size_t end = i + (hasLength ? 2 : 1);
        const bool isLast = end == m_events.size();
        if (!isLast && CodeAt(end) != EventCode::TimedStandbyEnd)
            return i + 1;

        const std::int64_t start = m_events[i].at;
        const std::int64_t seconds = Between(start, isLast ? ClosingTime(start) : m_events[end].at);
        const std::int64_t planned = hasLength && !isLast ? m_events[i + 1].minutes * 60 : 0;
        const std::int64_t standby = planned > 0 && planned <= seconds ? planned : seconds;
        Credit(&D::standby, &D::timedStandby, standby);
        Credit(&D::hibernate, &D::hibernateUponIdle, seconds - standby);
        m_spentInIdle += seconds;
        return end + 1;
    }

    // A second start without an end in between starts anew.
    void OpenIdle(std::int64_t start)
    {
        m_idleOpen = true;
        m_idleStart = start;
        m_spentInIdle = 0;
    }

    void CloseIdle(std::int64_t end, std::int64_t extraInHistogram)
    {
        const std::int64_t seconds = Between(m_idleStart, end);
        m_histogram.Enter(seconds + extraInHistogram);
        m_day.idleWithoutSavings += std::max<std::int64_t>(0, seconds - m_spentInIdle);
        m_idleOpen = false;
    }

    void CloseDay()
    {
        const std::int64_t length = m_now != kNoTime ? m_now % kDaySeconds : kDaySeconds;
        D& d = m_day;
        d.active = length - d.idleWithoutSavings - d.standby - d.hibernate - d.monitorOff - d.dim - d.off;
        d.activeAgain = d.active;
        d.idle = d.idleWithoutSavings + d.standby + d.monitorOff + d.dim;
        d.offTotal = d.hibernate + d.off;
        d.poweredOn = d.idle + d.active;
    }

    std::span<const DayEvent> m_events;
    std::int64_t m_now;
    DayDurations& m_day;
    IdleHistogram& m_histogram;
    bool m_idleOpen = false;
    std::int64_t m_idleStart = kNoTime;
    std::int64_t m_spentInIdle = 0; // of the open idle period: in dim, monitor off, standby, shutdown and hibernate
};

bool Mentions(std::wstring_view line, std::wstring_view code)
{
    for (; line.size() >= code.size(); line.remove_prefix(1)) {
        if (EqualsIgnoreCase(line.substr(0, code.size()), code))
            return true;
    }
    return false;
}

constexpr std::wstring_view kConsumedCode = L"Pwrcon";
constexpr std::wstring_view kSavedCode = L"Pwrsav";

bool IsPowerLine(std::wstring_view line)
{
    return Mentions(line, kConsumedCode) || Mentions(line, kSavedCode);
}

// The figure of the line at that place from the end, when it carries the code.
float PowerFigure(std::span<const EventLine> lines, std::size_t fromEnd, std::wstring_view code)
{
    if (lines.size() < fromEnd || !Mentions(lines[lines.size() - fromEnd], code))
        return 0;
    return ScanPowerLine(lines[lines.size() - fromEnd]).kilowattHours;
}

} // namespace

void IdleHistogram::Enter(std::int64_t period)
{
    const auto bucket
        = static_cast<std::size_t>(std::lower_bound(kLimits.begin(), kLimits.end(), period) - kLimits.begin());
    seconds[bucket] += period;
    totalSeconds += period;
    ++counts[bucket];
}

bool WalkDay(std::span<const EventLine> lines, const LocalTime& now, DayReport& report)
{
    report = {};
    if (!lines.empty() && EqualsIgnoreCase(lines[0], L"Failure"))
        return false;
    report.powerConsumed = PowerFigure(lines, 2, kConsumedCode);
    report.powerSaved = PowerFigure(lines, 1, kSavedCode);
    while (!lines.empty() && IsPowerLine(lines.back()))
        lines = lines.first(lines.size() - 1);

    std::vector<DayEvent> events(lines.size());
    std::transform(lines.begin(), lines.end(), events.begin(), [](const EventLine& line) { return ReadEvent(line); });
    const bool isToday = !lines.empty() && IsSameDay(ScanTimeLine(lines[0]).stamp, now);
    DayWalk(events, isToday ? SecondsOf(now) : kNoTime, report).Run();
    return true;
}

} // namespace voltaro
