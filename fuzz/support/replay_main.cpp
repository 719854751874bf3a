// SPDX-License-Identifier: GPL-3.0-or-later
// The main program of a target in an ordinary build: runs it once on the empty input and on each file named
// on the command line, or in a folder named there. What does not exist has no files. libFuzzer is not
// needed.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

std::vector<std::filesystem::path> inputsOf(int argc, char** argv) {
    std::vector<std::filesystem::path> inputs;
    for (int index = 1; index < argc; ++index) {
        const std::filesystem::path path = std::filesystem::absolute(argv[index]);
        if (std::filesystem::is_regular_file(path)) {
            inputs.push_back(path);
        }
        if (!std::filesystem::is_directory(path)) {
            continue;
        }
        for (const auto& entry : std::filesystem::directory_iterator(path)) {
            if (entry.is_regular_file()) {
                inputs.push_back(entry.path());
            }
        }
    }
    return inputs;
}

} // namespace

int main(int argc, char** argv) {
    // Read before the first run, which may change the current directory.
    const std::vector<std::filesystem::path> inputs = inputsOf(argc, argv);
    LLVMFuzzerTestOneInput(nullptr, 0);
    for (const std::filesystem::path& path : inputs) {
        std::ifstream file(path, std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(file), {}};
        if (!file) {
            std::perror(path.c_str());
            return 1;
        }
        std::printf("%s\n", path.c_str());
        std::fflush(stdout);
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    }
    std::printf("%zu inputs\n", inputs.size());
    return 0;
}
