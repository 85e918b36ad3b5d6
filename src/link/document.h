#pragma once

#include "link/element.h"

#include <optional>
#include <string>

namespace voltaro {

// The answer as an element tree: the document element, leaf texts as the platform's document gives them. Nothing when
// the text is refused (link/refused_document.h), not well-formed or cannot be loaded; the reason is logged. Elements
// nested deeper than kMaxDepth are left out.
inline constexpr int kMaxDepth = 32;
[[nodiscard]] std::optional<Element> ParseAnswer(const wchar_t* text);

// As ParseAnswer for a file; failures of the load are logged in the name of `module`.
[[nodiscard]] std::optional<Element> ParseFile(const std::wstring& path, const char* module);

// Turns the `request` element into the whole document and serialises it: processing instruction, root `vltp` with
// version "1.0", indentation as text nodes. Nothing when the document cannot be made. Every text and string of ours is
// wiped; what the platform's document object keeps of a password until it reuses the memory is out of our reach.
[[nodiscard]] std::optional<FieldText> SerialiseRequest(const Element& request);

// Gives back what the thread keeps to make documents; called by a thread that ends before the program does.
void ReleaseDocumentClass();

// A fresh identifier for a request: 38 characters with braces, upper case; empty when the platform has none.
[[nodiscard]] std::wstring NewMessageId();

} // namespace voltaro
