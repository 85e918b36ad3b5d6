// For libFuzzer: its entry; the environment variable VOLTARO_FUZZ_TARGET names the target. For the tests: a program
// that runs every target over the files of its folder in the corpus, as they are and changed in many ways.
#include "fuzz/targets.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <random>
#include <vector>

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
// Runs the target on the content, then on copies of it with some bytes changed, moved or dropped.
void RunVaried(const voltaro::fuzz::Target& target, const std::vector<std::uint8_t>& content)
{
    std::mt19937 random(20240506);
    constexpr int kCopies = 500;
    for (int copy = 0; copy <= kCopies; ++copy) {
        std::vector<std::uint8_t> varied = content;
        for (auto changes = copy == 0 ? 0 : 1 + random() % 8; changes > 0 && !varied.empty(); --changes) {
            const auto at = static_cast<std::ptrdiff_t>(random() % varied.size());
            const auto end = std::min(std::ssize(varied), at + static_cast<std::ptrdiff_t>(random() % 64));
            if (const auto kind = random() % 4; kind == 0)
                varied.erase(varied.begin() + at, varied.begin() + end);
            else if (kind == 1)
                std::rotate(varied.begin(), varied.begin() + at, varied.begin() + end);
            else
                varied[static_cast<std::size_t>(at)] = static_cast<std::uint8_t>(random());
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
