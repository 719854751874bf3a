// SPDX-License-Identifier: GPL-3.0-or-later
#include "large_cabinet.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

constexpr int recordCount = 45294;

class ListWriter {
public:
    explicit ListWriter(const std::filesystem::path& path) : list_(path) {}

    // As in a real list, names are in alphabetical order and 60% are clones, which follow their parent.
    void writeList() {
        std::set<std::string> names;
        while (names.size() < recordCount * 2 / 5) {
            names.insert(randomWord(3, 8));
        }
        int written = 0;
        int parentsLeft = static_cast<int>(names.size());
        for (const std::string& parent : names) {
            writeRecord(parent, nullptr);
            ++written;
            --parentsLeft;
            const int average = (recordCount - written - parentsLeft) / (parentsLeft + 1);
            const int clones = parentsLeft == 0 ? recordCount - written : number(0, 2 * average + 1);
            for (int clone = 0; clone < clones && written < recordCount - parentsLeft; ++clone, ++written) {
                writeRecord(parent + randomWord(1, 3) + std::to_string(clone), parent.c_str());
            }
        }
    }

private:
    int number(int lowest, int highest) {
        return std::uniform_int_distribution<int>(lowest, highest)(generator_);
    }

    std::string randomWord(int shortest, int longest) {
        // Weighted with the approximate frequency of letters in names.
        static constexpr char letters[] = "aaaaabbcddeeeeeefghiiiijklllmmmnnnnooooppqrrrrssssttttuuvwxyz0123";
        std::string word;
        for (int length = number(shortest, longest); length > 0; --length) {
            word += letters[number(0, static_cast<int>(sizeof letters) - 2)];
        }
        return word;
    }

    std::string randomTitle() {
        std::string title;
        for (int words = number(1, 4); words > 0; --words) {
            std::string word = randomWord(3, 9);
            word[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(word[0])));
            title += (title.empty() ? "" : " ") + word;
        }
        return number(0, 2) == 0 ? title + " (set " + std::to_string(number(1, 9)) + ")" : title;
    }

    void writeRecord(const std::string& name, const char* parent) {
        const bool isResource = !parent && number(0, 2) == 0;
        list_ << (isResource ? "resource (\n" : "game (\n") << "\tname " << name << "\n\tdescription \""
              << randomTitle() << "\"\n";
        if (number(0, 9) != 0) {
            list_ << "\tyear " << (number(0, 19) == 0 ? "19??" : std::to_string(number(1971, 2023))) << "\n";
        }
        list_ << "\tmanufacturer \"" << makers_[static_cast<std::size_t>(number(0, 199))] << "\"\n";
        if (parent) {
            list_ << "\tcloneof " << parent << "\n\tromof " << (number(0, 19) == 0 ? "neogeo" : parent)
                  << "\n";
        }
        if (!isResource) {
            list_ << "\tvideo ( screen raster orientation " << (number(0, 3) == 0 ? "vertical" : "horizontal")
                  << " x 320 y 240 )\n\tinput ( players " << number(1, 4) << " control joy8way buttons "
                  << number(0, 6) << " coins " << number(0, 2) << " )\n";
        }
        list_ << ")\n\n";
    }

    std::ofstream list_;
    std::mt19937 generator_{1971};
    std::vector<std::string> makers_ = [this] {
        constexpr std::size_t count = 200;
        std::vector<std::string> made;
        made.reserve(count);
        while (made.size() < count) {
            made.push_back(randomTitle());
        }
        return made;
    }();
};

} // namespace

void writeLargeList(const std::filesystem::path& path) {
    ListWriter(path).writeList();
}

void writeZips(const std::filesystem::path& list, const std::filesystem::path& folder) {
    std::filesystem::create_directory(folder);
    std::ifstream lines(list, std::ios::binary);
    constexpr std::string_view key = "\tname ";
    for (std::string line; std::getline(lines, line);) {
        if (line.compare(0, key.size(), key) == 0) {
            std::ofstream(folder / (line.substr(key.size()) + ".zip"));
        }
    }
}

std::vector<std::string> gamesByTitle(const std::filesystem::path& list) {
    constexpr std::string_view nameKey = "\tname ";
    constexpr std::string_view titleKey = "\tdescription ";
    std::vector<std::pair<std::string, std::string>> games; // title in lower case, name
    std::ifstream lines(list, std::ios::binary);
    bool isGame = false;
    std::string name;
    for (std::string line; std::getline(lines, line);) {
        if (!line.starts_with('\t')) {
            isGame = line.starts_with("game (");
        } else if (line.starts_with(nameKey)) {
            name = line.substr(nameKey.size());
        } else if (line.starts_with(titleKey) && isGame) {
            std::string title = line.substr(titleKey.size());
            std::ranges::transform(title, title.begin(), [](unsigned char letter) {
                return static_cast<char>(std::tolower(letter));
            });
            games.emplace_back(std::move(title), name);
        }
    }
    std::ranges::sort(games);
    std::vector<std::string> names;
    names.reserve(games.size());
    for (auto& [title, game] : games) {
        names.push_back(std::move(game));
    }
    return names;
}
