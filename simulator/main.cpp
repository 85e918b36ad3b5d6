// AgentSimulator.exe: the agent for trying and showing the console without a service.

#include "base/ansi.h"
#include "base/text.h"
#include "simulator/operations.h"
#include "simulator/server.h"

#include <cstdio>
#include <cwchar>

namespace voltaro::simulator {
namespace {

constexpr int kDefaultPort = 4916;
constexpr int kCannotListen = 1;
constexpr int kBadUsage = 2;

struct FaultOption {
    std::wstring operation;
    Fault fault;
};
struct Options {
    int port = kDefaultPort;
    std::wstring log;
    std::vector<FaultOption> faults;
    const Scenario* scenario = &DefaultScenario();
};

void Say(std::FILE* to, const std::wstring& text)
{
    std::fputs(Narrowed(text).c_str(), to);
    std::fflush(to);
}

int Usage()
{
    std::wstring text = L"AgentSimulator [--port N] [--log FILE] [--fault OPERATION=KIND[:ARGUMENT]]... "
                        L"[--scenario NAME]\n\nScenarios:\n";
    for (const Scenario& scenario : Scenarios())
        text += Format(L"  %-14ls %ls\n", scenario.name, scenario.what);
    text += L"\nFault kinds (operation \"*\" is every operation):\n ";
    for (const wchar_t* name : FaultNames())
        text += std::wstring(L" ") + name;
    Say(stderr, text + L"\n");
    return kBadUsage;
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
    const std::size_t equals = value.find(L'=');
    if (name != L"--fault" || equals == std::wstring_view::npos)
        return false;
    const std::wstring_view operation = value.substr(0, equals);
    const std::optional<Fault> fault = ParseFault(value.substr(equals + 1));
    if (!fault || FindOperation(operation) == nullptr)
        return false;
    options.faults.push_back({std::wstring(operation), *fault});
    return true;
}

struct FileTraits {
    using Handle = std::FILE*;
    static Handle Invalid() { return nullptr; }
    static void Close(Handle file) { std::fclose(file); }
};

HANDLE endEvent = nullptr; // lent to the console handler, which runs on a thread of its own

BOOL WINAPI OnConsoleControl(DWORD)
{
    SetEvent(endEvent);
    return TRUE;
}

int Run(const Options& options)
{
    Unique<FileTraits> log;
    if (!options.log.empty()) {
        log = Unique<FileTraits>(_wfopen(options.log.c_str(), L"ab"));
        if (!log) {
            Say(stderr, L"The log file cannot be written.\n");
            return kBadUsage;
        }
    }
    AgentServer server(*options.scenario, [&log](std::wstring_view line) {
        if (!log)
            return;
        std::fprintf(log.Get(), "%s\r\n", Narrowed(line).c_str());
        std::fflush(log.Get());
    });
    for (const FaultOption& option : options.faults)
        server.SetFault(option.operation, option.fault);
    const UniqueHandle ended(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    endEvent = ended.Get();
    SetConsoleCtrlHandler(OnConsoleControl, TRUE);
    if (!server.Start(options.port)) {
        Say(stderr, Format(L"Port %d of 127.0.0.1 cannot be listened on.\n", options.port));
        return kCannotListen;
    }
    Say(stdout,
        Format(L"Agent simulator listening on 127.0.0.1:%d, scenario %ls\n", server.Port(), options.scenario->name));
    WaitForSingleObject(ended.Get(), INFINITE);
    server.Stop();
    return 0;
}

} // namespace
} // namespace voltaro::simulator

int wmain(int count, wchar_t** arguments)
{
    using namespace voltaro::simulator;
    Options options;
    for (int i = 1; i < count; i += 2) {
        if (i + 1 == count || !ParseOption(options, arguments[i], arguments[i + 1]))
            return Usage();
    }
    return Run(options);
}
