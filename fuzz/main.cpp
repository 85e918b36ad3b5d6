// For libFuzzer: its entry; VOLTARO_FUZZ_TARGET names the target. Else: runs every target over its corpus, varied.
#include "fuzz/targets.h"

#include "base/text.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <random>
#include <vector>

namespace voltaro::fuzz {

std::uint8_t Bytes::Next()
{
    if (AtEnd())
        return 0;
    const std::uint8_t byte = m_data.front();
    m_data = m_data.subspan(1);
    return byte;
}

std::int32_t Bytes::Number()
{
    std::uint32_t number = 0;
    for (int i = 0; i < 4; ++i)
        number = number << 8 | Next();
    return static_cast<std::int32_t>(number);
}

std::wstring Bytes::Text(std::size_t most)
{
    // In place of the last Latin-1 units: halves of pairs, direction marks, other scripts, what no document may hold.
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

std::wstring Bytes::Value(std::span<const wchar_t* const> words)
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

void Damage(Element& tree, Bytes& bytes, std::span<const wchar_t* const> names)
{
    int copies = 8; // or copies of copies would never end
    const auto anyName = [&] {
        const std::wstring stem = names[bytes.Next() % names.size()];
        return stem.ends_with(L'_') ? stem + NumberText(bytes.Next()) : stem;
    };
    while (!bytes.AtEnd()) {
        Element* here = &tree;
        for (std::size_t depth = bytes.Next() % 6; depth > 0 && !here->children.empty(); --depth)
            here = &here->children[bytes.Next() % here->children.size()];
        const std::uint8_t choice = bytes.Next();
        const std::size_t step = choice % 5;
        std::vector<Element>& children = here->children;
        const std::size_t child = children.empty() ? 0 : bytes.Next() % children.size();
        if (step == 0)
            here->name = anyName();
        else if (step == 1)
            here->text = bytes.Value();
        else if (step == 2 || children.empty())
            children.push_back(TextElement(anyName(), bytes.Value()));
        else if (step == 3)
            children.erase(children.begin() + static_cast<std::ptrdiff_t>(child));
        else if (copies-- > 0) // the first now and then of more leaves than any list of the console may hold
            children.insert(children.end(), copies == 7 && choice > 250 && children[child].children.empty() ? 550 : 1,
                Element(children[child]));
    }
}

} // namespace voltaro::fuzz

using voltaro::fuzz::Bytes;
using voltaro::fuzz::kTargets;

#ifdef VOLTARO_FUZZ
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const char* const kName = std::getenv("VOLTARO_FUZZ_TARGET");
    for (const auto& target : kTargets) {
        if (kName != nullptr && target.name == std::string_view(kName)) {
            Bytes bytes({data, size});
            target.run(bytes);
            return 0;
        }
    }
    std::exit(2);
}
#else
// Runs the target on the content, then on copies of it with some bytes changed or dropped.
void RunVaried(const voltaro::fuzz::Target& target, const std::vector<std::uint8_t>& content)
{
    std::mt19937 random(20240506);
    for (int copy = 0; copy <= 500; ++copy) {
        std::vector<std::uint8_t> varied = content;
        for (int changes = copy % 9; changes > 0 && !varied.empty(); --changes) {
            const auto at = varied.begin() + static_cast<std::ptrdiff_t>(random() % varied.size());
            *at = static_cast<std::uint8_t>(random());
            if (random() % 4 == 0)
                varied.erase(at, at + std::min<std::ptrdiff_t>(varied.end() - at, *at % 64));
        }
        Bytes bytes(varied);
        target.run(bytes);
    }
}

int main(int, char** arguments)
{
    for (const auto& target : kTargets) {
        for (const auto& entry :
            std::filesystem::directory_iterator(arguments[1] + std::string(1, '/') + target.name)) {
            std::cout << entry.path() << '\n' << std::flush; // what fails is the last one named
            std::ifstream file(entry.path(), std::ios::binary);
            const std::vector<std::uint8_t> content{std::istreambuf_iterator<char>(file), {}};
            RunVaried(target, content);
        }
    }
}
#endif
