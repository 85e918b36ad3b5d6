#pragma once

#include "base/calendar.h"
#include "base/fixed_text.h"
#include "link/element.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace voltaro {

// The table of a day's events: so many lines of so many characters, what lies beyond is cut.
inline constexpr std::size_t kMaxEventLines = 3010;
inline constexpr std::size_t kMaxLineLength = 60;
using EventLine = FixedText<kMaxLineLength + 1>;

// The table of an answer: the texts of the children of every `details`, or of every `response` where the answer's text
// speaks of a failure anywhere; in document order.
[[nodiscard]] std::vector<EventLine> ReadEventLines(const Element& root, std::wstring_view answer);

enum class EventCode : std::uint8_t {
    None, // no code of ours, or no event
    IdleStart,
    IdleEnd,
    DimStart,
    DimEnd,
    MonitorOffStart,
    MonitorOffEnd,
    StandbyStart,
    StandbyEnd,
    TimedStandbyStart, // followed by a Duration and a TimedStandbyEnd
    TimedStandbyEnd,
    Duration,
    HibernateStart,
    HibernateEnd,
    SecondHibernateStart,
    SecondHibernateEnd,
    PowerOffStart,
    PowerOffEnd,      // up again as the user's doing
    PowerOffAgentEnd, // up again as the agent's doing
    ShutdownStart,
    ShutdownEnd,
};

// Without regard to letter case; None for any other text. The codes of the power lines are no events.
[[nodiscard]] EventCode EventCodeOf(std::wstring_view code);

// The scans below read from the front as far as the line matches: at most six characters of code, "#", the numbers.
// What is not reached stays zero. `code` points into the scanned text.

// "Istime # 2024/02/29 10:15:00". The fields are as written, whether or not they make a date.
struct TimeLine {
    std::wstring_view code;
    LocalTime stamp;
};
[[nodiscard]] TimeLine ScanTimeLine(std::wstring_view line);

// "Duratn # 30".
struct DurationLine {
    std::wstring_view code;
    int minutes = 0;
};
[[nodiscard]] DurationLine ScanDurationLine(std::wstring_view line);

// "Pwrcon # 0.8125".
struct PowerLine {
    std::wstring_view code;
    float kilowattHours = 0;
};
[[nodiscard]] PowerLine ScanPowerLine(std::wstring_view line);

// One line as the walk over the day needs it.
struct DayEvent {
    EventCode code = EventCode::None;
    std::int64_t at = kNoTime; // SecondsOf the stamp
    int minutes = 0;           // of a Duration
};
[[nodiscard]] DayEvent ReadEvent(std::wstring_view line);

} // namespace voltaro
