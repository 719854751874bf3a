// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/zip_listing.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace {

constexpr std::string_view zipSuffix = ".zip";

bool isUpperCase(char letter) {
    return letter >= 'A' && letter <= 'Z';
}

bool isLowerCase(char letter) {
    return letter >= 'a' && letter <= 'z';
}

// ASCII only, as short names are.
void makeLowerCase(std::string& text) {
    std::ranges::transform(text, text.begin(), [](char letter) {
        return isUpperCase(letter) ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
}

std::string withCaseSwapped(std::string text) {
    std::ranges::transform(text, text.begin(), [](char letter) {
        return isUpperCase(letter) || isLowerCase(letter) ? static_cast<char>(letter ^ ('a' ^ 'A')) : letter;
    });
    return text;
}

bool isZip(std::string name) {
    makeLowerCase(name);
    return name.ends_with(zipSuffix);
}

bool isCaseIgnored(const std::unordered_set<std::string>& names, FileExistsFunction exists) {
    for (const std::string& name : names) {
        const std::string other = withCaseSwapped(name);
        if (!names.contains(other)) {
            return exists(other) != 0;
        }
    }
    return false;
}

} // namespace

ZipListing makeZipListing(std::vector<std::string> fileNames, FileExistsFunction exists) {
    ZipListing listing;
    listing.names.reserve(fileNames.size());
    for (std::string& name : fileNames) {
        if (isZip(name)) {
            listing.names.insert(std::move(name));
        }
    }
    listing.ignoresCase = isCaseIgnored(listing.names, exists);
    if (listing.ignoresCase) {
        const auto originalNames = std::exchange(listing.names, {});
        for (std::string name : originalNames) {
            makeLowerCase(name);
            listing.names.insert(std::move(name));
        }
    }
    return listing;
}

bool hasZip(const ZipListing& listing, std::string name) {
    name += zipSuffix;
    if (listing.ignoresCase) {
        makeLowerCase(name);
    }
    return listing.names.contains(name);
}
