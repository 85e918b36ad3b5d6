#include "power/scheme_form.h"

#include "base/text.h"

namespace voltaro {
namespace {

// A name in the spelling of its list, where the list is fixed.
std::wstring ShownName(const SchemeField& field, std::wstring_view stored)
{
    if (field.control == kPolicyList)
        return std::wstring(stored.empty() ? kNoPolicy : stored);
    for (const wchar_t* speed : kProcessorSpeeds) {
        if (EqualsIgnoreCase(speed, stored))
            return speed;
    }
    return {};
}

} // namespace

std::wstring ShownSetting(const SchemeField& field, std::wstring_view stored)
{
    switch (field.shown) {
    case Shown::Step:
    case Shown::Choice: return ShownText(field.choices, stored);
    case Shown::Name: return ShownName(field, stored);
    case Shown::Check: break;
    }
    return YesNo(IsYes(stored));
}

std::wstring StoredSetting(const SchemeField& field, std::wstring_view shown, const LoadedSetting& loaded)
{
    if (shown == loaded.shown && !loaded.stored.empty() && shown != kUnsupported.text)
        return loaded.stored;
    switch (field.shown) {
    case Shown::Step:
    case Shown::Choice: return ChosenText(field.choices, shown);
    case Shown::Name: return std::wstring(shown == kNoPolicy ? std::wstring_view() : shown);
    case Shown::Check: break;
    }
    return std::wstring(shown);
}

PowerSchemeSettings InitialSettings()
{
    PowerSchemeSettings settings;
    settings.logOffTime = NumberText(kLogOffChoices[kInitialLogOff].number);
    return settings;
}

} // namespace voltaro
