#include "simulator/options.h"

#include "base/text.h"
#include "simulator/operations.h"

namespace voltaro::simulator {
namespace {

bool ParseFaultOption(Options& options, std::wstring_view value)
{
    const std::size_t equals = value.find(L'=');
    if (equals == std::wstring_view::npos)
        return false;
    const std::wstring_view operation = value.substr(0, equals);
    const std::optional<Fault> fault = ParseFault(value.substr(equals + 1));
    if (!fault || (operation != L"*" && FindOperation(operation) == nullptr))
        return false;
    options.faults.push_back({std::wstring(operation), *fault});
    return true;
}

bool ParseOption(Options& options, std::wstring_view name, std::wstring_view value)
{
    if (name == L"--port") {
        options.port = LeadingNumber(value);
        return options.port > 0 && options.port < 65536 && NumberText(options.port) == value;
    }
    if (name == L"--log") {
        options.log = value;
        return !value.empty();
    }
    if (name == L"--scenario") {
        options.scenario = FindScenario(value);
        return options.scenario != nullptr;
    }
    return name == L"--fault" && ParseFaultOption(options, value);
}

} // namespace

std::optional<Options> ParseOptions(std::span<const wchar_t* const> arguments)
{
    Options options;
    for (std::size_t i = 0; i < arguments.size(); i += 2) {
        if (i + 1 == arguments.size() || !ParseOption(options, arguments[i], arguments[i + 1]))
            return std::nullopt;
    }
    return options;
}

std::wstring UsageText()
{
    std::wstring text = L"AgentSimulator [--port N] [--log FILE] [--fault OPERATION=KIND[:ARGUMENT]]... "
                        L"[--scenario NAME]\n\nScenarios:\n";
    for (const Scenario& scenario : Scenarios())
        text += Format(L"  %-16ls %ls\n", scenario.name, scenario.what);
    text += L"\nFault kinds; OPERATION * is every operation:\n";
    for (const FaultInfo& fault : FaultInfos())
        text += Format(L"  %-16ls %ls\n", fault.name, fault.what);
    return text;
}

} // namespace voltaro::simulator
