#include "console/agent_state.h"

#include "console/agent_lost.h"
#include "console/agent_records.h"
#include "console/main_view.h"
#include "console/ui_calls.h"

namespace voltaro {
ReadResult ReadWith(Operation operation, const std::function<bool(const Element& root)>& apply)
{
    Reply reply = Send(Plain(operation));
    bool read = false;
    if (const Element* root = reply.Root())
        OnUi([&] { read = apply(*root); });
    if (reply.Lost())
        return ReadResult::Lost;
    return read ? ReadResult::Read : ReadResult::Unreadable;
}

ReadResult ReadPowerSchemes()
{
    return ReadWith(Operation::GetPowerSchemes, [](const Element& root) {
        agentRecords.schemes = ReadNames(root);
        if (mainView.showSchemes)
            mainView.showSchemes();
        return true;
    });
}

ReadResult ReadPolicies()
{
    return ReadWith(Operation::GetPolicies, [](const Element& root) {
        agentRecords.policies = ReadNames(root);
        return true;
    });
}

ReadResult ReadCurrentPowerSettings()
{
    const ReadResult result = ReadRecordInto(Operation::GetCurrentPowerSettings, agentRecords.currentScheme);
    if (result == ReadResult::Read && mainView.selectCurrentScheme)
        OnUi(mainView.selectCurrentScheme);
    return result;
}

ReadResult ReadBatteryInfo()
{
    return ReadWith(Operation::GetBatteryInfo, [](const Element& root) {
        const std::wstring before(agentRecords.battery.Status());
        agentRecords.battery = ReadBattery(root);
        agentRecords.noBattery = IsWord(agentRecords.battery.Status(), kNoBattery);
        if (mainView.showCharge)
            mainView.showCharge();
        if (agentRecords.battery.Status() != before && mainView.repaint)
            mainView.repaint();
        return true;
    });
}

ReadResult ReadPatchDetails()
{
    return ReadWith(Operation::GetPatchDetails, [](const Element&) { return true; });
}

ReadResult ReadInOrder(std::span<const Reader> reads)
{
    ReadResult result = ReadResult::Unreadable;
    for (const Reader read : reads) {
        result = read();
        if (result == ReadResult::Lost)
            break;
    }
    return result;
}

ReadResult ReadOrLose(std::span<const Reader> reads)
{
    const ReadResult result = ReadInOrder(reads);
    if (result == ReadResult::Lost)
        OnAgentLost();
    return result;
}

ReadResult ReadOrLose(Reader read)
{
    return ReadOrLose({&read, 1});
}

} // namespace voltaro
