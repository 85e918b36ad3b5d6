#pragma once

#include <span>
#include <string_view>
#include <utility>

namespace voltaro {

// Whether the machine can stand by and hibernate, which decides what the scheme editor offers.
struct PowerCapabilities {
    bool standby = true;
    bool hibernate = true;
};

// From the fields of the power capabilities, pairs of name and value. A capability counts as there unless the fields
// that name it all deny it ("No", "False", "Not Supported"); field names differ from agent to agent.
[[nodiscard]] PowerCapabilities ReadPowerCapabilities(
    std::span<const std::pair<std::wstring_view, std::wstring_view>> fields);

} // namespace voltaro
