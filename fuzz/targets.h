#pragma once

#include "base/text.h"
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
    std::uint8_t Next()
    {
        const std::uint8_t byte = AtEnd() ? std::uint8_t{0} : m_data.front();
        m_data = m_data.subspan(AtEnd() ? 0 : 1);
        return byte;
    }
    std::int32_t Number()
    {
        std::uint32_t number = 0;
        for (int i = 0; i < 4; ++i)
            number = number << 8 | Next();
        return static_cast<std::int32_t>(number);
    }
    // A text of at most so many units, closed by a byte of 0xFF: Latin-1, and in place of its last units halves of
    // pairs, direction marks, other scripts and what no document may hold.
    std::wstring Text(std::size_t most = 400)
    {
        constexpr wchar_t kUnits[] = {0xD83D, 0xDE00, 0xDBFF, 0xDFFF, 0x202E, 0x200B, 0xFEFF, 0xFFFF, 0x013C, 0x0130,
            0x03A9, 0x20AC, 0x4E3C, 0x2028, 0x0100};
        std::wstring text;
        while (!AtEnd() && text.size() < most) {
            const std::uint8_t byte = Next();
            if (byte == 0xFF)
                break;
            text += byte < 0xF0 ? static_cast<wchar_t>(byte) : kUnits[byte - 0xF0];
        }
        return text;
    }
    // A text as a record may hold: a known word, one of the given words, or any.
    std::wstring Value(std::span<const wchar_t* const> words = {})
    {
        constexpr const wchar_t* kWords[] = {L"", L"Yes", L"No", L"NULL", L"AST", L"Weekly", L"Monthly", L"08:00:00",
            L"2024-02-29", L"31", L"-5", L"99999999999", L"Standby", L"Success", L"Failure", L"NA"};
        const std::size_t choice = Next();
        if (choice < 64)
            return kWords[choice % std::size(kWords)];
        if (choice < 128 && !words.empty())
            return words[choice % words.size()];
        const std::wstring text = Text();
        return choice < 192 ? text : text + text + text + text;
    }

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
