#include "simulator/scenario.h"

#include "base/text.h"

namespace voltaro::simulator {
namespace {

// clang-format off
constexpr Scenario kScenarios[] = {
    // name             what                                              batt.  sleeps busy   content           pause jobs license               updates
    {L"battery",      L"a notebook on mains, activated, three jobs",       true,  true,  false, Content::Usual,   0,  3, License::Activated,    Updates::Latest},
    {L"desktop",      L"no battery",                                       false, true,  false, Content::Usual,   0,  3, License::Activated,    Updates::Latest},
    {L"notactivated", L"every change is refused: not activated",           true,  true,  false, Content::Usual,   0,  3, License::NotActivated, Updates::Latest},
    {L"expired",      L"every change is refused: the license has expired", true,  true,  false, Content::Usual,   0,  3, License::Expired,      Updates::Latest},
    {L"paused",       L"paused for three hours",                           true,  true,  false, Content::Usual,   3,  3, License::Activated,    Updates::Latest},
    {L"nojobs",       L"nothing scheduled",                                true,  true,  false, Content::Usual,   0,  0, License::Activated,    Updates::Latest},
    {L"manyjobs",     L"ten jobs, as many as there may be",                true,  true,  false, Content::Usual,   0, 10, License::Activated,    Updates::Latest},
    {L"large",        L"system details of about 280 kB",                   true,  true,  false, Content::Large,   0,  3, License::Activated,    Updates::Latest},
    {L"crowded",      L"more of everything than there may be",             true,  true,  false, Content::Crowded, 0, 12, License::Activated,    Updates::Latest},
    {L"odd",          L"names in every script, unknown words, gaps",       true,  true,  false, Content::Odd,     0,  3, License::Activated,    Updates::Latest},
    {L"this-machine", L"the real battery, processor, memory, system, disks and adapters of this computer; schemes, jobs and savings are simulated", true, true, false, Content::ThisMachine, 0, 3, License::Activated, Updates::Latest},
    {L"limited",      L"no standby, no hibernate, no device control",      false, false, false, Content::Usual,   0,  3, License::Activated,    Updates::Latest},
    {L"busy",         L"power actions are refused while programs run",     true,  true,  true,  Content::Usual,   0,  3, License::Activated,    Updates::Latest},
    {L"updates",      L"an update check finds new updates",                true,  true,  false, Content::Usual,   0,  3, License::Activated,    Updates::Downloaded},
    {L"offline",      L"an update check finds no network",                 true,  true,  false, Content::Usual,   0,  3, License::Activated,    Updates::Offline},
    {L"updatefails",  L"an update check fails",                            true,  true,  false, Content::Usual,   0,  3, License::Activated,    Updates::Failed},
};
// clang-format on

} // namespace

std::span<const Scenario> Scenarios()
{
    return kScenarios;
}

const Scenario& DefaultScenario()
{
    return kScenarios[0];
}

const Scenario* FindScenario(std::wstring_view name)
{
    for (const Scenario& scenario : kScenarios) {
        if (EqualsIgnoreCase(scenario.name, name))
            return &scenario;
    }
    return nullptr;
}

} // namespace voltaro::simulator
