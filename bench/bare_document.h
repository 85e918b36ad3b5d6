#pragma once

#include <string>

namespace voltaro::bench {

// What an answer's document costs by itself. The thread must have entered COM.

// Creates a document, loads the text and lets it go.
void LoadBare(const std::wstring& text);

// Does so and asks for the text of every node of the path in turn, keeping none.
void ReadBare(const std::wstring& text, const wchar_t* path);

} // namespace voltaro::bench
