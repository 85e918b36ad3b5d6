// Benchmarks against the simulated agent: ratios of medians of interleaved rounds. The exit code is the verdict.
#include "measure.h"

#include "base/com_apartment.h"
#include "link/host_config.h"
#include "simulator/server.h"
#include "support/installation.h"

#include <cstdio>
#include <cstring>

int main(int count, char** arguments)
{
    using namespace voltaro;
    if (count > 1 && std::strcmp(arguments[1], "--skeleton") == 0)
        return bench::RunSkeleton();
    EnterComApartment();
    simulator::AgentServer agent;
    if (!agent.Start())
        return 2;
    servicePort = agent.Port();
    Install(L"voltaro_bench", agent.Port());
    const double bareExchange = bench::MeasureRequests();
    bench::MeasureAnswers();
    bench::MeasureListFill();
    bench::MeasureProgram(agent, bareExchange);
    bench::MeasureGraph(); // last: no console starts beside these windows
    std::puts(bench::IsWithinLimits() ? "All within their limits." : "Not all are within their limits.");
    return bench::IsWithinLimits() ? 0 : 1;
}
