#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace voltaro {

// Compares without regard to letter case. Used for status words, names and executables.
[[nodiscard]] bool EqualsIgnoreCase(std::wstring_view a, std::wstring_view b);

[[nodiscard]] bool ContainsIgnoreCase(std::wstring_view text, std::wstring_view part);

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

// Replaces every occurrence of `what`; for texts with a place holder.
[[nodiscard]] std::wstring Replaced(std::wstring_view text, std::wstring_view what, std::wstring_view with);

} // namespace voltaro
