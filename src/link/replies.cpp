#include "link/replies.h"

#include "base/text.h"

#include <algorithm>

namespace voltaro {

const Element* FirstElement(const Element& root, std::wstring_view name)
{
    if (root.name == name)
        return &root;
    for (const Element& child : root.children) {
        if (const Element* found = FirstElement(child, name))
            return found;
    }
    return nullptr;
}

namespace {

void AddChildrenOfEvery(const Element& root, std::wstring_view name, std::vector<const Element*>& found)
{
    for (const Element& child : root.children) {
        if (root.name == name)
            found.push_back(&child);
        AddChildrenOfEvery(child, name, found);
    }
}

constexpr std::wstring_view kRulePrefix = L"AppNo_";

std::int32_t RuleNumber(const Element* rule)
{
    return LeadingNumber(std::wstring_view(rule->name).substr(kRulePrefix.size()));
}

std::span<const Element> FieldsOfFirst(const Element& root, std::wstring_view name)
{
    const Element* element = FirstElement(root, name);
    return element ? std::span<const Element>(element->children) : std::span<const Element>();
}

} // namespace

std::vector<const Element*> ChildrenOfEvery(const Element& root, std::wstring_view name)
{
    std::vector<const Element*> found;
    AddChildrenOfEvery(root, name, found);
    return found;
}

std::span<const Element> ResponseFields(const Element& root)
{
    return FieldsOfFirst(root, L"response");
}

std::span<const Element> DetailsFields(const Element& root)
{
    return FieldsOfFirst(root, L"details");
}

std::span<const Element> DetailsOrResponseFields(const Element& root)
{
    return FirstElement(root, L"details") ? DetailsFields(root) : ResponseFields(root);
}

std::wstring_view TextAt(std::span<const Element> fields, std::size_t position)
{
    return position < fields.size() ? std::wstring_view(fields[position].text) : std::wstring_view();
}

std::vector<std::wstring> TextsOf(std::span<const Element> fields, std::size_t limit)
{
    std::vector<std::wstring> texts;
    for (const Element& field : fields.first(std::min(limit, fields.size())))
        texts.emplace_back(field.text);
    return texts;
}

bool IsWord(std::wstring_view status, std::wstring_view word)
{
    return EqualsIgnoreCase(status, word);
}

std::vector<std::wstring> ReadNames(const Element& root)
{
    return TextsOf(DetailsFields(root), kMaxNames);
}

std::optional<ApplicationSensorPolicy> ReadPolicy(const Element& root)
{
    const Element* details = FirstElement(root, L"details");
    if (!details || details->children.empty())
        return std::nullopt;
    ApplicationSensorPolicy policy;
    policy.name = ChildText(*details, 0);
    std::vector<const Element*> rules;
    for (const Element& child : details->children) {
        if (child.name.starts_with(kRulePrefix))
            rules.push_back(&child);
    }
    std::ranges::stable_sort(rules, {}, RuleNumber);
    for (const Element* rule : rules)
        policy.rules.push_back(RecordOf<ApplicationRule>(rule->children));
    return policy;
}

BatteryInfo ReadBattery(const Element& root)
{
    BatteryInfo battery;
    const std::span<const Element> fields = ResponseFields(root);
    for (const Element& field : fields.first(std::min(BatteryInfo::kMaxRows, fields.size())))
        battery.rows.push_back({std::wstring_view(field.name), std::wstring_view(field.text)});
    return battery;
}

} // namespace voltaro
