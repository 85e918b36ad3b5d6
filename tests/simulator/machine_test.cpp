#include "simulator/machine.h"

#include <gtest/gtest.h>

namespace voltaro::simulator {

const std::wstring kId = L"<MessageId>{0123ABCD-4567-89EF-0123-456789ABCDEF}</MessageId>";

static std::wstring Document(const std::wstring& inside)
{
    return L"<?xml version=\"1.0\"?>\r\n<vltp version=\"1.0\">\n\t<request>" + inside + L"\n\t</request>\n</vltp>\r\n";
}

static std::wstring Request(const std::wstring& operation, const std::wstring& body = {})
{
    return Document(kId + L"<operation>" + operation + L"</operation>" + body);
}

TEST(AgentMachineTest, RefusesWrongRequests)
{
    const std::wstring good = Request(L"Pause", L"<duration>3</duration>"), declared = good.substr(0, 21);
    Machine machine(*FindScenario(L"battery"), [] { return DateTime{2026, 11, 21, 43200}; });
    EXPECT_EQ(ChildText(machine.Answer(good).response, 0), L"Success");
    for (const std::wstring& wrong : {std::wstring(), good.substr(23), declared + L"<vltp><request/></vltp>",
             declared + L"<vltp version=\"1.0\"><a/></vltp>", Document(L"<a>Pause</a>" + kId),
             Document(L"<MessageId>{0123abcd-4567-89EF-0123-456789ABCDEF}</MessageId><operation>Resume</operation>"),
             Request(L"resume"), Request(L"Pause"), Request(L"Resume", L"<x/>"),
             Request(L"Pause", L"<duration>6</duration>"), Request(L"Pause", L"<duration><x/></duration>"),
             Request(L"logoff", L"<monitoroff>1</monitoroff>"), Request(L"success"),
             Request(L"GetVLTEvents", L"<fordate>22112026</fordate>"),
             Request(L"CreatePolicy", L"<details><PolicyName>P</PolicyName></details>"),
             Request(L"ApplySchedulerSettings", L"<details>x</details>"),
             Request(L"ApplySchedulerSettings", L"<details><Job_2/></details>")}) {
        const Outcome outcome = machine.Answer(wrong);
        EXPECT_TRUE(ChildText(outcome.response, 0) == L"Failure" && !outcome.complaint.empty()) << wrong;
    }
}

} // namespace voltaro::simulator
