// A folder of its own for one test, with short ways to
// write and read the files in it. It becomes the current
// directory while it lives and goes with all its content.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "kestravox_test.XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) {
            std::perror("temporary folder");
            std::abort();
        }
        folder = name;
        std::filesystem::current_path(folder);
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::current_path(previous, ignored);
        std::filesystem::remove_all(folder, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string pathOf(std::string_view name) const { return (folder / name).string(); }

    // Gives the path of the file.
    std::string write(std::string_view name, std::string_view text) const {
        std::ofstream(folder / name, std::ios::binary) << text;
        return pathOf(name);
    }

    // The file as it stands; empty when there is none.
    std::string read(std::string_view name) const {
        std::ifstream file(folder / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    bool has(std::string_view name) const { return std::filesystem::exists(folder / name); }

private:
    std::filesystem::path previous = std::filesystem::current_path();
    std::filesystem::path folder;
};
