#include "simulator/operations.h"

#include "base/text.h"

#include <algorithm>

namespace voltaro::simulator {
namespace {

// So many names fit the answer that lists them, whatever their length.
constexpr std::size_t kMaxNames = 25;
constexpr std::size_t kLongestName = 32;
constexpr std::size_t kAppSensorName = 16; // position in the scheme's record

using Entries = std::vector<Element>;

// The entry of that name, compared without case; its name is its first element.
Entries::iterator Find(Entries& entries, std::wstring_view name)
{
    return std::find_if(entries.begin(), entries.end(),
        [name](const Element& details) { return EqualsIgnoreCase(ChildText(details, 0), name); });
}

Entries::iterator Known(Entries& entries, std::wstring_view name, const wchar_t* complaint)
{
    const auto entry = Find(entries, name);
    if (entry == entries.end())
        throw Refusal{complaint};
    return entry;
}

// The console reads names by position, so a list too long for its buffer may save on the elements' names.
Element ListNames(const Entries& entries, const wchar_t* elementName)
{
    if (entries.size() > kMaxNames)
        elementName = L"n";
    Element details{L"details", {}, {}};
    for (const Element& entry : entries)
        details.children.push_back(TextElement(elementName, ChildText(entry, 0)));
    return ResponseWith(std::move(details));
}

void Add(Entries& entries, const Element& details)
{
    const std::wstring_view name = ChildText(details, 0);
    if (name.size() > kLongestName)
        throw Refusal{L"The name is too long."};
    if (Find(entries, name) != entries.end())
        throw Refusal{L"The name is already in use."};
    if (entries.size() == kMaxNames)
        throw Refusal{L"There are too many already."};
    entries.push_back(details);
}

// The stored name keeps its spelling.
void Replace(Element& entry, const Element& details)
{
    const std::wstring name(ChildText(entry, 0));
    entry = details;
    entry.children[0].text = name;
}

constexpr const wchar_t* kNoScheme = L"There is no power scheme of that name.";
constexpr const wchar_t* kNoPolicy = L"There is no policy of that name.";

void RequireKnownPolicy(const Call& call)
{
    const std::wstring_view policy = ChildText(call.Details(), kAppSensorName);
    if (!policy.empty())
        Known(call.state.policies, policy, kNoPolicy);
}

} // namespace

Element ListSchemes(const Call& call)
{
    return ListNames(call.state.schemes, L"PowerScheme");
}

Element ReadActiveScheme(const Call& call)
{
    return ResponseWith(*Known(call.state.schemes, call.state.activeScheme, kNoScheme));
}

Element ReadScheme(const Call& call)
{
    return ResponseWith(*Known(call.state.schemes, call.Field(), kNoScheme));
}

Element ListPolicies(const Call& call)
{
    return ListNames(call.state.policies, L"PolicyName");
}

Element ReadPolicy(const Call& call)
{
    return ResponseWith(*Known(call.state.policies, call.Field(), kNoPolicy));
}

Element ActivateScheme(const Call& call)
{
    call.state.activeScheme = ChildText(*Known(call.state.schemes, call.Field(), kNoScheme), 0);
    return StatusResponse(L"Success");
}

// Saving a scheme's settings also puts them into force.
Element StoreScheme(const Call& call)
{
    const auto scheme = Known(call.state.schemes, ChildText(call.Details(), 0), kNoScheme);
    RequireKnownPolicy(call);
    Replace(*scheme, call.Details());
    call.state.activeScheme = ChildText(*scheme, 0);
    return StatusResponse(L"Success");
}

Element CreateScheme(const Call& call)
{
    RequireKnownPolicy(call);
    Add(call.state.schemes, call.Details());
    return StatusResponse(L"Success");
}

Element DeleteScheme(const Call& call)
{
    const auto scheme = Known(call.state.schemes, call.Field(), kNoScheme);
    if (EqualsIgnoreCase(call.Field(), call.state.activeScheme))
        throw Refusal{L"The active power scheme cannot be deleted."};
    call.state.schemes.erase(scheme);
    return StatusResponse(L"Success");
}

Element StorePolicy(const Call& call)
{
    Replace(*Known(call.state.policies, ChildText(call.Details(), 0), kNoPolicy), call.Details());
    return StatusResponse(L"Success");
}

Element CreatePolicy(const Call& call)
{
    Add(call.state.policies, call.Details());
    return StatusResponse(L"Success");
}

// The active scheme's policy stays; other schemes lose theirs.
Element DeletePolicy(const Call& call)
{
    const auto policy = Known(call.state.policies, call.Field(), kNoPolicy);
    for (Element& scheme : call.state.schemes) {
        if (!EqualsIgnoreCase(ChildText(scheme, kAppSensorName), call.Field()))
            continue;
        if (EqualsIgnoreCase(ChildText(scheme, 0), call.state.activeScheme))
            throw Refusal{L"The policy is in use by the active power scheme."};
    }
    for (Element& scheme : call.state.schemes) {
        if (EqualsIgnoreCase(ChildText(scheme, kAppSensorName), call.Field()))
            scheme.children[kAppSensorName].text.Clear();
    }
    call.state.policies.erase(policy);
    return StatusResponse(L"Success");
}

} // namespace voltaro::simulator
