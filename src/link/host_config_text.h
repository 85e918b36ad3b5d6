#pragma once

#include "base/fixed_text.h"
#include "link/element.h"

#include <string_view>

namespace voltaro {

using HostConfigText = FixedText<10>;

// The texts of a host configuration, chosen by position, never by name: the agent's port and a second one. What is not
// there leaves its text as it was.
void ChooseHostTexts(const Element& root, HostConfigText& port, HostConfigText& second);

// True when the text declares a document type: the platform's switch against it is not honoured everywhere, and no
// document of the agent's needs one. Bytes of any encoding: NULs are passed over.
[[nodiscard]] bool DeclaresDocumentType(std::string_view bytes);
[[nodiscard]] bool DeclaresDocumentType(std::wstring_view text);

} // namespace voltaro
