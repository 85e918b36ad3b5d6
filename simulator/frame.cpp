#include "simulator/frame.h"

#include "base/text.h"

#include <algorithm>

namespace voltaro::simulator {

std::string BytesOf(std::wstring_view units)
{
    std::string bytes;
    bytes.reserve(units.size() * 2);
    for (const wchar_t unit : units) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>((unit >> 8) & 0xFF);
    }
    return bytes;
}

std::wstring UnitsOf(std::string_view bytes)
{
    std::wstring units;
    units.reserve(bytes.size() / 2);
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        const auto low = static_cast<unsigned char>(bytes[at]);
        const auto high = static_cast<unsigned char>(bytes[at + 1]);
        units += static_cast<wchar_t>(low | (high << 8));
    }
    return units;
}

std::string FrameOf(std::wstring_view text)
{
    std::string frame = BytesOf(Format(L"%08d", static_cast<int>(kHeaderBytes + text.size() * 2 + 2)));
    frame += BytesOf(text);
    frame.append(2, '\0');
    return frame;
}

std::size_t FrameLength(std::string_view header)
{
    const std::wstring digits = UnitsOf(header);
    const bool all = digits.size() == 8
        && std::all_of(digits.begin(), digits.end(), [](wchar_t unit) { return unit >= L'0' && unit <= L'9'; });
    const auto length = all ? static_cast<std::size_t>(LeadingNumber(digits)) : 0;
    return length >= kHeaderBytes + 2 && length <= kLargestFrame && length % 2 == 0 ? length : 0;
}

} // namespace voltaro::simulator
