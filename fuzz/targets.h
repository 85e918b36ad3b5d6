#pragma once

#include "link/element.h"

#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <span>
#include <string>

// What the fuzzer and the replay of its corpus run. A property that does not hold ends the program.
namespace voltaro::fuzz {

inline void Require(bool holds)
{
    if (!holds)
        std::abort();
}

// The input, read from the front; zeros after its last byte.
class Bytes {
public:
    explicit Bytes(std::span<const std::uint8_t> data)
        : m_data(data)
    {
    }
    [[nodiscard]] bool AtEnd() const { return m_data.empty(); }
    std::uint8_t Next();
    std::int32_t Number();
    // A text of at most so many units, closed by a byte of 0xFF: Latin-1, and some units of every other sort.
    std::wstring Text(std::size_t most = 400);
    // A text as a record may hold: a known word, one of the given words, or any.
    std::wstring Value(std::span<const wchar_t* const> words = {});

private:
    std::span<const std::uint8_t> m_data;
};

// Changes a tree as the bytes say; new elements get one of the names.
void Damage(Element& tree, Bytes& bytes, std::span<const wchar_t* const> names);

using RunTarget = void(Bytes& bytes);

struct Target {
    const char* name; // also that of its folder below corpus/
    RunTarget* run;
};

RunTarget RunFrame, RunReplies, RunDocument, RunEvents, RunGraph, RunProfile, RunJobs, RunNames;

// clang-format off
inline constexpr Target kTargets[] = {
    {"frame", RunFrame}, {"replies", RunReplies}, {"document", RunDocument}, {"events", RunEvents},
    {"graph", RunGraph}, {"profile", RunProfile}, {"jobs", RunJobs}, {"names", RunNames},
};
// clang-format on

} // namespace voltaro::fuzz
