#include "fuzz/targets.h"
#include "savings/decimal.h"
#include "savings/profile_record.h"
#include "savings/shown_day.h"

#include <cmath>
#include <numeric>

namespace voltaro::fuzz {
namespace {

constexpr const wchar_t* kWatts[]
    = {L"Inbuilt", L"Branded", L"CRT", L"led", L"17.00", L"21.23", L"1e999", L"-0.0", L"999.99", L".5", L"1000"};

void CheckDay(const DayReport& day)
{
    const DayDurations& d = day.durations;
    Require(d.poweredOn + d.offTotal >= 0 && d.poweredOn + d.offTotal <= kDaySeconds);
    Require(d.poweredOn == d.idle + d.active && d.offTotal == d.hibernate + d.off && d.active == d.activeAgain);
    Require(d.idle == d.idleWithoutSavings + d.standby + d.monitorOff + d.dim);
    for (const std::int64_t part : {d.idleWithoutSavings, d.dim, d.monitorOff, d.hibernateUponIdle, d.shutdown})
        Require(part >= 0);
    Require(d.timedStandby <= d.standby && d.hibernateUponIdle <= d.hibernate && d.shutdown <= d.off);
    const auto& h = day.histogram;
    Require(std::accumulate(h.seconds.begin(), h.seconds.end(), std::int64_t{0}) == h.totalSeconds);
    Require(std::isfinite(day.powerConsumed) && std::isfinite(day.powerSaved));
}

void CheckGraph(const GraphLayout& graph)
{
    for (const GraphSegment& segment : graph.segments) {
        Require(segment.bar.top >= 0 && segment.bar.top <= segment.bar.bottom && segment.bar.bottom <= kGraphBottom);
        Require(!SegmentTooltip(segment, graph.daySeconds).empty());
    }
}

PowerConsumptionData AnyProfile(Bytes& bytes)
{
    PowerConsumptionData record;
    for (const auto& field : kConsumptionFields)
        record.*field.slot = bytes.Value(kWatts);
    return record;
}

} // namespace

// The answer about a day: read, walked over, computed and, for some inputs, since it is slow, shown.
void RunEvents(Bytes& bytes)
{
    const bool shown = bytes.Next() % 16 == 0;
    const PowerConsumptionData profile = shown ? AnyProfile(bytes) : PowerConsumptionData();
    Element root{L"vltp", {}, {{bytes.Next() == 0 ? L"response" : L"details", {}, {}}}};
    while (!bytes.AtEnd())
        root.children[0].children.push_back(TextElement(L"Event", bytes.Text()));
    DayReport day;
    if (ReadDayAnswer(&root, L"", {2024, 2, 29, 13, 14, 15}, day) != DayAnswer::Report)
        return;
    CheckDay(day);
    if (!shown)
        return;
    const ShownDay made = MakeShownDay({2024, 2, 29}, day, profile);
    const SavingsFigures& figures = made.figures;
    Require(std::isfinite(figures.wouldHaveBeen) && std::isfinite(figures.saved) && std::isfinite(figures.nowIs));
    CheckGraph(made.graph);
    (void)TotalRows(day.durations, figures);
    (void)EmissionRows(figures);
    (void)EstimateRows(day.durations, figures);
    (void)IdlePatternRows(day.histogram, made.profile);
}

// A profile shown, edited and sent; what was not edited goes as it was read.
void RunProfile(Bytes& bytes)
{
    const PowerConsumptionData read = AnyProfile(bytes);
    Require(RecordToSend(read, WithMonitor(read), false) == read);
    (void)ProfileRows(read);
    (void)RecordToSend(read, AnyProfile(bytes), true);
    const std::wstring text = bytes.Text();
    Require(std::isfinite(LeadingDecimal(text).value_or(0.0F)));
    if (CheckWatts(text) == WattCheck::Accepted) {
        const std::wstring written = DecimalText(LeadingDecimal(text).value_or(-1.0F), 2);
        Require(CheckWatts(written) == WattCheck::Accepted);
        Require(DecimalText(LeadingDecimal(written).value_or(-1.0F), 2) == written);
    }
}

} // namespace voltaro::fuzz
