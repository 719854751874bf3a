// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/history_xml.h"

#include "config/settings.h"
#include "platform/files.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace {

std::string entry(const std::string& systems, const std::string& text) {
    return "<entry>\n<systems>" + systems + "</systems>\n<text>" + text + "</text></entry>\n";
}

std::string repeated(const std::string& text, int count) {
    std::string all;
    for (int copy = 0; copy < count; ++copy) {
        all += text;
    }
    return all;
}

class HistoryXmlTest : public ::testing::Test {
protected:
    // Returns the fault of the file and the text of a system, with the lines joined by "/".
    std::string read(const std::string& content, const std::string& system) {
        FILE* file = openBinaryFile(folder.write("history.xml", content).c_str());
        index.clear();
        std::string result = indexHistory(file, {}, index);
        for (const std::string& line : readHistory(file, index, system)) {
            result += line + "/";
        }
        std::fclose(file);
        return result;
    }

    TemporaryFolder folder;
    std::vector<HistoryPlace> index;
};

TEST_F(HistoryXmlTest, ReadsTheTextsOfSystems) {
    const std::string head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<history version=\"2.60\">\n";
    const std::string clones = "<system name=\"b\"/><system name=\"b1\"/>";
    const std::string whole = head + entry("<system name=\"a\"/>", "\n \n  A &amp; B\r\n\r\nend \n\n") +
                              "<entry><software><system name=\"tape\"/></software><text>T</text></entry>" +
                              entry(clones, "Caf\xC3\xA9 <![CDATA[<x> \xCE\xA9]]>&#8217;") +
                              entry("", "nobody") + entry("<system name=\"a\"/>", "again") +
                              entry("<system name=\"e\"/>", " \n") +
                              "<system name=\"no\"/><entry><system name=\"no\"/><text>no</text></entry>";
    const struct {
        const char* what;
        std::string content;
        const char* system;
        std::string result;
    } rows[] = {
        {"lines", whole + "</history>", "a", "  A & B//end/"},
        {"several systems", whole + "</history>", "b", "Caf\xE9 <x> O\x92/"},
        {"the last of them", whole + "</history>", "b1", "Caf\xE9 <x> O\x92/"},
        {"blank", whole + "</history>", "e", ""},
        {"software", whole + "</history>", "tape", ""},
        {"not in an entry", whole + "</history>", "no", ""},
        {"other", whole + "</history>", "c", ""},
        {"byte order mark", "\xEF\xBB\xBF" + whole + "</history>", "b", "Caf\xE9 <x> O\x92/"},
        {"cut between entries", whole, "b", "line 25: no element foundCaf\xE9 <x> O\x92/"},
        {"cut in the text", head + entry("<system name=\"a\"/>", "\nfirst\nlast</b>"), "a",
         "line 7: mismatched tagfirst/last/"},
        {"not a character", head + entry("<system name=\"a\"/>", "one\ntwo \xFF three"), "a",
         "line 6: not well-formed (invalid token)one/two/"},
        {"nothing", "", "a", "line 1: no element found"},
        {"deep", head + repeated("<x>", 200), "a", "line 3: too many elements inside each other"},
        {"endless tag", head + "<x " + std::string(2 << 20, ' '), "a",
         "line 3: a tag or comment does not end"},
        {"too many", "<history><entry><systems>" + repeated("<system name=\"a\"/>", 250'001), "a",
         "line 1: too many systems"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(read(row.content, row.system), row.result) << row.what;
        EXPECT_LE(index.capacity() * sizeof(HistoryPlace), std::size_t{4} << 20) << row.what;
    }
    EXPECT_EQ(read("<history>" + entry("<system name=\"a\"/>", std::string(3 << 20, 'x')), "a").size(),
              (std::size_t{1} << 20) + sizeof("line 4: no element found"));
}

TEST_F(HistoryXmlTest, ShowsNoTextOfAnotherSystemAfterAChangeOfTheFile) {
    static std::string path = folder.pathOf("history.xml");
    const auto write = [&](const char* first, const char* second) {
        folder.write("history.xml",
                     "<history>" + entry("<system name=\"" + std::string(first) + "\"/>", first) +
                         entry("<system name=\"" + std::string(second) + "\"/>", second) + "</history>");
    };
    write("a", "b");
    settings.historyXml = path.data();
    startHistory();
    EXPECT_EQ(historyText("a"), std::vector<std::string>{"a"});
    write("b", "a");
    EXPECT_TRUE(historyText("a").empty());
    write("longer", "a");
    EXPECT_TRUE(historyText("b").empty());
    std::filesystem::remove(path);
    EXPECT_TRUE(historyText("a").empty());
    stopHistory();
    EXPECT_TRUE(historyText("a").empty());
}

} // namespace
