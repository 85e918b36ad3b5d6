#include "link/requests.h"

#include "base/text.h"

namespace voltaro {

Request WithText(Operation operation, std::wstring_view element, std::wstring_view text)
{
    return {operation, {TextElement(element, text)}};
}

Request WithPolicy(Operation operation, const ApplicationSensorPolicy& policy)
{
    Element details{L"details", {}, {TextElement(L"PolicyName", policy.name)}};
    for (std::size_t i = 0; i < policy.rules.size(); ++i)
        details.children.push_back(ElementOf(Format(L"AppNo_%d", static_cast<int>(i + 1)), policy.rules[i]));
    return {operation, {std::move(details)}};
}

Element RequestElement(const Request& request, std::wstring_view messageId)
{
    Element element{L"request", {}, {}};
    element.children.reserve(request.fields.size() + 2);
    element.children.push_back(TextElement(L"MessageId", messageId));
    element.children.push_back(TextElement(L"operation", RowOf(request.operation).name));
    element.children.insert(element.children.end(), request.fields.begin(), request.fields.end());
    return element;
}

} // namespace voltaro
