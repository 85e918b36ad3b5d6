#pragma once

#include "base/windows_api.h"
#include "console/agent.h"

#include <optional>
#include <string>

namespace voltaro {

// The road of one change: the activation gate, the request, and the answer's licence words, whose boxes carry
// `caption`. Gives the status word, empty when the answer has none or the change could not even be sent; nothing when
// the change did not come about and the user knows it, or when the answer cannot be read.
[[nodiscard]] std::optional<std::wstring> AnswerToChange(HWND owner, const wchar_t* caption, const Request& request);

} // namespace voltaro
