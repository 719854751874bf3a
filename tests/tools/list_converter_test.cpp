// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/conversion.h"

#include <gtest/gtest.h>
#include <random>

namespace {

const std::string head =
    "<?xml version=\"1.0\"?>\n<!DOCTYPE mame [\n<!ELEMENT mame (machine+)>\n]>\n\n<mame>\n";

std::string machine(const std::string& name, const std::string& children = "") {
    return "\t<machine name=\"" + name + "\">\n\t\t<description>Title of " + name + "</description>\n" +
           children + "\t</machine>\n";
}

std::string plainBlock(const std::string& name) {
    return "game (\n\tname " + name + "\n\tdescription \"Title of " + name +
           "\"\n\tmanufacturer \"<unknown>\"\n\tvideo ( screen none )\n"
           "\tinput ( players 0 control none buttons 0 coins 0 )\n)\n";
}

TEST(ListConverter, ConvertsAllVersionsOfTheXml) {
    const char* const block = "game (\n\tname pacer\n\tdescription \"Pacer & \"Son\"\"\n\tyear 198?\n"
                              "\tmanufacturer \"Caf\xE9 Works\"\n\tcloneof pace\n\tromof pace\n"
                              "\tvideo ( screen raster orientation vertical x 224 y 288 )\n"
                              "\tinput ( players 2 control joy4way buttons 3 coins 1 )\n)\n";
    const std::string texts = "<description>Pacer &amp; &quot;Son&quot;</description><year>198?</year>"
                              "<manufacturer>Caf&#233; Works</manufacturer>";
    const std::string names = " name=\"pacer\" cloneof=\"pace\" romof=\"pace\">";
    const std::string newest =
        "<machine" + names + texts +
        "<rom name=\"display\"/><display type=\"raster\" rotate=\"90\" width=\"288\" "
        "height=\"224\"/><display type=\"vector\"/><input players=\"2\" coins=\"1\">"
        "<control type=\"paddle\" player=\"2\" buttons=\"3\"/>"
        "<control type=\"joy\" player=\"1\" buttons=\"2\" ways=\"3 (half4)\"/><control "
        "type=\"dial\" player=\"1\"/>"
        "</input><dipswitch name=\"x\"><control type=\"stick\" buttons=\"9\"/></dipswitch></machine>";
    const std::string middle =
        "<game" + names + texts +
        "<display type=\"raster\" rotate=\"270\" width=\"288\" height=\"224\"/>"
        "<input players=\"2\" buttons=\"3\" coins=\"1\"><control type=\"joy4way\"/></input></game>";
    const std::string oldest =
        "<game" + names + texts +
        "<video screen=\"raster\" orientation=\"vertical\" width=\"224\" height=\"288\"/>"
        "<input players=\"2\" control=\"joy4way\" buttons=\"3\" coins=\"1\"/></game>";
    for (const std::string& version : {newest, middle, oldest}) {
        EXPECT_EQ(converted(head + version + "</mame>"), block) << version;
        EXPECT_EQ(converted("<mame build=\"0.1\">" + version + "</mame>"), block) << "no declaration";
    }
}

TEST(ListConverter, ConvertsMachinesThatCannotBeStartedToResources) {
    for (const char* const reason : {"isbios=\"yes\"", "isdevice=\"yes\"", "runnable=\"no\""}) {
        EXPECT_EQ(converted("<mame><machine name=\"a\" " + std::string(reason) + "/></mame>"),
                  "resource (\n\tname a\n\tdescription \"a\"\n\tmanufacturer \"<unknown>\"\n)\n");
    }
    EXPECT_TRUE(
        converted("<mame><machine name=\"a\" isbios=\"no\" ismechanical=\"yes\" runnable=\"yes\"/></mame>")
            ->starts_with("game (\n"));
}

TEST(ListConverter, IgnoresTextAroundTheList) {
    const std::string list = head + machine("a") + "</mame>";
    for (const std::string before :
         {"Warning: <5 MB\n", "usage: <mame> [options]\n", "<?xml version=\"1.0\"?>\n",
          "no such file: <!DOCTYPE\n<a \"", "<b>x</b><c/>\n\n", "\xEF\xBB\xBF", "<<"}) {
        EXPECT_EQ(converted(before + list), plainBlock("a")) << before;
    }
    EXPECT_EQ(converted(std::string(300000, '<') + list), plainBlock("a"));
    for (const std::string after :
         {"\n", "</mame>", "<machine name=\"b\"/>", "<!-- ", "\xFF\xFE", "<mame><machine"}) {
        EXPECT_EQ(converted(list + after), plainBlock("a")) << after;
    }
}

TEST(ListConverter, RejectsDamagedLists) {
    const std::string good = head + machine("a");
    for (const std::string& bad :
         {std::string(), std::string("no list"), std::string("<mame></mame>"),
          std::string("<mame><software/></mame>"), head + "</mame>", good, good + "</mame",
          good + "</machine></mame>", good + machine("b") + "</name>",
          good + "<machine name=\"b\"><year>19<9</year></machine></mame>", good + "<machine name=b/></mame>",
          good + "<machine name=\"\"/></mame>", good + "<machine/></mame>", good + "\xFF</mame>",
          good + std::string("\0", 1) + "</mame>", good + "&nbsp;</mame>", good + "<!-- </mame>",
          good + "<machine name=\"a <machine name=\"b\"/></mame>", std::string(5000000, '<') + "a>"}) {
        EXPECT_EQ(converted(bad), std::nullopt) << bad.substr(0, 400);
    }
    std::string deep = good;
    for (int level = 0; level < 100000; ++level) {
        deep += "<a>";
    }
    EXPECT_EQ(converted(deep), std::nullopt);
}

TEST(ListConverter, RejectsTruncatedLists) {
    const std::string list =
        head + machine("a", "<year>1980</year><!-- x --><display type=\"lcd\"/>") + machine("b") + "</mame>";
    ASSERT_EQ(converted(list).has_value(), true);
    for (std::size_t length = 0; length < list.size(); ++length) {
        EXPECT_EQ(converted(list.substr(0, length)), std::nullopt) << length;
    }
}

TEST(ListConverter, RejectsOrFullyConvertsRandomlyDamagedLists) {
    const std::string list = head + machine("a", "<input players=\"1\"><control type=\"joy\"/></input>") +
                             machine("b", "<display type=\"raster\" rotate=\"0\" width=\"9\"/>") + "</mame>";
    std::mt19937 random(20240229);
    int rejected = 0;
    for (int round = 0; round < 2000; ++round) {
        std::string damaged = list;
        for (unsigned changes = 1 + random() % 3; changes > 0; --changes) {
            damaged[random() % damaged.size()] =
                static_cast<char>(random() % 4 == 0 ? "<>\"&/'!?"[random() % 8] : random());
        }
        const std::optional<std::string> output = converted(damaged);
        rejected += output ? 0 : 1;
        EXPECT_TRUE(!output || output->ends_with(" )\n)\n")) << damaged;
    }
    EXPECT_GT(rejected, 700);
}

// Returns a list of several megabytes, which is parsed in parts, with `inserted` in the middle, and appends
// its blocks to `expected`.
std::string longList(const std::string& start, const std::string& inserted, std::string& expected) {
    std::string list = start;
    for (int index = 0; index < 20000; ++index) {
        const std::string name = "g" + std::to_string(index);
        list += machine(name, "\t\t<rom name=\"" + std::string(200, 'r') + "\" size=\"2048\"/>\n");
        expected += plainBlock(name);
        if (index == 12000) {
            list += inserted;
        }
    }
    return list + "</mame>\n";
}

TEST(ListConverter, KeepsTheOrderOfPartsOfALongList) {
    const std::string fakes = "<machine name=\"fake\"/>";
    std::string many;
    for (int index = 0; index < 100000; ++index) {
        many += fakes;
    }
    for (const std::string& inserted :
         {std::string(), "<!-- " + many + " -->", "<other><![CDATA[" + many + "]]></other>",
          "<?x " + many + "?>", "<other>" + std::string(9000000, 'x') + "</other>"}) {
        std::string expected;
        const std::string list = longList(head, inserted, expected);
        EXPECT_TRUE(converted(list) == expected) << inserted.substr(0, 20);
        EXPECT_EQ(converted(list.substr(0, list.size() - 8)), std::nullopt) << inserted.substr(0, 20);
    }
}

TEST(ListConverter, AppliesDeclarationsToTheWholeList) {
    std::string expected;
    std::string list =
        longList("<?xml version=\"1.0\" encoding=\"iso-8859-1\"?><mame>",
                 "<machine name=\"last\"><description>\xE9t\xE9</description></machine>", expected);
    EXPECT_NE(converted(list)->find("\"\xE9t\xE9\""), std::string::npos);
    list = longList("<!DOCTYPE mame [<!ENTITY maker \"Us\">]><mame>",
                    "<machine name=\"last\"><manufacturer>&maker;</manufacturer></machine>", expected);
    EXPECT_NE(converted(list)->find("manufacturer \"Us\""), std::string::npos);
}

} // namespace
