#include "console/agent_state.h"

#include "console/main_view.h"
#include "console/ui_calls.h"

namespace voltaro {
namespace {

constexpr std::size_t kMaxPatchFields = 25;

// Sends a plain request and hands the answer's tree, when it has one, to `apply` on the user-interface thread.
template <class Apply>
bool ReadWith(Operation operation, Apply apply)
{
    Reply reply = Send(Plain(operation));
    if (const Element* root = reply.Root())
        OnUi([&] { apply(*root); });
    return !reply.Lost();
}

template <class Record>
bool ReadRecordInto(Operation operation, Record& record)
{
    return ReadWith(operation, [&](const Element& root) { record = ReadRecord<Record>(root).value_or(record); });
}

} // namespace

bool ReadPowerSchemes()
{
    return ReadWith(Operation::GetPowerSchemes, [](const Element& root) {
        state.schemes = ReadNames(root);
        if (mainView.showSchemes)
            mainView.showSchemes();
    });
}

bool ReadPolicies()
{
    return ReadWith(Operation::GetPolicies, [](const Element& root) { state.policies = ReadNames(root); });
}

bool ReadCurrentPowerSettings()
{
    return ReadWith(Operation::GetCurrentPowerSettings, [](const Element& root) {
        if (const auto settings = ReadRecord<PowerSchemeSettings>(root)) {
            state.currentScheme = *settings;
            ++state.currentSchemeReads;
            if (mainView.selectCurrentScheme)
                mainView.selectCurrentScheme();
        }
    });
}

bool ReadBatteryInfo()
{
    return ReadWith(Operation::GetBatteryInfo, [](const Element& root) {
        state.battery = ReadBattery(root);
        const bool changed = !(state.lastBatteryStatus == state.battery.Status());
        state.lastBatteryStatus = state.battery.Status();
        state.noBattery = IsWord(state.battery.Status(), kNoBattery);
        state.lastBatteryCharge = state.battery.Charge();
        if (mainView.showCharge)
            mainView.showCharge();
        if (changed && mainView.repaint)
            mainView.repaint();
    });
}

bool ReadHostSettings()
{
    return ReadRecordInto(Operation::GetHostSettings, state.host);
}

bool ReadProxySettings()
{
    return ReadRecordInto(Operation::GetProxySettings, state.proxy);
}

bool ReadCurrentConsumption()
{
    return ReadRecordInto(Operation::GetCurrentConsumption, state.consumption);
}

bool ReadPatchDetails()
{
    return ReadWith(Operation::GetPatchDetails,
        [](const Element& root) { state.patch = TextsOf(DetailsFields(root), kMaxPatchFields); });
}

} // namespace voltaro
