#pragma once

#include "link/element.h"
#include "simulator/machine.h"
#include "simulator/records.h"

#include <span>

namespace voltaro::simulator {

struct Operation;

// A request that has passed its checks: MessageId, operation, then what the shape says.
struct Call {
    const Operation& operation;
    const Element& request;
    MachineState& state;
    DateTime now;

    // The text of the one field, and the `details`, of operations that have them.
    [[nodiscard]] std::wstring_view Field() const { return ChildText(request, 2); }
    [[nodiscard]] const Element& Details() const { return request.children[2]; }
};

// What follows `operation` in a request.
struct Shape {
    enum class Kind { Nothing, Field, OptionalField, Record, Policy, Jobs };
    Kind kind = Kind::Nothing;
    const wchar_t* field = nullptr;
    const std::span<const RecordField>* record = nullptr;
};

struct Operation {
    const wchar_t* name;
    bool needsLicense;
    Shape shape;
    Element (*answer)(const Call& call);     // throws a Refusal
    Element MachineState::*record = nullptr; // what a plain read or store is about
};

// The agent's operations. Null for a name that is none; operation names are exact.
[[nodiscard]] std::span<const Operation> Operations();
[[nodiscard]] const Operation* FindOperation(std::wstring_view name);

// Throws a Refusal unless the request has the operation's shape.
void RequireShape(const Operation& operation, const Element& request);

// The word that tells the license state.
[[nodiscard]] const wchar_t* LicenseWord(License license);

// `response` with a status and, unless empty, a message after it.
[[nodiscard]] Element StatusResponse(std::wstring_view status, std::wstring_view message = {});
// `response` around one element.
[[nodiscard]] Element ResponseWith(Element element);

// Schemes and policies, in schemes.cpp. The first few answer with names or settings, the others with a status.
[[nodiscard]] Element ListSchemes(const Call& call);
[[nodiscard]] Element ReadActiveScheme(const Call& call);
[[nodiscard]] Element ReadScheme(const Call& call);
[[nodiscard]] Element ListPolicies(const Call& call);
[[nodiscard]] Element ReadPolicy(const Call& call);
[[nodiscard]] Element ActivateScheme(const Call& call);
[[nodiscard]] Element StoreScheme(const Call& call);
[[nodiscard]] Element CreateScheme(const Call& call);
[[nodiscard]] Element DeleteScheme(const Call& call);
[[nodiscard]] Element StorePolicy(const Call& call);
[[nodiscard]] Element CreatePolicy(const Call& call);
[[nodiscard]] Element DeletePolicy(const Call& call);

} // namespace voltaro::simulator
