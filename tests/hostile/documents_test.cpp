#include "link/document.h"
#include "power/policy_window.h"
#include "simulator/frame.h"
#include "soak/held.h"
#include "support/installation.h"
#include "support/program.h"

namespace voltaro {
namespace {

// Faults that make documents.
constexpr const wchar_t* kDocuments[] = {L"text:empty", L"text:Failure", L"prefix", L"prefix: ", L"garbage:1000",
    L"not-well-formed", L"insert", L"insert:&#1;", L"insert:&unknown;", L"insert:<![CDATA[<&]]><!-- -- -->",
    L"entities:1", L"entities", L"external:\\\\.\\pipe\\voltaro_elsewhere", L"external:http://127.0.0.1:",
    L"references:\\\\.\\pipe\\voltaro_elsewhere", L"references:http://127.0.0.1:", L"deep", L"wide", L"wide:30",
    L"root", L"few-elements:0", L"few-elements", L"long-texts:20000", L"long-texts:300", L"texts:%s%n%S%x%99999999d",
    L"texts:-1", L"many-elements:3011", L"many-elements:20", L"foreign-texts", L"status"};

// Commands of windows that read something, and a button there that reads more.
struct Opening {
    int command;
    WindowId window = WindowId::Main;
    const wchar_t* button = nullptr;
};
constexpr Opening kOpenings[] = {{kSystemInfo}, {kBatteryInfo}, {kPorts}, {kProxy}, {kSecurity}, {kSnooze}, {kActivate},
    {kAbout}, {kPowerScheme, WindowId::SchemeProcessor, L"Edit"}, {kJobScheduler, WindowId::JobList, L"Modify Job.."},
    {kSavingsReport, WindowId::Savings, L"&Power Consumption Settings"}};

TEST(HostileDocumentTest, EveryDocumentInEveryWindow)
{
    ConsoleProgram program;
    platformCalls.showMessageBox
        = [](const BoxCall& call) { return call.buttons == BoxButtons::Ok ? Answer::Ok : Answer::Yes; };
    simulator::AgentServer elsewhere;
    ASSERT_TRUE(elsewhere.Start());
    const UniqueFile pipe(CreateNamedPipeW(
        L"\\\\.\\pipe\\voltaro_elsewhere", PIPE_ACCESS_DUPLEX, PIPE_TYPE_BYTE | PIPE_NOWAIT, 1, 100, 100, 0, nullptr));
    const auto isUntouched
        = [&] { return !ConnectNamedPipe(pipe.Get(), nullptr) && GetLastError() == ERROR_PIPE_LISTENING; };
    ASSERT_TRUE(isUntouched());
    for (std::size_t i = 0; i < std::size(kDocuments); i += IsLongRun() ? 1 : 4) {
        std::wstring document = kDocuments[i];
        SCOPED_TRACE(document);
        if (document.ends_with(L":"))
            document += std::to_wstring(elsewhere.Port()) + L"/x";
        program.Agent().SetFault(L"*", *simulator::ParseFault(document));
        for (const wchar_t* check : {L"GetSystemstatus", L"GetActivationstatus"}) // or no window would open
            program.Agent().SetFault(check, *simulator::ParseFault(L"late:0"));
        program.Load();
        connection.connected = true;
        OpenPolicy(L"Presentations"); // whatever the list of policies holds
        for (const auto& [command, window, button] : kOpenings) {
            connection.connected = true;
            program.MainCommand(command);
            if (button) {
                SelectRow(FindWindowExW(WindowOf(window), nullptr, WC_LISTVIEWW, nullptr), 0);
                SendMessageW(Labelled(WindowOf(window), button), BM_CLICK, 0, 0);
            }
            CloseAbout();
            for (std::size_t open = windowHandles.size(); --open > 0;)
                SendMessageW(windowHandles[open], WM_CLOSE, 0, 0);
        }
        EXPECT_TRUE(elsewhere.Requests().empty() && isUntouched());
    }
    program.Agent().ClearFaults();
    program.Load();
    EXPECT_TRUE(connection.connected && program.IsMainFree());
}

TEST(HostileDocumentTest, MemoryStaysInProportionToTheAnswer)
{
    const auto used = [] { return static_cast<std::size_t>(PrivateBytes(GetCurrentProcess())); };
    const Element details{
        L"details", {}, std::vector<Element>(3, TextElement(L"Event", L"Istime # 2024/02/29 10:15:00"))};
    const auto deliver = [&](const simulator::Fault& fault) {
        return simulator::Deliver({L"response", {}, {details}}, nullptr, fault).bytes;
    };
    for (const wchar_t* document : kDocuments) {
        const std::string bytes = deliver(*simulator::ParseFault(document));
        EXPECT_NE(bytes, deliver({})) << document;
        const std::wstring text = simulator::UnitsOf(bytes).substr(8);
        static_cast<void>(ParseAnswer(text.c_str())); // what the platform keeps
        const std::size_t before = used();
        std::atomic<std::size_t> peak = before;
        std::jthread sampler([&](const std::stop_token& stop) {
            while (!stop.stop_requested())
                peak = std::max(peak.load(), used());
        });
        for (int i = 0; i < 5; ++i)
            static_cast<void>(ParseAnswer(text.c_str()));
        sampler = {};
        EXPECT_LE(peak - before, 4 * bytes.size() + (16U << 20)) << document;
    }
}

} // namespace
} // namespace voltaro
