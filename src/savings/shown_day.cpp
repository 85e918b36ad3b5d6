#include "savings/shown_day.h"

#include "link/replies.h"
#include "savings/day_texts.h"
#include "savings/profile_record.h"

namespace voltaro {
DayAnswer ReadDayAnswer(const Element* root, std::wstring_view text, const LocalTime& now, DayReport& report)
{
    report = {};
    if (root == nullptr || (!FirstElement(*root, L"response") && !FirstElement(*root, L"details")))
        return DayAnswer::Damaged;
    return WalkDay(ReadEventLines(*root, text), now, report) ? DayAnswer::Report : DayAnswer::NoData;
}

ShownDay MakeShownDay(const LocalTime& day, const DayReport& report, const PowerConsumptionData& consumption)
{
    ShownDay shown{day, report, ProfileOf(consumption), {}, LayOutGraph(report.durations, HeadingDate(day)),
        consumption != PowerConsumptionData{}, false};
    shown.figures = ComputeSavings(report, shown.profile);
    return shown;
}

} // namespace voltaro
