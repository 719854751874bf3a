#include "catalogue/zip_listing.h"

#include <gtest/gtest.h>

namespace {

int questions = 0;

std::int32_t plain(const std::string&) {
    ++questions;
    return 0;
}

std::int32_t ignoring(const std::string&) {
    ++questions;
    return 1;
}

TEST(ZipListing, ComparesAsTheFileSystemDoes) {
    const struct {
        FileQuestion exists;
        std::vector<std::string> files;
        std::vector<std::string> present;
        std::vector<std::string> missing;
        int questions;
    } rows[] = {
        {plain,
         {"pac.zip", "DIG.ZIP", "Qix.zip", "neo", "neo.zip.txt"},
         {"pac", "Qix"},
         {"PAC", "dig", "DIG", "qix", "neo"},
         1},
        {ignoring,
         {"pac.zip", "DIG.ZIP", "Qix.Zip", "neo", "neo.zip.txt"},
         {"pac", "PAC", "dig", "qix"},
         {"neo", "pa"},
         1},
        {ignoring, {"pac.zip", "PAC.ZIP"}, {"pac"}, {"PAC", "Pac"}, 0}, // both are there, so the case counts
        {ignoring, {"neo"}, {}, {"neo"}, 0},
    };
    for (const auto& row : rows) {
        questions = 0;
        const ZipListing listing = makeZipListing(row.files, row.exists);
        for (const std::string& name : row.present) {
            EXPECT_TRUE(hasZip(listing, name)) << name << ' ' << listing.ignoresCase;
        }
        for (const std::string& name : row.missing) {
            EXPECT_FALSE(hasZip(listing, name)) << name << ' ' << listing.ignoresCase;
        }
        EXPECT_EQ(questions, row.questions);
    }
}

} // namespace
