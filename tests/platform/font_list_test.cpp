#include "platform/font_list.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <string>

namespace {

int collect(const LOGFONTA* entry, const TEXTMETRICA*, DWORD type, LPARAM data) {
    EXPECT_EQ(type, TRUETYPE_FONTTYPE);
    const auto* font = reinterpret_cast<const ENUMLOGFONTEXA*>(entry);
    const std::string name = reinterpret_cast<const char*>(font->elfFullName);
    EXPECT_EQ(name.substr(0, 31), entry->lfFaceName);
    reinterpret_cast<std::multiset<std::string>*>(data)->insert(name);
    return 1;
}

std::multiset<std::string> installedFonts() {
    std::multiset<std::string> names;
    LOGFONTA description{};
    EnumFontFamiliesExA(nullptr, &description, collect, reinterpret_cast<LPARAM>(&names), 0);
    return names;
}

// Makes a private set of fonts the machine's; before the first use of any font.
void useFonts(const TemporaryFolder& folder, const std::string& what) {
    const std::string config =
        "<fontconfig>" + what + "<cachedir>" + folder.pathOf("cache") + "</cachedir></fontconfig>";
    setenv("FONTCONFIG_FILE", folder.write("fonts.conf", config).c_str(), 1);
}

TEST(FontList, GivesEachOutlineFaceOnceByItsFullName) {
    const std::multiset<std::string> names = installedFonts();
    EXPECT_EQ(names.count("DejaVu Sans"), 1U);
    EXPECT_EQ(names.count("Liberation Serif Bold Italic"), 1U);
    EXPECT_EQ(names.count("Arial"), 1U) << "its substitute goes by that name";
    for (const std::string& name : names) {
        EXPECT_EQ(names.count(name), 1U) << name;
        EXPECT_NE(name, "");
    }
}

TEST(FontList, CountsTwoCopiesOfAFaceOnce) {
    const TemporaryFolder folder;
    std::filesystem::create_directory("fonts");
    constexpr const char* source = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
    for (const char* copy : {"fonts/a.ttf", "fonts/b.ttf"}) {
        std::filesystem::copy_file(source, copy);
    }
    useFonts(folder, "<dir>" + folder.pathOf("fonts") + "</dir>");
    EXPECT_EQ(installedFonts(),
              (std::multiset<std::string>{"Arial", "Courier New", "DejaVu Sans", "Times New Roman"}));
}

TEST(FontList, IsEmptyOnAMachineWithoutFonts) {
    const TemporaryFolder folder;
    useFonts(folder, "");
    EXPECT_TRUE(installedFonts().empty());
}

} // namespace
