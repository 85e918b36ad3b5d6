#pragma once

namespace voltaro {

// Whether two UTF-16 units are the same letter without regard to case, for every letter that has one (letter by letter,
// in no language: as CompareStringOrdinal compares).
[[nodiscard]] bool IsSameLetter(wchar_t a, wchar_t b);

} // namespace voltaro
