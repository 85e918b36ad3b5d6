#include "ui/secret_text.h"

#include <utility>

namespace voltaro {

FieldText SecretTextOf(HWND edit)
{
    WipedUnits units(static_cast<std::size_t>(GetWindowTextLengthW(edit)) + 1);
    units.resize(static_cast<std::size_t>(GetWindowTextW(edit, units.data(), static_cast<int>(units.size()))));
    return FieldText(std::move(units));
}

} // namespace voltaro
