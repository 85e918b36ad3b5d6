#pragma once

#include "savings/event_lines.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace voltaro::simulator {
class AgentServer;
}

namespace voltaro::bench {

using Work = std::function<void()>;

[[nodiscard]] double Time(const Work& work); // in milliseconds
[[nodiscard]] double Median(std::vector<double> figures);

// Median times of several pieces of work, run in turn for so many rounds after one round to warm up.
[[nodiscard]] std::vector<double> Medians(const std::vector<Work>& works, int rounds = 15);

// Each prints a line and keeps a figure above its limit in mind: what was measured, its time, what it is held against.
void JudgeRatio(const char* what, double time, double base, double limit);
void JudgeFigure(const char* what, double figure, const char* unit, double limit);
// The same work at growing sizes: ten times the size may take eleven times the time. Prints the time of each.
void JudgeGrowth(const char* what, const std::vector<std::size_t>& sizes, const std::function<Work(std::size_t)>& work);

[[nodiscard]] bool IsWithinLimits(); // the verdict

// Loads an answer's document and asks for the text of each node of the path. The thread must have entered COM.
void ReadBare(const std::wstring& text, const wchar_t* path);

// So many changes of state, evenly over a day; and a time after it.
[[nodiscard]] std::vector<EventLine> LongDay(std::size_t count = kMaxEventLines);
inline constexpr LocalTime kLongDay{2026, 11, 20}, kLongDayNow{2026, 11, 21, 12};

void MakeWindows(); // all of the program, in this process, hidden

// The groups of figures; an agent answers at the service's port, and an installation names it.
[[nodiscard]] double MeasureRequests(); // the median of a bare exchange
void MeasureAnswers();
void MeasureListFill();
void MeasureGraph();
void MeasureProgram(simulator::AgentServer& agent, double bareExchange);
int RunSkeleton();

} // namespace voltaro::bench
