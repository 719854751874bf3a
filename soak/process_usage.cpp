// SPDX-License-Identifier: GPL-3.0-or-later
#include "process_usage.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;

std::ptrdiff_t entriesIn(const fs::path& folder) {
    std::error_code error;
    const fs::directory_iterator entries(folder, error);
    return error ? 0 : std::distance(begin(entries), end(entries));
}

// Counts the process when it is a child of the parent.
void countChild(const fs::path& process, pid_t parent, ProcessUsage& usage) {
    std::ifstream file(process / "stat");
    std::string line;
    std::getline(file, line);
    const std::size_t nameEnd = line.rfind(')');
    char state = 0;
    int parentNumber = 0;
    if (nameEnd != std::string::npos &&
        std::sscanf(line.c_str() + nameEnd, ") %c %d", &state, &parentNumber) == 2 &&
        parentNumber == parent) {
        ++(state == 'Z' ? usage.zombies : usage.children);
    }
}

} // namespace

ProcessUsage usageOf(pid_t process) {
    const fs::path folder = fs::path("/proc") / std::to_string(process);
    ProcessUsage usage;
    usage.threads = entriesIn(folder / "task");
    usage.files = entriesIn(folder / "fd");
    std::ifstream status(folder / "status");
    for (std::string line; std::getline(status, line);) {
        std::sscanf(line.c_str(), "VmRSS: %ld", &usage.residentKiB);
    }
    for (const auto& entry : fs::directory_iterator("/proc")) {
        const std::string name = entry.path().filename();
        if (std::ranges::all_of(name, [](unsigned char letter) { return std::isdigit(letter) != 0; })) {
            countChild(entry.path(), process, usage);
        }
    }
    return usage;
}

ProcessUsage peakOf(const ProcessUsage& first, const ProcessUsage& second) {
    return {std::max(first.threads, second.threads), std::max(first.files, second.files),
            std::max(first.children, second.children), std::max(first.zombies, second.zombies),
            std::max(first.residentKiB, second.residentKiB)};
}

void printUsage(const std::string& when, const ProcessUsage& usage) {
    std::printf("%-18s %3td threads, %3td files, %d zombies, %6.1f MiB resident\n", when.c_str(),
                usage.threads, usage.files, usage.zombies, static_cast<double>(usage.residentKiB) / 1024);
    std::fflush(stdout);
}

bool hasGrown(const ProcessUsage& earlier, const ProcessUsage& later, long allowedKiB) {
    return later.threads > earlier.threads || later.files > earlier.files ||
           later.zombies > earlier.zombies || later.residentKiB > earlier.residentKiB + allowedKiB;
}
