#include "simulator/faults.h"

#include "simulator/frame.h"

#include <gtest/gtest.h>

namespace voltaro::simulator {
namespace {

const Element kResponse{L"response", {}, {{L"details", {}, {TextElement(L"a", L"1"), TextElement(L"b", L"2")}}}};
const std::wstring kDocument
    = L"<?xml version=\"1.0\"?><vltp version=\"1.0\"><response><details><a>1</a><b>2</b></details></response></vltp>";

std::wstring TextOf(const wchar_t* fault, const std::wstring* script = nullptr)
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

} // namespace
} // namespace voltaro::simulator
