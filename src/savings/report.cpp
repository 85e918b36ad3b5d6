#include "savings/report.h"

#include "base/text.h"
#include "savings/decimal.h"

#include <algorithm>
#include <iterator>

namespace voltaro {
namespace {

constexpr const wchar_t* kPercentageLabel = L"Saved by Voltaro (in percentage)";
constexpr const wchar_t* kEmissionLabel = L"CO2 emissions saved";
constexpr const wchar_t* kSavedLabel = L"Saved by Voltaro";

constexpr const wchar_t* kBucketLabels[IdleHistogram::kBuckets] = {L"0 - 5 mins", L"5 mins - 10 mins",
    L"10 mins - 30 mins", L"30 mins - 1 hr", L"1 hr - 2 hrs", L"2 hrs - 4 hrs", L"> 4 hrs"};

} // namespace

std::wstring HoursMinutesText(std::int64_t seconds)
{
    seconds = std::max<std::int64_t>(seconds, 0);
    const long long hours = seconds / 3600;
    const long long minutes = seconds / 60 % 60;
    // The singular hour has two blanks before the colon: users know the report in this form.
    return Format(
        L"%lld %ls : %lld %ls", hours, hours == 1 ? L"Hr " : L"Hrs", minutes, minutes == 1 ? L"Min" : L"Mins");
}

std::wstring EnergyText(double kilowattHours)
{
    return DecimalText(kilowattHours, 3) + L" kWh";
}

std::wstring PercentageText(double percentage)
{
    return DecimalText(percentage, 3) + L" %";
}

std::wstring GramsText(double grams)
{
    return DecimalText(grams, 2) + L" Grams";
}

ReportRows TotalRows(const DayDurations& durations, const SavingsFigures& figures)
{
    const std::wstring used = EnergyText(figures.nowIs);
    return {
        {L"System's Total Power consumption", used},
        {L"System was IDLE for :", HoursMinutesText(durations.idle)},
        {L"System (without Voltaro) would have been powered ON for :", HoursMinutesText(figures.wouldHaveBeenOn)},
        {L"System was powered OFF by Voltaro for :", HoursMinutesText(durations.offTotal)},
        {L"System was powered ON for :", HoursMinutesText(durations.poweredOn)},
        {L"Voltaro saved power consumption for :", HoursMinutesText(figures.savedFor)},
        {L"System's (with Voltaro) actual power consumption is :", used},
    };
}

ReportRows EmissionRows(const SavingsFigures& figures)
{
    return {
        {kSavedLabel, EnergyText(figures.saved)},
        {kPercentageLabel, PercentageText(figures.percentage)},
        {kEmissionLabel, GramsText(figures.carbonDioxide)},
    };
}

ReportRows EstimateRows(const DayDurations& durations, const SavingsFigures& figures)
{
    return {
        {L"Without Voltaro (would have been)", HoursMinutesText(figures.wouldHaveBeenOn),
            EnergyText(figures.wouldHaveBeen)},
        {L"Due to Voltaro (now is)", HoursMinutesText(durations.poweredOn), EnergyText(figures.nowIs)},
        {kSavedLabel, HoursMinutesText(figures.savedFor), EnergyText(figures.saved)},
        {kPercentageLabel, PercentageText(figures.percentage), L""},
        {kEmissionLabel, GramsText(figures.carbonDioxide), L""},
    };
}

std::wstring FormulaOf(std::wstring_view label)
{
    if (label != kEmissionLabel)
        return {};
    return L"Saved power (kWh) x " + NumberText(kGramsPerKilowattHour) + L" Grams";
}

ReportRows IdlePatternRows(const IdleHistogram& histogram, const PowerProfile& profile)
{
    const auto row = [&profile](const wchar_t* label, std::int64_t count, std::int64_t seconds) -> ReportRow {
        return {label, NumberText(count), HoursMinutesText(seconds), EnergyText(IdleEnergy(seconds, profile))};
    };
    ReportRows rows;
    std::int64_t count = 0;
    for (std::size_t i = 0; i < IdleHistogram::kBuckets; ++i) {
        rows.push_back(row(kBucketLabels[i], histogram.counts[i], histogram.seconds[i]));
        count += histogram.counts[i];
    }
    rows.push_back(row(L"Total Idle hrs", count, histogram.totalSeconds));
    return rows;
}

} // namespace voltaro
