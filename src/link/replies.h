#pragma once

#include "base/fixed_text.h"
#include "link/records.h"

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace voltaro {

// Readers of an answer. They take the answer as an element tree (`root` is the document element) and never fail: what
// is missing reads as empty, what no slot is left for is dropped.

// The first element of that name in document order, the root included; null when there is none.
[[nodiscard]] const Element* FirstElement(const Element& root, std::wstring_view name);

// The children of every element of that name, in document order.
[[nodiscard]] std::vector<const Element*> ChildrenOfEvery(const Element& root, std::wstring_view name);

// The children of the first `response`, of the first `details`, or of the first `details` and where there is none of
// the first `response`.
[[nodiscard]] std::span<const Element> ResponseFields(const Element& root);
[[nodiscard]] std::span<const Element> DetailsFields(const Element& root);
[[nodiscard]] std::span<const Element> DetailsOrResponseFields(const Element& root);

// The text at a position, empty where there is none.
[[nodiscard]] std::wstring_view TextAt(std::span<const Element> fields, std::size_t position);

// The texts of at most `limit` fields.
[[nodiscard]] std::vector<std::wstring> TextsOf(std::span<const Element> fields, std::size_t limit);

// The status word of an answer and how it compares; letter case never counts.
[[nodiscard]] bool IsWord(std::wstring_view status, std::wstring_view word);
inline constexpr const wchar_t* kSuccess = L"Success";
inline constexpr const wchar_t* kFailure = L"Failure";

// A record from the first `details`; nothing when the answer has none or an empty one.
template <class Record>
[[nodiscard]] std::optional<Record> ReadRecord(const Element& root)
{
    const std::span<const Element> fields = DetailsFields(root);
    if (fields.empty())
        return std::nullopt;
    return RecordOf<Record>(fields);
}

// The names that "GetPowerSchemes" and "GetPolicies" give, in the order received.
inline constexpr std::size_t kMaxNames = 200;
[[nodiscard]] std::vector<std::wstring> ReadNames(const Element& root);

// A policy with all its rules, the elements "AppNo_1", "AppNo_2", ... in the order of their numbers. Nothing when the
// answer has no `details` or an empty one.
[[nodiscard]] std::optional<ApplicationSensorPolicy> ReadPolicy(const Element& root);

// A name and a value as the agent sends them.
struct NamedValue {
    FixedText<50> name;
    FixedText<120> value;
};

// The battery answer: the children of `response` in order, the first four with a meaning of their own.
struct BatteryInfo {
    static constexpr std::size_t kMaxRows = 25;
    std::vector<NamedValue> rows;

    [[nodiscard]] std::wstring_view PowerSource() const { return At(0); } // "On AC", "On Battery"
    [[nodiscard]] std::wstring_view Status() const { return At(1); }      // "No System battery", "Charging", ...
    [[nodiscard]] std::wstring_view Charge() const { return At(2); }      // "87 %"
    [[nodiscard]] std::wstring_view RemainingTime() const { return At(3); }

private:
    [[nodiscard]] std::wstring_view At(std::size_t i) const
    {
        return i < rows.size() ? rows[i].value.view() : std::wstring_view();
    }
};
inline constexpr const wchar_t* kNoBattery = L"No System battery";
[[nodiscard]] BatteryInfo ReadBattery(const Element& root);

} // namespace voltaro
