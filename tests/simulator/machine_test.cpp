#include "simulator/machine.h"

#include "simulator/faults.h"
#include "simulator/frame.h"

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

const Element kResponse{L"response", {}, {{L"details", {}, {TextElement(L"a", L"1"), TextElement(L"b", L"2")}}}};
const std::wstring kDocument
    = L"<?xml version=\"1.0\"?><vltp version=\"1.0\"><response><details><a>1</a><b>2</b></details></response></vltp>";

static std::wstring TextOf(const wchar_t* fault, const std::wstring* script = nullptr)
{
    const std::string bytes = Deliver(kResponse, script, ParseFault(fault).value()).bytes;
    return UnitsOf(bytes.substr(kHeaderBytes, bytes.size() - kHeaderBytes - 2));
}

TEST(AgentFaultTest, ChangesTheDocument)
{
    const auto has = [](const wchar_t* fault, const wchar_t* part) {
        EXPECT_NE(TextOf(fault).find(part), std::wstring::npos) << fault << part;
    };
    EXPECT_EQ(TextOf(L"not-well-formed"), kDocument.substr(0, kDocument.size() - 12));
    has(L"status:License Expired",
        L"<vltp version=\"1.0\"><response><status>License Expired</status></response></vltp>");
    has(L"long-texts:5", L"<a>1xxxx</a><b>2xxxx</b>");
    has(L"many-elements:4", L"<a>1</a><b>2</b><b>2</b><b>2</b></details><details><a>1</a><b>2</b></details>");
    has(L"entities", L"<?xml version=\"1.0\"?><!DOCTYPE vltp [<!ENTITY e0 ");
    has(L"entities", L"]><vltp version=\"1.0\"><response><details><a>1&e5;</a>");
    has(L"external:http://x", L"<!DOCTYPE vltp SYSTEM \"http://x\" [<!ENTITY x SYSTEM \"http://x\">");
    has(L"deep:2", L"<a>1<a><a></a></a></a>");
    has(L"wide:2", L"<a>1<a/><a/></a>");
    has(L"foreign-texts", L"<b>2 \x00DF\x03A9\x0416\x05D0\x4E3C\xD83D\xDD0B</b>");
    has(L"fill:228", L"<b>2x</b>");
    EXPECT_EQ(TextOf(L"fill").size(), (700u - 18) / 2);
    const std::wstring script = L"any & thing";
    EXPECT_EQ(TextOf(L"none", &script), script);
}

} // namespace voltaro::simulator
