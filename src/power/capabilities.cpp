#include "power/capabilities.h"

#include "base/text.h"
#include "base/text_rules.h"

#include <algorithm>

namespace voltaro {
namespace {

using Field = std::pair<std::wstring_view, std::wstring_view>;

constexpr const wchar_t* kDenials[] = {L"No", L"False", L"Not Supported"};

bool Supports(std::span<const Field> fields, std::wstring_view capability)
{
    bool named = false;
    for (const auto& [name, value] : fields) {
        if (!ContainsIgnoreCase(name, capability))
            continue;
        if (std::ranges::none_of(kDenials, SameNameAs(value)))
            return true;
        named = true;
    }
    return !named;
}

} // namespace

PowerCapabilities ReadPowerCapabilities(std::span<const Field> fields)
{
    return {Supports(fields, L"Standby"), Supports(fields, L"Hibernate")};
}

} // namespace voltaro
