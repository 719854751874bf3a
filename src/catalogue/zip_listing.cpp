// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/zip_listing.h"

#include <algorithm>
#include <bit>
#include <functional>

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

bool isZip(std::string_view name) {
    std::string suffix(name.substr(name.size() - std::min(name.size(), zipSuffix.size())));
    makeLowerCase(suffix);
    return suffix == zipSuffix;
}

// Returns the entry of `places` that has the name, or the free one where it belongs.
std::size_t findEntry(const ZipListing& listing, std::string_view name) {
    const std::size_t last = listing.places.size() - 1;
    std::size_t entry = std::hash<std::string_view>()(name) & last;
    while (listing.places[entry] != 0 && name != listing.text.c_str() + listing.places[entry]) {
        entry = (entry + 1) & last;
    }
    return entry;
}

ZipListing listingOf(const std::vector<std::string>& names) {
    ZipListing listing;
    if (names.empty()) {
        return listing;
    }
    listing.places.resize(std::bit_ceil(2 * names.size()));
    listing.text.push_back('\0');
    for (const std::string& name : names) {
        std::uint32_t& place = listing.places[findEntry(listing, name)];
        if (place == 0) {
            place = static_cast<std::uint32_t>(listing.text.size());
            listing.text.append(name.c_str(), name.size() + 1);
        }
    }
    return listing;
}

bool contains(const ZipListing& listing, std::string_view name) {
    return !listing.places.empty() && listing.places[findEntry(listing, name)] != 0;
}

bool isCaseIgnored(const std::vector<std::string>& names, const ZipListing& listing,
                   FileExistsFunction exists) {
    for (const std::string& name : names) {
        const std::string other = withCaseSwapped(name);
        if (!contains(listing, other)) {
            return exists(other) != 0;
        }
    }
    return false;
}

} // namespace

ZipListing makeZipListing(std::vector<std::string> fileNames, FileExistsFunction exists) {
    std::erase_if(fileNames, [](const std::string& name) { return !isZip(name); });
    ZipListing listing = listingOf(fileNames);
    if (isCaseIgnored(fileNames, listing, exists)) {
        std::ranges::for_each(fileNames, makeLowerCase);
        listing = listingOf(fileNames);
        listing.ignoresCase = true;
    }
    return listing;
}

bool hasZip(const ZipListing& listing, std::string name) {
    name += zipSuffix;
    if (listing.ignoresCase) {
        makeLowerCase(name);
    }
    return contains(listing, name);
}
