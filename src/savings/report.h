#pragma once

#include "savings/savings_figures.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace voltaro {

// The texts of one list row, a cell a column, and the rows of one list.
using ReportRow = std::vector<std::wstring>;
using ReportRows = std::vector<ReportRow>;

// The captions of the lists' columns.
using Captions2 = std::array<std::wstring_view, 2>;
using Captions3 = std::array<std::wstring_view, 3>;
using Captions4 = std::array<std::wstring_view, 4>;
inline constexpr Captions2 kTotalColumns = {L"Description", L"Value"};
inline constexpr Captions2 kEmissionColumns = kTotalColumns;
inline constexpr Captions3 kEstimateColumns = {L"Description", L"Value", L"Power Consumption"};
inline constexpr Captions4 kIdlePatternColumns
    = {L"Idle Duration Category", L"Occurrences", L"Total Duration", L"Power Consumption"};
inline constexpr Captions2 kDurationColumns = {L"System Duration", L"Cumulative Value"};

// "2 Hrs : 5 Mins", in one of four forms. Seconds are cut; a negative length shows as none.
[[nodiscard]] std::wstring HoursMinutesText(std::int64_t seconds);

// "1.234 kWh", "12.500 %", "700.00 Grams".
[[nodiscard]] std::wstring EnergyText(double kilowattHours);
[[nodiscard]] std::wstring PercentageText(double percentage);
[[nodiscard]] std::wstring GramsText(double grams);

// The first tab: the total consumption with the day's hours, and the emission saved.
[[nodiscard]] ReportRows TotalRows(const DayDurations& durations, const SavingsFigures& figures);
[[nodiscard]] ReportRows EmissionRows(const SavingsFigures& figures);

// How a row's value is computed, for its tooltip; empty where the label says it.
[[nodiscard]] std::wstring FormulaOf(std::wstring_view label);

// The second tab: the energy rows, each with the time that it stands for, and the idle periods by length.
[[nodiscard]] ReportRows EstimateRows(const DayDurations& durations, const SavingsFigures& figures);
[[nodiscard]] ReportRows IdlePatternRows(const IdleHistogram& histogram, const PowerProfile& profile);

} // namespace voltaro
