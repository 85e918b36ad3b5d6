#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace voltaro {

// The halves of a surrogate pair, in which UTF-16 stores a character beyond 16 bits.
[[nodiscard]] constexpr bool IsHighSurrogate(wchar_t unit)
{
    return (unit & 0xFC00) == 0xD800;
}
[[nodiscard]] constexpr bool IsLowSurrogate(wchar_t unit)
{
    return (unit & 0xFC00) == 0xDC00;
}

// Compares without regard to letter case. Used for status words, names and executables.
[[nodiscard]] bool EqualsIgnoreCase(std::wstring_view a, std::wstring_view b);

[[nodiscard]] bool ContainsIgnoreCase(std::wstring_view text, std::wstring_view part);

// The first units of a text, at most `limit`: one less where the cut would split a surrogate pair.
[[nodiscard]] constexpr std::wstring_view Truncated(std::wstring_view text, std::size_t limit)
{
    if (text.size() <= limit)
        return text;
    const bool splitsPair = limit > 0 && IsHighSurrogate(text[limit - 1]) && IsLowSurrogate(text[limit]);
    return text.substr(0, splitsPair ? limit - 1 : limit);
}

// The text as one cell of one line: tabs and line ends become blanks.
[[nodiscard]] std::wstring OneLine(std::wstring_view text);

// The number made of the leading decimal digits, after blanks and one sign; 0 without digits; values outside 32 bits
// stay at the nearest bound. "4916x" is 4916, "x" is 0.
[[nodiscard]] std::int32_t LeadingNumber(std::wstring_view text);

// A whole number as decimal text.
[[nodiscard]] std::wstring NumberText(std::int64_t number);

// Formats as printf does. Only %d, %lld, %f, %x, %c, %ls (wide) and %hs (8-bit) and their widths and precisions occur:
// their meaning is the same in every C library.
[[nodiscard]] std::wstring Format(const wchar_t* format, ...);

// Replaces every occurrence of `what`.
[[nodiscard]] std::wstring Replaced(std::wstring_view text, std::wstring_view what, std::wstring_view with);
// A text with a name in the place of its "%ls".
[[nodiscard]] std::wstring WithName(std::wstring_view text, std::wstring_view name);

// Switches of a record: "Yes" or "No"; letter case does not count when they are read.
[[nodiscard]] bool IsYes(std::wstring_view flag);
[[nodiscard]] const wchar_t* YesNo(bool yes);

// A dotted IPv4 address as its four bytes, the first one highest; nothing for any other text.
[[nodiscard]] std::optional<std::uint32_t> AddressOf(std::wstring_view dotted);
[[nodiscard]] std::wstring DottedAddress(std::uint32_t address);

} // namespace voltaro
