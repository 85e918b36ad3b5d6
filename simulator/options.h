#pragma once

#include "simulator/faults.h"
#include "simulator/scenario.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace voltaro::simulator {

// The command line of the program.
struct Options {
    struct OperationFault {
        std::wstring operation; // "*": every operation without a fault of its own
        Fault fault;
    };
    int port = 4916;
    std::wstring log; // empty: none
    std::vector<OperationFault> faults;
    const Scenario* scenario = &DefaultScenario();
};

// The arguments without the program's name. Nothing for an unknown option, scenario, operation or fault kind.
[[nodiscard]] std::optional<Options> ParseOptions(std::span<const wchar_t* const> arguments);

// What the program's `--help` prints.
[[nodiscard]] std::wstring UsageText();

} // namespace voltaro::simulator
