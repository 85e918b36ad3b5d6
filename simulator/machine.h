#pragma once

#include "link/element.h"
#include "simulator/calendar.h"
#include "simulator/scenario.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace voltaro::simulator {

// The state of the simulated machine. Records are kept as the `details` element that carries them, so what was set is
// read back as it came.
struct MachineState {
    Scenario scenario;
    Licence licence;
    std::wstring activationKey;
    std::int64_t pausedUntil = 0; // seconds of the machine's clock
    std::wstring activeScheme;
    std::vector<Element> schemes;  // each a `details` of the 21 settings
    std::vector<Element> policies; // each a `details` of `PolicyName` and `AppNo_1`...
    Element snooze, proxy, host, consumption, manualConsumption, device;
    Element jobs;
    std::wstring pendingAction;        // the power action that waits for "success" or "failure"
    std::vector<std::wstring> actions; // power actions carried out, in order
};

// A request as far as it could be made out.
struct RequestOutcome {
    std::wstring operation; // empty when the document did not say
    std::wstring complaint; // what is wrong with the request; empty when it was answered in earnest
    Element response;
};

// The believable machine behind the agent: pure data, no clock of its own but the one given, no sockets.
class Machine {
public:
    explicit Machine(const Scenario& scenario = DefaultScenario(), Clock clock = LocalClock);

    // Answers one request document. A wrong one (not well-formed, wrong envelope, unknown operation, elements missing,
    // too many, out of order or with an impossible value) gets the status "Failure" with a message, and changes
    // nothing.
    [[nodiscard]] RequestOutcome Answer(std::wstring_view requestText);
    // Answers a `request` element.
    [[nodiscard]] RequestOutcome Answer(const Element& request);

    // For tests: read it, or set up what a test needs.
    [[nodiscard]] MachineState& State() { return m_state; }
    [[nodiscard]] const MachineState& State() const { return m_state; }
    [[nodiscard]] DateTime Now() const { return m_clock(); }

private:
    MachineState m_state;
    Clock m_clock;
};

// `response` with a status and, unless empty, a message after it.
[[nodiscard]] Element StatusResponse(std::wstring_view status, std::wstring_view message = {});

} // namespace voltaro::simulator
