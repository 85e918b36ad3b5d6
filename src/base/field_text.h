#pragma once

#include "base/wiped_memory.h"

#include <concepts>
#include <cstddef>
#include <string_view>
#include <utility>

namespace voltaro {

class FieldText;
template <class T>
concept OtherText = !std::same_as<T, FieldText> && std::convertible_to<const T&, std::wstring_view>;

// A text on its way to or from the agent: a field of a record, an element, a whole document. As long as it came, so
// that what nobody edits goes back uncut. Some are passwords, so the memory of all is wiped when it is given up.
class FieldText {
public:
    // How many UTF-16 units a user may type into a field.
    static constexpr std::size_t kEditLimit = 99;

    FieldText() = default;
    template <OtherText Text>
    FieldText(const Text& text)
    {
        const std::wstring_view units(text);
        if (units.empty())
            return;
        m_units.reserve(units.size() + 1);
        m_units.assign(units.begin(), units.end());
        m_units.push_back(L'\0');
    }
    explicit FieldText(WipedUnits&& units)
        : m_units(std::move(units))
    {
        if (!m_units.empty())
            m_units.push_back(L'\0');
    }

    void Clear() { WipedUnits().swap(m_units); }

    [[nodiscard]] const wchar_t* c_str() const { return m_units.empty() ? L"" : m_units.data(); }
    [[nodiscard]] std::wstring_view view() const
    {
        return m_units.empty() ? std::wstring_view() : std::wstring_view(m_units.data(), m_units.size() - 1);
    }
    [[nodiscard]] bool empty() const { return m_units.empty(); }
    operator std::wstring_view() const { return view(); }

    friend bool operator==(const FieldText& a, const FieldText& b) { return a.view() == b.view(); }
    template <OtherText Text>
    friend bool operator==(const FieldText& a, const Text& b)
    {
        return a.view() == std::wstring_view(b);
    }

private:
    WipedUnits m_units; // with the NUL; none for an empty text
};

} // namespace voltaro
