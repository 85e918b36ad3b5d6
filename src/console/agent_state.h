#pragma once

#include "console/agent.h"
#include "console/state.h"

namespace voltaro {

// What became of a read.
enum class ReadResult : std::uint8_t {
    Read,
    Unreadable, // the answer holds no record that can be read, or the request could not be sent: what was held stays
    Lost,       // the agent does not answer
};
using Reader = ReadResult (*)();

// Reads of the agent's state that more than one window or worker makes. Each sends its request, and puts what a
// readable answer holds into the process-wide state, on the user-interface thread, whatever thread it was called on.
// What to do about a lost agent is the caller's.
ReadResult ReadPowerSchemes(); // names, in the order received; also fills the main window's scheme list
ReadResult ReadPolicies();
ReadResult ReadCurrentPowerSettings(); // also selects the scheme in the main window's list
ReadResult ReadBatteryInfo();          // shows the charge; repaints the main window when the status text changed
ReadResult ReadHostSettings();
ReadResult ReadProxySettings();
ReadResult ReadCurrentConsumption();
ReadResult ReadPatchDetails(); // asked at the load; nothing of the answer is used

// Makes a read for a window that has no words of its own for a lost agent: OnAgentLost is called then.
ReadResult ReadOrLose(Reader read);

} // namespace voltaro
