// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/zip_listing.h"

#include <gtest/gtest.h>

namespace {

int calls = 0;

std::int32_t findNothing(const std::string&) {
    ++calls;
    return 0;
}

std::int32_t findEverything(const std::string&) {
    ++calls;
    return 1;
}

TEST(ZipListing, ComparesNamesAsTheFileSystemDoes) {
    const struct {
        FileExistsFunction exists;
        std::vector<std::string> files;
        std::vector<std::string> present;
        std::vector<std::string> missing;
        int calls;
    } rows[] = {
        {findNothing,
         {"pac.zip", "DIG.ZIP", "Qix.zip", "neo", "neo.zip.txt"},
         {"pac", "Qix"},
         {"PAC", "dig", "DIG", "qix", "neo"},
         1},
        {findEverything,
         {"pac.zip", "DIG.ZIP", "Qix.Zip", "neo", "neo.zip.txt"},
         {"pac", "PAC", "dig", "qix"},
         {"neo", "pa"},
         1},
        {findEverything, {"pac.zip", "PAC.ZIP"}, {"pac"}, {"PAC", "Pac"}, 0}, // both exist, so case matters
        {findEverything, {"neo"}, {}, {"neo"}, 0},
    };
    for (const auto& row : rows) {
        calls = 0;
        const ZipListing listing = makeZipListing(row.files, row.exists);
        for (const std::string& name : row.present) {
            EXPECT_TRUE(hasZip(listing, name)) << name << ' ' << listing.ignoresCase;
        }
        for (const std::string& name : row.missing) {
            EXPECT_FALSE(hasZip(listing, name)) << name << ' ' << listing.ignoresCase;
        }
        EXPECT_EQ(calls, row.calls);
    }
}

} // namespace
