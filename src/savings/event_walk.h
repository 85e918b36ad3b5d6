#pragma once

#include "base/calendar.h"
#include "savings/event_lines.h"

#include <array>
#include <cstdint>
#include <span>

namespace voltaro {

// Seconds that a day spent in each state. Powered on and off in all make up the day; overlapping or damaged events can
// make `active`, and with it `poweredOn`, negative.
struct DayDurations {
    std::int64_t poweredOn = 0; // idle + active
    std::int64_t offTotal = 0;  // hibernate + off
    std::int64_t active = 0;
    std::int64_t idle = 0; // idle without savings + dim + monitor off + standby
    std::int64_t idleWithoutSavings = 0;
    std::int64_t activeAgain = 0; // the same as active; kept, it has its place in the record
    std::int64_t dim = 0;
    std::int64_t monitorOff = 0;
    std::int64_t standby = 0;
    std::int64_t hibernate = 0;
    std::int64_t off = 0;
    std::int64_t shutdown = 0;          // part of off
    std::int64_t hibernateUponIdle = 0; // part of hibernate
    std::int64_t timedStandby = 0;      // part of standby, begun by "Sbtime"

    friend bool operator==(const DayDurations&, const DayDurations&) = default;
};
static_assert(sizeof(DayDurations) == 14 * sizeof(std::int64_t));

// Idle periods by length.
struct IdleHistogram {
    static constexpr std::size_t kBuckets = 7;
    // The longest period of each bucket but the last, in seconds.
    static constexpr std::array<std::int64_t, kBuckets - 1> kLimits = {300, 600, 1800, 3600, 7200, 14400};

    std::array<std::int64_t, kBuckets> seconds{};
    std::int64_t totalSeconds = 0;
    std::array<std::int32_t, kBuckets> counts{};

    // Counts an idle period of that many seconds in the bucket of its length.
    void Enter(std::int64_t period);

    friend bool operator==(const IdleHistogram&, const IdleHistogram&) = default;
};

// What the events of one day come to.
struct DayReport {
    DayDurations durations;
    IdleHistogram histogram;
    float powerConsumed = 0; // kWh as the agent tells them; 0 when it does not
    float powerSaved = 0;
};

// Walks the day's lines. `now` is the local clock: when the first event is of the same day, the day ends now. False,
// and an empty report, when the agent answered "Failure". No lines at all are a past day of activity.
[[nodiscard]] bool WalkDay(std::span<const EventLine> lines, const LocalTime& now, DayReport& report);

} // namespace voltaro
