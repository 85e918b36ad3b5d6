// For libFuzzer: its entry; the environment variable VOLTARO_FUZZ_TARGET names the target. For the tests: a program
// that runs every target over the files of its folder in the corpus.
#include "fuzz/targets.h"

#include <filesystem>
#include <fstream>
#include <iostream>
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
int main(int, char** arguments)
{
    for (const auto& target : kTargets) {
        for (const auto& entry :
            std::filesystem::directory_iterator(arguments[1] + std::string(1, '/') + target.name)) {
            std::cout << entry.path() << std::endl; // what fails is the last one named
            std::ifstream file(entry.path(), std::ios::binary);
            const std::vector<std::uint8_t> content{std::istreambuf_iterator<char>(file), {}};
            Bytes bytes(content);
            target.run(bytes);
        }
    }
}
#endif
