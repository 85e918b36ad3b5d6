#pragma once

#include "console/agent.h"

#include <cstdint>
#include <functional>
#include <span>

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
ReadResult ReadPatchDetails();         // asked at the load; nothing of the answer is used

// Sends a plain request and hands the answer's tree, when it has one, to `apply` on the user-interface thread; `apply`
// says whether it could be read.
ReadResult ReadWith(Operation operation, const std::function<bool(const Element& root)>& apply);

// Reads the record of an answer. A readable answer without one is none: no window can send a blank record back.
template <class Record>
ReadResult ReadRecordInto(Operation operation, Record& record)
{
    return ReadWith(operation, [&record](const Element& root) {
        const auto read = ReadRecord<Record>(root);
        if (read)
            record = *read;
        return read.has_value();
    });
}

// Reads in order until a reader finds the agent lost; gives what became of the last read.
[[nodiscard]] ReadResult ReadInOrder(std::span<const Reader> reads);

// The same for a window that has no words of its own for a lost agent: OnAgentLost is called then.
ReadResult ReadOrLose(std::span<const Reader> reads);
ReadResult ReadOrLose(Reader read);

} // namespace voltaro
