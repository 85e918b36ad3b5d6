#include "power/timeouts.h"

namespace voltaro {
namespace {

constexpr Choice kDisabledChoices[] = {kUnsupported};

ComboList Selecting(Choices choices, std::wstring_view text)
{
    const std::size_t index = ChoiceIndex(choices, text);
    return {choices, index < choices.size() ? index : 0};
}

// The later stage's list, cut to start where the earlier stage stands in its own.
ComboList Following(Choices earlier, std::wstring_view earlierText, Choices later, std::wstring_view laterText)
{
    const std::size_t index = ChoiceIndex(earlier, earlierText);
    const bool never = index + 1 >= earlier.size(); // the last entry, or a text outside the list
    return Selecting(later.subspan(never ? 0 : index), laterText);
}

} // namespace

ComboList MonitorOffList(std::wstring_view dim, std::wstring_view monitorOff)
{
    return Following(kDimChoices, dim, kMonitorOffChoices, monitorOff);
}

ComboList LockList(std::wstring_view monitorOff, std::wstring_view lock)
{
    const Choices all = kLockChoices;
    return Selecting(monitorOff == kNever.text ? all.last(1) : all, lock);
}

ComboList StandbyList(bool supported, std::wstring_view standby)
{
    return Selecting(supported ? Choices(kStandbyChoices) : kDisabledChoices, standby);
}

ComboList HibernateList(bool supported, std::wstring_view standby, std::wstring_view hibernate)
{
    return supported ? Following(kStandbyChoices, standby, kHibernateChoices, hibernate)
                     : Selecting(kDisabledChoices, hibernate);
}

} // namespace voltaro
