#pragma once

#include "base/windows_api.h"

namespace voltaro {

// Makes an edit with a limit take a surrogate pair whole or not at all: by itself it keeps the half that still fits.
void KeepPairsWhole(HWND edit);

} // namespace voltaro
