// AgentSimulator.exe: the agent for trying and showing the console without a service.

#include "base/ansi.h"
#include "base/text.h"
#include "simulator/options.h"
#include "simulator/server.h"

#include <cstdio>

namespace voltaro::simulator {
namespace {

constexpr int kCannotListen = 1;
constexpr int kBadUsage = 2;

void Say(std::FILE* to, const std::wstring& text)
{
    std::fputs(Narrowed(text).c_str(), to);
    std::fflush(to);
}

struct FileTraits {
    using Handle = std::FILE*;
    static Handle Invalid() { return nullptr; }
    static void Close(Handle file) { std::fclose(file); }
};

HANDLE endEvent = nullptr; // for the console handler, which runs on a thread of its own

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
    for (const Options::OperationFault& option : options.faults)
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
    const std::optional<Options> options
        = ParseOptions(std::span<const wchar_t* const>(arguments, static_cast<std::size_t>(count)).subspan(1));
    if (options)
        return Run(*options);
    Say(stderr, UsageText());
    return kBadUsage;
}
