#include "link/frame.h"

#include <gtest/gtest.h>

#include <cstring>

namespace voltaro {
namespace {

// A frame with any length digits, as bytes of UTF-16LE.
WipedBytes Frame(const std::wstring& digits, const std::wstring& text, bool nul = true)
{
    WipedBytes bytes;
    for (const wchar_t unit : digits + text + (nul ? std::wstring(1, L'\0') : std::wstring())) {
        bytes.push_back(static_cast<std::byte>(unit & 0xFF));
        bytes.push_back(static_cast<std::byte>(unit >> 8));
    }
    return bytes;
}

FrameAssembler::State TakeInPieces(FrameAssembler& assembler, const WipedBytes& bytes, std::size_t size)
{
    auto state = FrameAssembler::State::NeedMore;
    for (std::size_t at = 0; at < bytes.size() && state == FrameAssembler::State::NeedMore;) {
        const std::size_t count = std::min({size, assembler.Wanted(), bytes.size() - at});
        state = assembler.Take(std::span(bytes).subspan(at, count));
        at += count;
    }
    return state;
}

TEST(FrameTest, EncodesLengthTextAndNul)
{
    EXPECT_EQ(EncodeFrame(L"", 1024), Frame(L"00000018", L""));
    EXPECT_EQ(EncodeFrame(std::wstring(100, L'x'), 1024), Frame(L"00000218", std::wstring(100, L'x')));
    EXPECT_EQ(EncodeFrame(L"\x20AC", 1024), Frame(L"00000020", L"\x20AC"));
    EXPECT_EQ(EncodeFrame(std::wstring(600, L'x'), 1024), Frame(L"00001024", std::wstring(503, L'x')));
    const wchar_t pair[] = {0xD83D, 0xDE00, L'\0'};
    EXPECT_EQ(EncodeFrame(std::wstring(502, L'x') + pair, 1024), Frame(L"00001022", std::wstring(502, L'x')));
}

TEST(FrameTest, JoinsPiecesOfAnySize)
{
    const std::wstring text = L"<a>\x20AC tail</a>";
    for (std::size_t size = 1; size <= 60; ++size) {
        FrameAssembler assembler(700);
        EXPECT_EQ(TakeInPieces(assembler, Frame(L"00000044", text), size), FrameAssembler::State::Complete) << size;
        EXPECT_EQ(assembler.Text(), text) << size;
    }
}

TEST(FrameTest, AsksForHalfTheCapacityAndThenForTheRemainder)
{
    FrameAssembler assembler(700);
    EXPECT_EQ(assembler.Wanted(), 350U);
    EXPECT_EQ(assembler.Take(Frame(L"0000", L"", false)), FrameAssembler::State::NeedMore);
    EXPECT_EQ(assembler.Wanted(), 342U);
    EXPECT_EQ(assembler.Take(Frame(L"0030", L"ab", false)), FrameAssembler::State::NeedMore);
    EXPECT_EQ(assembler.Wanted(), 10U);
}

TEST(FrameTest, RefusesWhatCannotBeAFrame)
{
    const struct {
        const wchar_t* digits;
        FrameAssembler::State state;
    } kCases[] = {
        {L"00000022", FrameAssembler::State::Complete},
        {L"00000021", FrameAssembler::State::Failed}, // more bytes than it says
        {L"00000023", FrameAssembler::State::NeedMore},
        {L"00000000", FrameAssembler::State::Failed},
        {L"-0000022", FrameAssembler::State::Failed},
        {L"99999999", FrameAssembler::State::Failed},
        {L"00000701", FrameAssembler::State::Failed},   // above the capacity
        {L"22xxxxxx", FrameAssembler::State::Complete}, // leading digits count
        {L"<vltp ve", FrameAssembler::State::Failed},
    };
    for (const auto& row : kCases) {
        FrameAssembler assembler(700);
        EXPECT_EQ(assembler.Take(Frame(row.digits, L"ab")), row.state) << row.digits;
    }
}

TEST(FrameTest, TakesAFrameWithoutNul)
{
    FrameAssembler assembler(700);
    EXPECT_EQ(assembler.Take(Frame(L"00000020", L"ab", false)), FrameAssembler::State::Complete);
    EXPECT_EQ(assembler.Text(), L"ab");
}

} // namespace
} // namespace voltaro
