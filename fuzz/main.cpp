// For libFuzzer: its entry; VOLTARO_FUZZ_TARGET names the target. Else: runs every target over its corpus, varied.
#include "fuzz/targets.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <random>
#include <vector>

namespace voltaro::fuzz {

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

using namespace voltaro::fuzz;

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
void RunVaried(const Target& target, const std::vector<std::uint8_t>& content)
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
        for (const auto& entry : std::filesystem::directory_iterator(std::string(arguments[1]) + '/' + target.name)) {
            std::cout << entry.path() << '\n' << std::flush; // what fails is the last one named
            std::ifstream file(entry.path(), std::ios::binary);
            RunVaried(target, {std::istreambuf_iterator<char>(file), {}});
        }
    }
}
#endif
