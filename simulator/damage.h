#pragma once

#include "link/element.h"

#include <string>
#include <string_view>

namespace voltaro::simulator {

// What faults do to an answer: first to its elements, then to its text.

// Every text gets so many units, grows by `text`, or becomes it.
void LengthenTexts(Element& element, std::size_t units);
void AddToTexts(Element& element, std::wstring_view text);
void ReplaceTexts(Element& element, std::wstring_view text);
// Every list grows to so many elements by copies of its last one.
void MultiplyElements(Element& element, std::size_t count);
// The list of the answer keeps so many elements: `details` its settings or sections, `response` its texts.
void KeepElements(Element& response, std::size_t count);
// Grows the last text until the whole frame has so many bytes.
void FillFrame(Element& response, std::size_t bytes);

// Units that are no document.
[[nodiscard]] std::wstring GarbageUnits(std::size_t units);
// Declares entities, each ten times the one before it, and uses the last in the first text: six are a million units
// once unfolded.
void DeclareEntities(std::wstring& text, int levels);
// Adds what may make a reader look elsewhere: style sheet, schema and inclusion, or document type and entities.
void ReferTo(std::wstring& text, const std::wstring& address);
void DeclareExternal(std::wstring& text, const std::wstring& address);
// Inserts a text before the first end tag.
void InsertText(std::wstring& text, std::wstring_view inserted);
// Inserts so many elements there, inside each other or beside each other.
void InsertElements(std::wstring& text, int count, bool nested);

} // namespace voltaro::simulator
