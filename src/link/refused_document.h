#pragma once

#include <cstddef>
#include <string_view>

namespace voltaro {

// More tags than an answer that fits its member can have, and more memory than its tree is worth.
inline constexpr std::size_t kMaxTags = 40'000;

// Why a document is not given to the platform's parser, in words for the log; null when it is. A document type is
// refused too: the platform's switch against it is not honoured everywhere, and no document of the agent's needs one.
// Bytes of any encoding: NULs are passed over.
[[nodiscard]] const char* RefusedDocument(std::string_view bytes);
[[nodiscard]] const char* RefusedDocument(std::wstring_view text);

} // namespace voltaro
