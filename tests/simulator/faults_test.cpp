#include "simulator/faults.h"
#include "simulator/frame.h"

#include <gtest/gtest.h>

namespace voltaro::simulator {
namespace {

const Element kResponse{L"response", {}, {{L"details", {}, {TextElement(L"a", L"1"), TextElement(L"b", L"2")}}}};
const std::wstring kDocument
    = L"<?xml version=\"1.0\"?><vltp version=\"1.0\"><response><details><a>1</a><b>2</b></details></response></vltp>";

Delivery Faulted(const wchar_t* fault, const std::wstring* script = nullptr)
{
    const std::optional<Fault> parsed = ParseFault(fault);
    EXPECT_TRUE(parsed) << fault;
    return Deliver(kResponse, script, parsed.value_or(Fault{}));
}

std::wstring HeaderOf(const Delivery& delivery)
{
    return UnitsOf(delivery.bytes.substr(0, kHeaderBytes));
}

std::wstring TextOf(const Delivery& delivery)
{
    return UnitsOf(delivery.bytes.substr(kHeaderBytes, delivery.bytes.size() - kHeaderBytes - 2));
}

TEST(AgentFrameTest, LengthsInBytes)
{
    EXPECT_EQ(FrameOf(L""), BytesOf(std::wstring(L"00000018\0", 9)));
    EXPECT_EQ(BytesOf(L"\xE9\x20AC"), std::string("\xE9\x00\xAC\x20", 4));
    const std::pair<const wchar_t*, std::size_t> kCases[]
        = {{L"00000018", 18}, {L"00000218", 218}, {L"01048576", 1048576}, {L"01048578", 0}, {L"00000016", 0},
            {L"00000219", 0}, {L"     218", 0}, {L"-0000218", 0}, {L"0000218x", 0}, {L"0000218", 0}};
    for (const auto& [digits, length] : kCases)
        EXPECT_EQ(FrameLength(BytesOf(digits)), length) << digits;
}

TEST(AgentFaultTest, EveryKindDoesWhatItSays)
{
    EXPECT_EQ(Faulted(L"none").bytes, FrameOf(kDocument));
    // What is sent and its header; how it ends; the size of the pieces, the delay before and the pause between them.
    // clang-format off
    using enum Ending;
    const struct {
        const wchar_t* fault; std::size_t bytes; const wchar_t* header; Ending ending;
        std::size_t pieceSize = 0; int delayMs = 0, pauseMs = 0;
    } kCases[] = {
        {L"refuse", 0, L"", Reset}, {L"close", 0, L"", Close}, {L"silent", 0, L"", Hang},
        {L"close-mid-frame",     113, L"00000226", Close}, {L"close-mid-frame:20",   20, L"00000226", Close},
        {L"wrong-length",        226, L"00000290", Close}, {L"close-mid-frame:9999", 226, L"00000226", Close},
        {L"wrong-length:-26",    226, L"00000200", Close}, {L"wrong-length:-9999",   226, L"00000000", Close},
        {L"huge-length",         226, L"99999999", Close}, {L"late:30",      226, L"00000226", Orderly, 0, 30, 0},
        {L"Slow:50",    226, L"00000226", Orderly, 29, 0, 50}, {L"byte-by-byte", 226, L"00000226", Orderly, 1},
        {L"no-nul",              224, L"00000224", Orderly}, {L"garbage:41", 100, L"00000100", Orderly},
        {L"status:Not Activated", 216, L"00000216", Orderly},
    };
    // clang-format on
    for (const auto& row : kCases) {
        const Delivery sent = Faulted(row.fault);
        EXPECT_EQ(std::tuple(sent.bytes.size(), HeaderOf(sent)), std::tuple(row.bytes, row.header)) << row.fault;
        EXPECT_EQ(std::tuple(sent.pieceSize, sent.delayMs, sent.pauseMs),
            std::tuple(row.pieceSize, row.delayMs, row.pauseMs));
        EXPECT_EQ(sent.ending, row.ending) << row.fault;
    }
    for (const wchar_t* unknown : {L"", L"explode", L"slo", L":5"})
        EXPECT_FALSE(ParseFault(unknown)) << unknown;
}

TEST(AgentFaultTest, ChangesTheDocument)
{
    const auto has = [](const wchar_t* fault, const wchar_t* part) {
        EXPECT_NE(TextOf(Faulted(fault)).find(part), std::wstring::npos) << fault << part;
    };
    EXPECT_EQ(TextOf(Faulted(L"not-well-formed")), kDocument.substr(0, kDocument.size() - 12));
    has(L"status:License Expired",
        L"<vltp version=\"1.0\"><response><status>License Expired</status></response></vltp>");
    has(L"long-texts:5", L"<a>1xxxx</a><b>2xxxx</b>");
    has(L"many-elements:4", L"<a>1</a><b>2</b><b>2</b><b>2</b></details><details><a>1</a><b>2</b></details>");
    has(L"doctype", L"<?xml version=\"1.0\"?><!DOCTYPE vltp [<!ENTITY e0 ");
    has(L"doctype", L"]><vltp version=\"1.0\"><response><details><a>1&e5;</a>");
    has(L"few-elements", L"<details><a>1</a></details>");
    has(L"unknown-words", L"<a>Perhaps</a><b>Perhaps</b>");
    has(L"foreign-texts", L"<b>2 \x00DF\x03A9\x0416\x05D0\x4E3C\xD83D\xDD0B</b>");
    has(L"fill:228", L"<b>2x</b>");
    EXPECT_EQ(Faulted(L"fill").bytes.size(), 700u);
    const std::wstring script = L"any & thing";
    EXPECT_EQ(TextOf(Faulted(L"none", &script)), script);
    EXPECT_EQ(TextOf(Faulted(L"long-texts", &script)), script); // a script has no elements to grow
}

} // namespace
} // namespace voltaro::simulator
