// Requests to the simulated agent and the reading of their answers.
#include "measure.h"

#include "base/handles.h"
#include "base/text.h"
#include "link/document.h"
#include "link/exchange.h"
#include "link/frame.h"
#include "link/host_config.h"
#include "link/system_details.h"
#include "savings/shown_day.h"

#include "simulator/server.h"
#include "simulator/xml.h"

#include <cstdio>

namespace voltaro::bench {
namespace {

// The same bytes over a connection of their own, with nothing around them.
void BareExchange(std::span<const std::byte> frame)
{
    WSADATA data{};
    WSAStartup(MAKEWORD(2, 2), &data);
    {
        const UniqueSocket socket(::socket(AF_INET, SOCK_STREAM, IPPROTO_TCP));
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = inet_addr("127.0.0.1");
        address.sin_port = htons(static_cast<u_short>(servicePort));
        if (connect(socket.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
            return;
        send(socket.Get(), reinterpret_cast<const char*>(frame.data()), static_cast<int>(frame.size()), 0);
        FrameAssembler assembler(300'000);
        std::vector<std::byte> piece(300'000);
        for (auto state = FrameAssembler::State::NeedMore; state == FrameAssembler::State::NeedMore;) {
            const int count
                = recv(socket.Get(), reinterpret_cast<char*>(piece.data()), static_cast<int>(assembler.Wanted()), 0);
            if (count <= 0)
                break;
            state = assembler.Take(std::span(piece).first(static_cast<std::size_t>(count)));
        }
        shutdown(socket.Get(), SD_BOTH);
    }
    WSACleanup();
}

SystemDetails details;

void ReadDetails(const std::wstring& text)
{
    const std::optional<Element> root = ParseAnswer(text.c_str());
    details.Read(root ? &*root : nullptr);
}

// The large answer, its groups cut to about so many bytes.
std::wstring DetailsOf(std::size_t bytes, const std::wstring& large)
{
    const std::optional<Element> root = ParseAnswer(large.c_str());
    Element response = root ? root->children.at(0) : Element();
    for (Element& section : response.children.at(0).children) {
        if (!section.children.empty() && !section.children[0].children.empty())
            section.children.resize(section.children.size() * bytes / (large.size() * kBytesPerUnit));
    }
    return simulator::ReplyText(response);
}

std::wstring EventAnswer(std::size_t count)
{
    std::wstring answer = L"<vltp version=\"1.0\"><response><details>";
    for (const EventLine& line : LongDay(count))
        answer.append(L"<Event>").append(line.view()).append(L"</Event>"); // as the simulated agent names them
    return answer + L"</details></response></vltp>";
}

void ReadEvents(const std::wstring& answer)
{
    DayReport report;
    const auto root = ParseAnswer(answer.c_str());
    static_cast<void>(ReadDayAnswer(root ? &*root : nullptr, answer, kLongDayNow, report));
}

} // namespace

std::vector<EventLine> LongDay(std::size_t count)
{
    constexpr const wchar_t* kCodes[] = {L"Istime", L"Dstime", L"Detime", L"Mstime", L"Metime", L"Ietime"};
    std::vector<EventLine> lines;
    for (std::size_t i = 0; i < count; ++i) {
        const int second = static_cast<int>(i * 86'400 / count);
        lines.emplace_back(
            Format(L"%ls # 2026/11/20 %02d:%02d:%02d", kCodes[i % 6], second / 3600, second / 60 % 60, second % 60));
    }
    return lines;
}

double MeasureRequests()
{
    const Request request = Plain(Operation::GetCurrentPowerSettings);
    const auto text = SerialiseRequest(RequestElement(request, NewMessageId()));
    const WipedBytes frame = EncodeFrame(text.value_or(FieldText()), 100'000);
    const Work console = [&] {
        if (!Exchange(request).Read<PowerSchemeSettings>())
            std::puts("no answer");
    };
    const auto medians = Medians({console, [&] { BareExchange(frame); }}, 300);
    JudgeRatio("one request: build, exchange, read / bare exchange", medians[0], medians[1], 1.6);
    return medians[1];
}

void MeasureAnswers()
{
    constexpr double kLimit = 1.1;
    simulator::AgentServer agent(*simulator::FindScenario(L"large"));
    if (!agent.Start())
        return;
    servicePort = agent.Port();
    const std::wstring large(Exchange(Plain(Operation::GetSystemDetails)).Text().view());
    const std::wstring day = EventAnswer(kMaxEventLines);
    const auto medians = Medians({[&] { ReadDetails(large); }, [&] { ReadBare(large, L"//*[not(*)]"); },
                                     [&] { ReadEvents(day); }, [&] { ReadBare(day, L"//details/*"); }},
        41);
    JudgeRatio("system details of 280 kB / the document's own calls", medians[0], medians[1], kLimit);
    JudgeRatio("3,010 event lines and their walk / the document's own calls", medians[2], medians[3], kLimit);

    JudgeGrowth("request and answer by kB", {10, 40, 160, 280}, [&](std::size_t size) -> Work {
        return [&, answer = DetailsOf(size * 1'000, large)] {
            agent.ScriptReply(L"GetSystemDetails", answer);
            details.Read(Exchange(Plain(Operation::GetSystemDetails)).Root());
        };
    });
    JudgeGrowth("a day by event lines", {100, 300, 1'000, 3'010},
        [](std::size_t count) -> Work { return [answer = EventAnswer(count)] { ReadEvents(answer); }; });
}

} // namespace voltaro::bench
