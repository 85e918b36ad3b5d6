#pragma once

#include "link/element.h"
#include "simulator/calendar.h"
#include "simulator/scenario.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace voltaro::simulator {

// A real machine in place of the simulated one, for what can be asked without changing it.
struct LiveMachine {
    Element (*battery)(); // the whole `response`
    Element (*details)(); // as SystemDetails gives them
    std::wstring (*hostName)();
};

// The state of the simulated machine. Records are kept as the `details` element that carries them, so what was set is
// read back as it came.
struct MachineState {
    Scenario scenario;
    License license;
    std::wstring activationKey;
    std::int64_t pausedUntil = 0; // seconds of the machine's clock
    std::wstring activeScheme{};
    std::vector<Element> schemes{}; // each a `details` of the 21 settings
    std::vector<Element> policies;  // each a `details` of `PolicyName` and `AppNo_1`...
    Element snooze, proxy, host, device;
    Element consumption, manualConsumption, autoConsumption; // the one in force and the two to choose from
    Element jobs;
    Element battery;                     // the whole `response`
    const LiveMachine* live = nullptr;   // answers in place of the simulated battery, details and host name
    std::wstring pendingAction{};        // the power action that waits for "success" or "failure"
    std::vector<std::wstring> actions{}; // power actions carried out, in order
};

// What became of a request.
struct Outcome {
    std::wstring operation; // empty when the document did not say
    std::wstring complaint; // why it was refused; empty when it was granted
    Element response;
};

// The believable machine behind the agent: pure data, no clock of its own but the one given, no sockets.
class Machine {
public:
    explicit Machine(const Scenario& scenario = DefaultScenario(), Clock clock = LocalClock);

    // Answers one request document. A wrong one (not well-formed, wrong envelope, unknown operation, elements missing,
    // too many, out of order or with an impossible value) gets the status "Failure" with a message, and changes
    // nothing.
    [[nodiscard]] Outcome Answer(std::wstring_view requestText);
    // Answers the `request` element of a document.
    [[nodiscard]] Outcome Answer(const Element& request);

    // For tests: read it, or set up what a test needs.
    [[nodiscard]] MachineState& State() { return m_state; }
    [[nodiscard]] const MachineState& State() const { return m_state; }
    [[nodiscard]] DateTime Now() const { return m_clock(); }

private:
    MachineState m_state;
    Clock m_clock;
};

} // namespace voltaro::simulator
