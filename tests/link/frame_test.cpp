#include "link/frame.h"

#include <gtest/gtest.h>

namespace voltaro {

// A frame with any length digits, as bytes of UTF-16LE.
static WipedBytes Frame(const std::wstring& digits, const std::wstring& text)
{
    WipedBytes bytes;
    for (const wchar_t unit : digits + text + std::wstring(1, L'\0')) {
        bytes.push_back(static_cast<std::byte>(unit & 0xFF));
        bytes.push_back(static_cast<std::byte>(unit >> 8));
    }
    return bytes;
}

TEST(FrameTest, EncodesLengthTextAndNul)
{
    EXPECT_EQ(EncodeFrame(L"", 1024), Frame(L"00000018", L""));
    EXPECT_EQ(EncodeFrame(L"\x20AC", 1024), Frame(L"00000020", L"\x20AC"));
    EXPECT_EQ(EncodeFrame(std::wstring(600, L'x'), 1024), Frame(L"00001024", std::wstring(503, L'x')));
    const wchar_t pair[] = {0xD83D, 0xDE00, L'\0'};
    EXPECT_EQ(EncodeFrame(std::wstring(502, L'x') + pair, 1024), Frame(L"00001022", std::wstring(502, L'x')));
}

} // namespace voltaro
