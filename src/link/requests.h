#pragma once

#include "link/operations.h"
#include "link/records.h"

#include <string_view>
#include <vector>

namespace voltaro {

// One request before it becomes a document: the operation, and the fields that follow the `operation` element.
struct Request {
    Operation operation;
    std::vector<Element> fields;
};

// A request without fields.
[[nodiscard]] inline Request Plain(Operation operation)
{
    return {operation, {}};
}

// A request with one named text: `scheme`, `policy`, `PolicyName`, `duration`, `type`, `fordate`, `monitoroff`...
[[nodiscard]] Request WithText(Operation operation, std::wstring_view element, std::wstring_view text);

// A request whose `details` element holds a record.
template <class Record>
[[nodiscard]] Request WithRecord(Operation operation, const Record& record)
{
    return {operation, {ElementOf(L"details", record)}};
}

// A request whose `details` element holds a policy: its name, then one AppNo_<n> element a rule, n from 1.
[[nodiscard]] Request WithPolicy(Operation operation, const ApplicationSensorPolicy& policy);

// The `request` element of the document: identifier, operation name, then the fields.
[[nodiscard]] Element RequestElement(const Request& request, std::wstring_view messageId);

} // namespace voltaro
