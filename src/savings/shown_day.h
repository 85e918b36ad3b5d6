#pragma once

#include "link/element.h"
#include "link/records.h"
#include "savings/graph_layout.h"
#include "savings/savings_figures.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace voltaro {

// What the agent's answer about a day turned out to be.
enum class DayAnswer : std::uint8_t {
    Report,
    NoData,  // the agent has nothing for the day
    Damaged, // no document, or one without an answer in it
};

// Reads the answer to a request for a day's events: its document element (null when it does not parse) and its text.
// `report` is filled for a Report and empty otherwise. `now` is the local clock.
[[nodiscard]] DayAnswer ReadDayAnswer(
    const Element* root, std::wstring_view text, const LocalTime& now, DayReport& report);

// A day as the three pages show it.
struct ShownDay {
    LocalTime day;
    DayReport report;
    PowerProfile profile;
    SavingsFigures figures;
    GraphLayout graph;
    bool profileKnown = false; // else the agent's profile could not be read, and what needs powers is wrong
    bool soFar = false;        // the agent was asked on that day, before its end
};
[[nodiscard]] ShownDay MakeShownDay(
    const LocalTime& day, const DayReport& report, const PowerConsumptionData& consumption);

// The day chosen last, whatever the agent knew of it, and the day that the pages show: nothing until the agent had
// figures, and after it had none for the chosen day. Both belong to the user-interface thread.
inline std::optional<LocalTime> chosenDay;
inline std::optional<ShownDay> shownDay;

} // namespace voltaro
