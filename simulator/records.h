#pragma once

#include "link/element.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace voltaro::simulator {

// What a value may be. Words are compared without case.
enum class Value { Text, Name, YesNo, Number, Load, Port, Watts, Feature, Speed, Monitor, RuleState, PowerOff, Time };

// One element of a record as the agent knows it, with its value in each variant of the record that the fresh machine
// holds (the five schemes, the automatic and the manual profile...).
struct RecordField {
    const wchar_t* name;
    Value kind;
    const wchar_t* initial[5];
};

extern const std::span<const RecordField> kSchemeRecord; // five schemes
extern const std::span<const RecordField> kSnoozeRecord;
extern const std::span<const RecordField> kProxyRecord;
extern const std::span<const RecordField> kHostRecord;
extern const std::span<const RecordField> kConsumptionRecord; // automatic, manual
extern const std::span<const RecordField> kDeviceRecord;      // controllable, not controllable
extern const std::span<const RecordField> kRuleRecord;        // one rule of a policy

inline constexpr int kInitialSchemes = 5;
inline constexpr int kInitialActiveScheme = 0;
inline constexpr std::size_t kMaxRules = 50;

// The two policies of the fresh machine.
[[nodiscard]] std::vector<Element> InitialPolicies();

// `details` filled with one variant.
[[nodiscard]] Element MakeRecord(std::span<const RecordField> record, std::size_t variant = 0);

// Thrown for a request that is wrong or cannot be granted; what is wrong, in one sentence.
struct Refusal {
    std::wstring message;
};

// The checks throw a Refusal.

// The elements of `parent` from position `from` on must begin with those of the record, in its order, with values of
// their kinds.
void RequireFields(const Element& parent, std::span<const RecordField> record, std::size_t from = 0);
// The same, with nothing before or after them.
void RequireRecord(const Element& parent, std::span<const RecordField> record);
// `details` that hold a policy: its name, then one to fifty numbered rules.
void RequirePolicy(const Element& details);
// The element at a position must have the name; returns it.
const Element& RequireElement(const Element& parent, std::size_t position, std::wstring_view name);
void RequireCount(const Element& parent, std::size_t least, std::size_t most);

} // namespace voltaro::simulator
