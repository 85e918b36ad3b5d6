#pragma once

#include <string>
#include <string_view>

namespace voltaro {

// 8-bit text of the system's code page as UTF-16. The host address and the installation directory are kept as 8-bit.
[[nodiscard]] std::wstring Widened(std::string_view text);

// UTF-16 as 8-bit text of the system's code page; what the page lacks becomes its default character.
[[nodiscard]] std::string Narrowed(std::wstring_view text);

} // namespace voltaro
