#pragma once

#include <functional>
#include <string>
#include <vector>

namespace voltaro::bench {

using Work = std::function<void()>;

// Median times, in milliseconds, of several pieces of work, run in turn for so many rounds after one round to warm up.
[[nodiscard]] std::vector<double> Medians(const std::vector<Work>& works, int rounds);

// One line: what was measured, its time, what it is held against, the ratio and its limit.
void PrintRatio(const char* what, double time, double base, double limit);

// What an answer's document costs by itself. The thread must have entered COM.

// Creates a document, loads the text and lets it go.
void LoadBare(const std::wstring& text);

// Does so and asks for the text of every node of the path in turn, keeping none.
void ReadBare(const std::wstring& text, const wchar_t* path);

// Reading and walking a day of the most lines an answer may have, and repainting the graph. Makes the program's
// windows.
void MeasureEvents();
void MeasureGraph();

} // namespace voltaro::bench
