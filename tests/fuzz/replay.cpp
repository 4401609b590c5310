// Runs the target on the files of the given folders, without the fuzzer.
#include "tests/fuzz/input.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

int main(int count, char** words) {
    int files = 0;
    for (int i = 1; i < count; ++i)
        for (const auto& entry : std::filesystem::directory_iterator(words[i])) {
            std::ifstream in(entry.path(), std::ios::binary);
            const std::string content{std::istreambuf_iterator<char>(in), {}};
            // Printed first, because a finding ends the process.
            std::fprintf(stderr, "%s\n", entry.path().c_str());
            zol::fuzz::run_input(
                {reinterpret_cast<const std::uint8_t*>(content.data()), content.size()});
            ++files;
        }
    std::printf("%d inputs, no finding\n", files);
    return files > 0 ? 0 : 1;
}
