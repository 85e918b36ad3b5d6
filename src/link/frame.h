#pragma once

#include "base/field_text.h"
#include "base/wiped_memory.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace voltaro {

// The wire frame, both ways: eight decimal digits, then the XML text, then a NUL, all UTF-16LE. The digits give the
// length of the whole frame in bytes.
inline constexpr std::size_t kBytesPerUnit = 2;
inline constexpr std::size_t kLengthDigits = 8;
inline constexpr std::size_t kLengthBytes = kLengthDigits * kBytesPerUnit;
inline constexpr std::size_t kFrameOverheadBytes = kLengthBytes + kBytesPerUnit;

// The frame of a request text. At most `limitBytes` long in all: a longer text is cut.
[[nodiscard]] WipedBytes EncodeFrame(std::wstring_view text, std::size_t limitBytes);

// Assembles one answer frame from the pieces as they are received. Pieces are joined as bytes, so a piece may end in
// the middle of a unit.
class FrameAssembler {
public:
    enum class State : std::uint8_t { NeedMore, Complete, Failed };

    // `capacityBytes`: a frame length or an answer above it fails the exchange.
    explicit FrameAssembler(std::size_t capacityBytes);

    // How many bytes the next receive asks for: half the capacity until the length digits are there, then exactly the
    // bytes still expected.
    [[nodiscard]] std::size_t Wanted() const;
    // Takes the bytes of one receive.
    State Take(std::span<const std::byte> piece);
    // The answer's text, without the length digits, up to its NUL.
    [[nodiscard]] FieldText Text() const;

private:
    std::size_t m_capacity;
    std::size_t m_expected = 0; // 0: the digits are not there yet
    WipedBytes m_bytes;
};

} // namespace voltaro
