#include "savings/decimal.h"

#include "base/field_text.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace voltaro {

std::optional<float> LeadingDecimal(std::wstring_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(L" \t\n\v\f\r"), text.size()));
    if (text.starts_with(L'+')) {
        text.remove_prefix(1);
        if (text.starts_with(L'-'))
            return std::nullopt;
    }
    // Only these can belong to a number. As many as a field holds; without an exponent none of those is out of range.
    std::array<char, FieldText::kEditLimit> number{};
    std::size_t length = 0;
    while (length < std::min(text.size(), number.size())
        && std::wstring_view(L"0123456789.+-eE").find(text[length]) != std::wstring_view::npos) {
        number[length] = static_cast<char>(text[length]);
        ++length;
    }
    double value = 0;
    const std::errc error = std::from_chars(number.data(), number.data() + length, value).ec;
    if (error == std::errc::invalid_argument)
        return std::nullopt;
    if (error == std::errc::result_out_of_range) {
        const std::string_view digits(number.data(), length);
        const bool tiny = digits.substr(digits.find_first_of("eE") + 1).starts_with('-');
        value = tiny           ? 0
            : number[0] == '-' ? std::numeric_limits<double>::lowest()
                               : std::numeric_limits<double>::max();
    }
    constexpr double kLargest = std::numeric_limits<float>::max();
    return static_cast<float>(std::clamp(value, -kLargest, kLargest));
}

std::wstring DecimalText(double value, int decimals)
{
    std::wstring text = Format(L"%.*f", decimals, value);
    if (text.starts_with(L'-') && text.find_first_of(L"123456789") == std::wstring::npos)
        text.erase(0, 1);
    return text;
}

} // namespace voltaro
