// The link from several threads at once, for the race detector: every thread reads what one alone reads.
#include "base/platform_calls.h"
#include "link/exchange.h"
#include "link/host_config.h"
#include "simulator/server.h"
#include "simulator/this_machine.h"
#include "simulator/xml.h"

#include <csignal>
#include <iostream>
#include <vector>

namespace voltaro {

// In the place of the platform's document.
std::optional<Element> ParseAnswer(const wchar_t* text)
{
    simulator::XmlDocument document = simulator::ParseXml(text);
    return document.error.empty() ? std::optional(std::move(document.root)) : std::nullopt;
}
std::optional<FieldText> SerialiseRequest(const Element& request)
{
    return simulator::ReplyText(request);
}
std::wstring NewMessageId()
{
    return L"{00000000-0000-0000-0000-000000000000}";
}
const simulator::LiveMachine& simulator::ThisMachine()
{
    std::abort(); // no scenario of the test asks
}

namespace {

const Request kRequests[] = {WithText(Operation::GetSystemDetails, L"type", L"Refresh"),
    Plain(Operation::GetPowerSchemes), Plain(Operation::GetPolicies), Plain(Operation::GetCurrentPowerSettings),
    Plain(Operation::GetBatteryInfo), Plain(Operation::PauseStatus)};
std::vector<Element> expected;

// Begins with another request in each thread, so that they meet at all of them.
void ReadAll(std::size_t thread, std::size_t rounds)
{
    for (std::size_t i = thread; i < thread + rounds * std::size(kRequests); ++i) {
        const std::size_t request = i % std::size(kRequests);
        Reply reply = Exchange(kRequests[request]);
        if (reply.Root() == nullptr || *reply.Root() != expected[request]) {
            std::cerr << "thread " << thread << " reads otherwise\n";
            std::_Exit(1);
        }
    }
}

} // namespace
} // namespace voltaro

int main()
{
    using namespace voltaro;
    std::signal(SIGPIPE, SIG_IGN);
    simulator::AgentServer agent;
    if (!agent.Start())
        return 1;
    servicePort = agent.Port();
    for (const Request& request : kRequests)
        expected.push_back(*Exchange(request).Root());
    agent.SetFault(L"GetBatteryInfo", *simulator::ParseFault(L"pieces"));
    std::vector<std::jthread> threads;
    for (std::size_t thread = 0; thread < 4; ++thread)
        threads.emplace_back(ReadAll, thread, 50U);
}
