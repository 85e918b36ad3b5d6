#pragma once

#include "base/text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace voltaro {

// A text slot of N UTF-16 units, the last one reserved for the NUL. Assignment cuts what does not fit (never between
// the two halves of a surrogate pair), so a slot is always terminated and never overruns. Unused units are zero.
template <std::size_t N>
class FixedText {
public:
    static constexpr std::size_t kCapacity = N - 1;

    constexpr FixedText() = default;
    constexpr FixedText(std::wstring_view text) { *this = text; }
    constexpr FixedText(const wchar_t* text)
        : FixedText(std::wstring_view(text))
    {
    }

    constexpr FixedText& operator=(std::wstring_view text)
    {
        const std::size_t length = std::min(text.size(), kCapacity);
        for (std::size_t i = 0; i < N; ++i)
            m_units[i] = i < length ? text[i] : L'\0';
        if (text.size() > kCapacity && IsHighSurrogate(m_units[kCapacity - 1]))
            m_units[kCapacity - 1] = L'\0';
        return *this;
    }

    constexpr FixedText& operator=(const wchar_t* text) { return *this = std::wstring_view(text); }

    constexpr void Clear() { m_units.fill(L'\0'); }

    [[nodiscard]] constexpr const wchar_t* c_str() const { return m_units.data(); }
    // Up to the first NUL.
    [[nodiscard]] constexpr std::wstring_view view() const { return {m_units.data()}; }
    [[nodiscard]] constexpr bool empty() const { return m_units[0] == L'\0'; }
    constexpr operator std::wstring_view() const { return view(); }

    // For platform calls that fill a buffer: kCapacity units may be written, the NUL stays.
    [[nodiscard]] constexpr wchar_t* data() { return m_units.data(); }

    friend constexpr bool operator==(const FixedText& a, const FixedText& b) { return a.view() == b.view(); }
    friend constexpr bool operator==(const FixedText& a, std::wstring_view b) { return a.view() == b; }
    friend constexpr bool operator==(const FixedText& a, const wchar_t* b) { return a.view() == b; }

private:
    std::array<wchar_t, N> m_units{};
};

} // namespace voltaro
