#include "savings/shown_day.h"

#include "link/replies.h"
#include "savings/profile_record.h"

#include <string>
#include <vector>

namespace voltaro {
namespace {

// The texts of the children of every element of that name, in document order.
void CollectTexts(const Element& element, std::wstring_view parentName, std::vector<std::wstring>& texts)
{
    for (const Element& child : element.children) {
        if (element.name == parentName)
            texts.push_back(child.text);
        CollectTexts(child, parentName, texts);
    }
}

// "//details/*" asks for the children of `details`.
std::wstring_view ParentIn(std::wstring_view path)
{
    path.remove_prefix(2);
    return path.substr(0, path.find(L'/'));
}

} // namespace

DayAnswer ReadDayAnswer(const Element* root, std::wstring_view text, const LocalTime& now, DayReport& report)
{
    report = {};
    if (root == nullptr || (!FirstElement(*root, L"response") && !FirstElement(*root, L"details")))
        return DayAnswer::Damaged;
    std::vector<std::wstring> texts;
    CollectTexts(*root, ParentIn(EventPath(text)), texts);
    return WalkDay(MakeEventLines(texts), now, report) ? DayAnswer::Report : DayAnswer::NoData;
}

ShownDay MakeShownDay(const LocalTime& day, const DayReport& report, const PowerConsumptionData& consumption)
{
    ShownDay shown{day, report, ProfileOf(consumption), {}, LayOutGraph(report.durations, HeadingDate(day))};
    shown.figures = ComputeSavings(report, shown.profile);
    return shown;
}

} // namespace voltaro
