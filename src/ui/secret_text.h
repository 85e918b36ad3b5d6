#pragma once

#include "base/field_text.h"
#include "base/windows_api.h"

namespace voltaro {

// The text of an edit that may hold a password or a key: read without a string in between, of which a copy would stay.
[[nodiscard]] FieldText SecretTextOf(HWND edit);

} // namespace voltaro
