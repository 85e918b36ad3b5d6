#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace voltaro {

// The decimal number at the front of a text, after blanks and one sign, with an optional exponent; what follows it is
// not looked at. Nothing without digits. Numbers beyond a 32-bit float stay at its largest; the result is always
// finite.
[[nodiscard]] std::optional<float> LeadingDecimal(std::wstring_view text);

// The value with that many decimals; a value that rounds to zero is shown without a minus sign.
[[nodiscard]] std::wstring DecimalText(double value, int decimals);

} // namespace voltaro
