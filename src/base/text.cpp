#include "base/text.h"

#include "base/letter_case.h"

#include <algorithm>
#include <cstdarg>
#include <cwchar>
#include <limits>

namespace voltaro {
bool EqualsIgnoreCase(std::wstring_view a, std::wstring_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), &IsSameLetter);
}

bool ContainsIgnoreCase(std::wstring_view text, std::wstring_view part)
{
    return std::search(text.begin(), text.end(), part.begin(), part.end(), &IsSameLetter) != text.end() || part.empty();
}

std::wstring OneLine(std::wstring_view text)
{
    std::wstring line(text);
    std::replace_if(
        line.begin(), line.end(), [](wchar_t unit) { return unit == L'\t' || unit == L'\r' || unit == L'\n'; }, L' ');
    return line;
}

std::int32_t LeadingNumber(std::wstring_view text)
{
    constexpr std::int64_t kHigh = std::numeric_limits<std::int32_t>::max();
    constexpr std::int64_t kLow = std::numeric_limits<std::int32_t>::min();
    std::size_t at = text.find_first_not_of(L" \t\r\n");
    if (at == std::wstring_view::npos)
        return 0;
    const bool negative = text[at] == L'-';
    if (negative || text[at] == L'+')
        ++at;
    std::int64_t number = 0;
    for (; at < text.size() && text[at] >= L'0' && text[at] <= L'9'; ++at)
        number = std::min(number * 10 + (text[at] - L'0'), kHigh + 1);
    return static_cast<std::int32_t>(std::clamp(negative ? -number : number, kLow, kHigh));
}

std::wstring NumberText(std::int64_t number)
{
    return std::to_wstring(number);
}

std::wstring Format(const wchar_t* format, ...)
{
    std::wstring text(128, L'\0');
    for (;;) {
        va_list arguments;
        va_start(arguments, format);
        const int length = std::vswprintf(text.data(), text.size(), format, arguments);
        va_end(arguments);
        if (length >= 0 && static_cast<std::size_t>(length) < text.size()) {
            text.resize(static_cast<std::size_t>(length));
            return text;
        }
        // A C library answers a full buffer and a text it cannot convert alike; beyond this size it is the latter.
        if (text.size() > 1'000'000)
            return {};
        text.resize(text.size() * 4);
    }
}

std::wstring Replaced(std::wstring_view text, std::wstring_view what, std::wstring_view with)
{
    std::wstring result(text);
    for (std::size_t at = 0; (at = result.find(what, at)) != std::wstring::npos; at += with.size())
        result.replace(at, what.size(), with);
    return result;
}

std::wstring WithName(std::wstring_view text, std::wstring_view name)
{
    return Replaced(text, L"%ls", name);
}

bool IsYes(std::wstring_view flag)
{
    return EqualsIgnoreCase(flag, L"Yes");
}

const wchar_t* YesNo(bool yes)
{
    return yes ? L"Yes" : L"No";
}

std::optional<std::uint32_t> AddressOf(std::wstring_view dotted)
{
    constexpr int kParts = 4;
    std::uint32_t address = 0;
    for (int part = 0; part < kParts; ++part) {
        const std::size_t digits = std::min(dotted.find_first_not_of(L"0123456789"), dotted.size());
        const std::int32_t number = LeadingNumber(dotted.substr(0, digits));
        if (digits == 0 || number > 255)
            return std::nullopt;
        address = address << 8 | static_cast<std::uint32_t>(number);
        dotted.remove_prefix(digits);
        if (part == kParts - 1)
            break;
        if (!dotted.starts_with(L'.'))
            return std::nullopt;
        dotted.remove_prefix(1);
    }
    return dotted.empty() ? std::optional(address) : std::nullopt;
}

std::wstring DottedAddress(std::uint32_t address)
{
    const auto byte = [address](int shift) { return static_cast<int>(address >> shift & 0xFF); };
    return Format(L"%d.%d.%d.%d", byte(24), byte(16), byte(8), byte(0));
}

} // namespace voltaro
