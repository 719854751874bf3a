// SPDX-License-Identifier: GPL-3.0-or-later
// A temporary folder for one test, with helpers to write and read files in it. It is the current directory
// during its lifetime and is deleted with its content.
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
        if (!mkdtemp(name.data())) {
            std::perror("temporary folder");
            std::abort();
        }
        folder_ = name;
        std::filesystem::current_path(folder_);
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::current_path(previous_, ignored);
        std::filesystem::remove_all(folder_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string pathOf(std::string_view name) const { return (folder_ / name).string(); }

    // Returns the path of the file.
    std::string write(std::string_view name, std::string_view text) const {
        std::ofstream(folder_ / name, std::ios::binary) << text;
        return pathOf(name);
    }

    // Returns the content of the file; empty when it does not exist.
    std::string read(std::string_view name) const {
        std::ifstream file(folder_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    bool has(std::string_view name) const { return std::filesystem::exists(folder_ / name); }

private:
    std::filesystem::path previous_ = std::filesystem::current_path();
    std::filesystem::path folder_;
};
