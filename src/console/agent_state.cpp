#include "console/agent_state.h"

#include "console/agent_lost.h"
#include "console/main_view.h"
#include "console/ui_calls.h"

namespace voltaro {
namespace {

// Sends a plain request and hands the answer's tree, when it has one, to `apply` on the user-interface thread; `apply`
// says whether it could be read.
template <class Apply>
ReadResult ReadWith(Operation operation, Apply apply)
{
    Reply reply = Send(Plain(operation));
    bool read = false;
    if (const Element* root = reply.Root())
        OnUi([&] { read = apply(*root); });
    if (reply.Lost())
        return ReadResult::Lost;
    return read ? ReadResult::Read : ReadResult::Unreadable;
}

// A readable answer without a record is none: the windows cannot send a blank one back.
template <class Record>
bool ReadInto(Record& record, const Element& root)
{
    const auto read = ReadRecord<Record>(root);
    if (read)
        record = *read;
    return read.has_value();
}

} // namespace

ReadResult ReadPowerSchemes()
{
    return ReadWith(Operation::GetPowerSchemes, [](const Element& root) {
        state.schemes = ReadNames(root);
        if (mainView.showSchemes)
            mainView.showSchemes();
        return true;
    });
}

ReadResult ReadPolicies()
{
    return ReadWith(Operation::GetPolicies, [](const Element& root) {
        state.policies = ReadNames(root);
        return true;
    });
}

ReadResult ReadCurrentPowerSettings()
{
    return ReadWith(Operation::GetCurrentPowerSettings, [](const Element& root) {
        const bool read = ReadInto(state.currentScheme, root);
        if (read && mainView.selectCurrentScheme)
            mainView.selectCurrentScheme();
        return read;
    });
}

ReadResult ReadBatteryInfo()
{
    return ReadWith(Operation::GetBatteryInfo, [](const Element& root) {
        const std::wstring before(state.battery.Status());
        state.battery = ReadBattery(root);
        state.noBattery = IsWord(state.battery.Status(), kNoBattery);
        if (mainView.showCharge)
            mainView.showCharge();
        if (state.battery.Status() != before && mainView.repaint)
            mainView.repaint();
        return true;
    });
}

ReadResult ReadHostSettings()
{
    return ReadWith(Operation::GetHostSettings, [](const Element& root) { return ReadInto(state.host, root); });
}

ReadResult ReadProxySettings()
{
    return ReadWith(Operation::GetProxySettings, [](const Element& root) { return ReadInto(state.proxy, root); });
}

ReadResult ReadCurrentConsumption()
{
    return ReadWith(
        Operation::GetCurrentConsumption, [](const Element& root) { return ReadInto(state.consumption, root); });
}

ReadResult ReadPatchDetails()
{
    return ReadWith(Operation::GetPatchDetails, [](const Element&) { return true; });
}

ReadResult ReadOrLose(Reader read)
{
    const ReadResult result = read();
    if (result == ReadResult::Lost)
        OnAgentLost();
    return result;
}

} // namespace voltaro
