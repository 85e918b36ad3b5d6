#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace voltaro::simulator {

// A frame on the wire: eight decimal digits, the text and a NUL, all UTF-16LE. The digits count the bytes of the whole.
inline constexpr std::size_t kHeaderBytes = 16;
inline constexpr std::size_t kLargestFrame = 1024 * 1024;

// UTF-16 units as little-endian bytes, and back; an odd last byte is dropped.
[[nodiscard]] std::string BytesOf(std::wstring_view units);
[[nodiscard]] std::wstring UnitsOf(std::string_view bytes);

// The frame of a text.
[[nodiscard]] std::string FrameOf(std::wstring_view text);

// The length that the sixteen bytes of a header name, or 0 unless they are eight digits that name an even length
// between that of an empty frame and the largest one.
[[nodiscard]] std::size_t FrameLength(std::string_view header);

} // namespace voltaro::simulator
