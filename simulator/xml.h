#pragma once

#include "link/element.h"

#include <string>
#include <string_view>

namespace voltaro::simulator {

// What the agent takes for a document: elements and text, attributes on the root alone, the five named entities and
// numeric references. White space between elements is dropped; a text beside elements is refused.
struct XmlDocument {
    bool declared = false; // begins with <?xml version="1.0"...?>
    std::wstring version;  // the root's attribute `version`
    Element root;
    std::wstring error; // why the text is not such a document, with the unit where it stopped; empty when it is
};

// Reads strictly: no document type, no comments, no CDATA, at most 16 levels. No library serves: the header-only
// RapidXML classifies 16-bit units by their low byte (a text with U+013C is refused), makes UTF-8 of numeric
// references, recurses without a limit, and lets unknown entities, control characters and a second root pass.
[[nodiscard]] XmlDocument ParseXml(std::wstring_view text);

// The text with &, <, > and CR written as references, and without what no document may hold.
[[nodiscard]] std::wstring EscapedText(std::wstring_view text);

// The reply document around a `response`, on one line.
[[nodiscard]] std::wstring ReplyText(const Element& response);

} // namespace voltaro::simulator
