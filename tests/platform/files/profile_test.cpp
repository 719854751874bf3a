// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/profile.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstring>
#include <functional>
#include <optional>

namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

class ProfileTest : public ::testing::Test {
protected:
    static std::string value(const char* section, const char* key, const char* file = "x.ini") {
        char buffer[300];
        const DWORD length = GetPrivateProfileStringA(section, key, "-", buffer, sizeof(buffer), file);
        EXPECT_EQ(length, std::strlen(buffer));
        return buffer;
    }
    static bool set(const char* section, const char* key, const char* text) {
        return WritePrivateProfileStringA(section, key, text, "x.ini") == TRUE;
    }
    // Number of entries of the folder, to detect temporary files that were left.
    static std::ptrdiff_t entries() { return std::distance(std::filesystem::directory_iterator("."), {}); }

    TemporaryFolder folder;
};

TEST_F(ProfileTest, FindsValues) {
    const struct {
        std::string_view text;
        const char* value; // of key K in section S
    } cases[] = {
        {"", "-"},
        {"[S]\nK=v", "v"},
        {"\xEF\xBB\xBF[S]\r\nK=v\r\n", "v"},
        {"  [ s ] junk\n\t k \t=  a b \t\r\n", "a b"},
        {"K=0\n[T]\nK=1\n[S]\nx\n;K=2\n ; K=3\n=4\nKK=5\nK=6\nK=7\n", "6"},
        {"[S]\nx=1\n[S]\nK=2", "-"},
        {"[S\nK=unclosed header", "unclosed header"},
        {"[S]\nK=a=b;c", "a=b;c"},
        {"[S]\nK", "-"},
        {"[S]\nK=", ""},
        {"[S]\nK= \t\r\n", ""},
        {"[S]\nK=\" a \"", " a "},
        {"[S]\nK='a'", "a"},
        {"[S]\nK=\"\"a\"\"", "\"a\""},
        {"[S]\nK=\"a'", "\"a'"},
        {"[S]\nK=\"", "\""},
        {"[S]\nK=a\0b\nL=c"sv, "a"},
        {"[S]\rK=v\r", "-"},
        {"[S]\nK=a\rb\r\n", "a b"},
        {"[\n[]\n]\n[S]\nK=\xE9\xFF", "\xE9\xFF"},
        {"\xFF\xFE[\0S\0]\0"sv, "-"},
    };
    for (const auto& [text, expected] : cases) {
        folder.write("x.ini", text);
        EXPECT_EQ(value("S", "K"), expected) << text;
    }
}

TEST_F(ProfileTest, TruncatesToTheBuffer) {
    folder.write("x.ini", "[S]\nK=" + std::string(10'000, 'v'));
    char buffer[256];
    buffer[255] = '#';
    EXPECT_EQ(GetPrivateProfileStringA("S", "K", "", buffer, 255, "x.ini"), 254u);
    EXPECT_EQ(buffer, std::string(254, 'v'));
    EXPECT_EQ(buffer[255], '#');
    EXPECT_EQ(GetPrivateProfileStringA("S", "none", "default", buffer, 4, "x.ini"), 3u);
    EXPECT_STREQ(buffer, "def");
    EXPECT_EQ(GetPrivateProfileStringA("S", "none", nullptr, buffer, 255, "x.ini"), 0u);
    EXPECT_STREQ(buffer, "");
    EXPECT_EQ(GetPrivateProfileStringA("S", "K", "", buffer, 0, "x.ini"), 0u);
}

TEST_F(ProfileTest, ReadsNumbers) {
    const std::pair<const char*, int> cases[] = {
        {"12", 12},
        {"-5", -5},
        {"+7", 7},
        {"12px", 12},
        {"65535", 65535},
        {"no", 0},
        {"0x10", 0},
        {"- 5", 0},
        {"", 99},
        {"\"\"", 99},
        {"99999999999", 2147483647},
        {"-99999999999999999999", -2147483647 - 1},
    };
    for (const auto& [text, number] : cases) {
        folder.write("x.ini", "[S]\nK="s + text);
        EXPECT_EQ(static_cast<int>(GetPrivateProfileIntA("S", "K", 99, "x.ini")), number) << text;
    }
    EXPECT_EQ(static_cast<int>(GetPrivateProfileIntA("S", "none", -3, "x.ini")), -3);
}

TEST_F(ProfileTest, SeesEveryChangeOfTheFile) {
    for (int number = 10; number < 60; ++number) {
        folder.write("x.ini", "[S]\nK=" + std::to_string(number));
        EXPECT_EQ(value("S", "K"), std::to_string(number));
    }
    folder.write("y.ini", "[S]\nK=other");
    EXPECT_EQ(value("S", "K", "y.ini"), "other");
    EXPECT_EQ(value("S", "K", ".\\x.ini"), "59");
    std::filesystem::remove("x.ini");
    EXPECT_EQ(value("S", "K"), "-");
}

TEST_F(ProfileTest, OtherThanPlainFilesReadAsDefaultsAndAreKept) {
    std::filesystem::create_directory("directory");
    ASSERT_EQ(mkfifo("pipe", 0600), 0);
    std::ofstream("huge").close();
    std::filesystem::resize_file("huge", std::uintmax_t{1} << 40);
    for (const char* file : {"directory", "pipe", "huge", "/dev/zero", "pipe/x", "none/x"}) {
        EXPECT_EQ(value("S", "K", file), "-") << file;
        EXPECT_FALSE(WritePrivateProfileStringA("S", "K", "v", file)) << file;
    }
    EXPECT_EQ(entries(), 3);
}

TEST_F(ProfileTest, DefaultsOfAFailedReadAreNeverWritten) {
    folder.write("y.ini", "[S]\nK=1\n");
    EXPECT_EQ(value("S", "K", "y.ini"), "1");
    std::filesystem::rename("y.ini", "z.ini.later");
    std::filesystem::create_directory("y.ini"); // cannot be read
    EXPECT_EQ(value("S", "K", "y.ini"), "1") << "the last known value";
    std::filesystem::create_directory("z.ini");
    EXPECT_EQ(value("S", "K", "z.ini"), "-");
    std::filesystem::remove("z.ini");
    std::filesystem::rename("z.ini.later", "z.ini");
    EXPECT_FALSE(WritePrivateProfileStringA("S", "K", "-", "z.ini"));
    EXPECT_EQ(value("S", "K", "z.ini"), "1");
}

TEST_F(ProfileTest, WritesOnlyTheOneValue) {
    const struct {
        std::optional<std::string_view> before;
        const char* key; // in section S
        const char* value;
        std::string_view after;
    } cases[] = {
        {std::nullopt, "K", "v", "[S]\nK=v\n"},
        {"", "K", "v", "[S]\nK=v\n"},
        {"\xEF\xBB\xBF", "K", "v", "\xEF\xBB\xBF[S]\nK=v\n"},
        {"[S]\r\n k  = old  \r\nL=1\r\n", "K", "new", "[S]\r\n k  = new  \r\nL=1\r\n"},
        {"[S]\nK=", "K", "v", "[S]\nK=v"},
        {"[S]\nK=\"old\"\n", "K", "v", "[S]\nK=v\n"},
        {"[S]\r\nL=1\r\n\r\n; next\r\n[T]\r\nK=2\r\n", "K", "v",
         "[S]\r\nL=1\r\nK=v\r\n\r\n; next\r\n[T]\r\nK=2\r\n"},
        {"[S]\n[S]\nK=1\n", "K", "v", "[S]\nK=v\n[S]\nK=1\n"},
        {"[S]\nL=1", "K", "v", "[S]\nL=1\nK=v"},
        {"[S]", "K", "v", "[S]\nK=v"},
        {"[T]\r\nK=1\r\n\r\n", "K", "v", "[T]\r\nK=1\r\n\r\n[S]\r\nK=v\r\n"},
        {"[T]\r\nK=1", "K", "v", "[T]\r\nK=1\r\n[S]\r\nK=v"},
        {"a\0\xFF\r[S]\n[S]\nL=\xE9\n"sv, "K", "v", "a\0\xFF\r[S]\n[S]\nL=\xE9\nK=v\n"sv},
    };
    for (const auto& [before, key, text, after] : cases) {
        std::filesystem::remove("x.ini");
        if (before) {
            folder.write("x.ini", *before);
        }
        EXPECT_TRUE(set("S", key, text));
        EXPECT_EQ(folder.read("x.ini"), after) << before.value_or("(no file)");
        EXPECT_EQ(value("S", key), text);
    }
    EXPECT_EQ(entries(), 1);
}

TEST_F(ProfileTest, WritesSeveralValuesInOneReplacementOrNone) {
    folder.write("x.ini", "[S]\nK=1\n;kept\n[T]\n");
    const ProfileValue values[] = {{"S", "K", "2"}, {"U", "L", "a\nb"}, {"S", "M", "3"}, {"S", "K", "4"}};
    const ProfileValue unwritable[] = {{"S", "K", "5"}, {"S", "=", "5"}};
    EXPECT_TRUE(writeProfileValues(values, "x.ini"));
    const std::string written = folder.read("x.ini");
    EXPECT_EQ(written, "[S]\nK=4\nM=3\n;kept\n[T]\n[U]\nL=a b\n");
    EXPECT_FALSE(writeProfileValues(unwritable, "x.ini"));
    std::filesystem::create_directories("x.ini.new~/not empty");
    EXPECT_TRUE(writeProfileValues(std::span(values).subspan(1), "x.ini")) << "nothing to change";
    EXPECT_FALSE(writeProfileValues(values, "x.ini")) << "K changes on the way";
    EXPECT_EQ(folder.read("x.ini"), written);
}

TEST_F(ProfileTest, ValuesSurviveARoundTrip) {
    for (const char* text :
         {"", " ", " a", "a\t", "\"a\"", "'a'", "\"", "\"\"", "\" \"", "[T]", ";x", "=", "\xE9\\n"}) {
        EXPECT_TRUE(set("S", "K", text));
        EXPECT_EQ(value("S", "K"), text);
    }
    EXPECT_TRUE(set("S", "K", "a\r\n[T]\nK=1\n"));
    EXPECT_EQ(value("S", "K"), "a  [T] K=1 ");
    const std::string before = folder.read("x.ini");
    for (const char* key : {"", " ", "a=b", ";a", "[a", "a\nb"}) {
        EXPECT_FALSE(set("S", key, "v")) << key;
    }
    EXPECT_FALSE(set("a]b", "K", "v"));
    EXPECT_FALSE(set("a\nb", "K", "v"));
    EXPECT_EQ(folder.read("x.ini"), before);
}

TEST_F(ProfileTest, KeepsModeLinkAndAnUnchangedFile) {
    struct stat before {};
    struct stat after {};
    folder.write("real.ini", "[S]\nK=1\n");
    chmod("real.ini", 0604);
    std::filesystem::create_directory("sub");
    std::filesystem::create_symlink("../sub/../real.ini", "sub/link.ini");
    std::filesystem::create_symlink("sub/link.ini", "x.ini");
    stat("real.ini", &before);
    EXPECT_TRUE(set("s", "k", "1"));
    stat("real.ini", &after);
    EXPECT_EQ(after.st_ino, before.st_ino);
    EXPECT_TRUE(set("S", "K", "2"));
    stat("real.ini", &after);
    EXPECT_EQ(after.st_mode & 07777u, 0604u);
    EXPECT_EQ(folder.read("real.ini"), "[S]\nK=2\n");
    EXPECT_TRUE(std::filesystem::is_symlink("x.ini"));
    std::filesystem::remove("real.ini");
    EXPECT_TRUE(set("S", "K", "3"));
    EXPECT_EQ(folder.read("real.ini"), "[S]\nK=3\n");
    EXPECT_EQ(entries(), 3);
}

TEST_F(ProfileTest, AFailedWriteKeepsTheOldFile) {
    const std::string old = "[S]\nK=old\n;" + std::string(5000, '.');
    folder.write("x.ini", old);
    const rlimit small = {4096, RLIM_INFINITY};
    rlimit former{};
    getrlimit(RLIMIT_FSIZE, &former);
    signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small); // the second write call fails, as on a full disk
    EXPECT_FALSE(set("S", "K", "new"));
    setrlimit(RLIMIT_FSIZE, &former);
    EXPECT_EQ(folder.read("x.ini"), old);
    EXPECT_EQ(entries(), 1);
    std::filesystem::create_directories("x.ini.new~/kept");
    EXPECT_FALSE(set("S", "K", "new"));
    std::filesystem::remove_all("x.ini.new~");
    // A file left by a power failure neither prevents the write nor becomes part of the text.
    folder.write("x.ini.new~", std::string(9000, 'j'));
    EXPECT_TRUE(set("S", "K", "new"));
    EXPECT_EQ(folder.read("x.ini").size(), old.size());
    EXPECT_EQ(entries(), 1);
}

TEST_F(ProfileTest, RemovesWhateverHasTheNameOfTheTemporaryFile) {
    folder.write("settings.ini", "[A]\nkey=old\n");
    folder.write("other", "untouched");
    const std::function<void()> obstacles[] = {
        [] { std::filesystem::create_symlink("other", "settings.ini.new~"); },
        [] { std::filesystem::create_hard_link("other", "settings.ini.new~"); },
        [] { std::filesystem::create_directory("settings.ini.new~"); },
        [] { mkfifo("settings.ini.new~", 0600); },
    };
    int round = 0;
    for (const auto& obstruct : obstacles) {
        obstruct();
        const std::string value = "new" + std::to_string(++round);
        EXPECT_TRUE(WritePrivateProfileStringA("A", "key", value.c_str(), "settings.ini")) << round;
        EXPECT_EQ(folder.read("settings.ini"), "[A]\nkey=" + value + "\n");
    }
    EXPECT_EQ(folder.read("other"), "untouched");
}

TEST_F(ProfileTest, SeveralProgramsAndCrashesLeaveACompleteFile) {
    const std::string tail = "\n;" + std::string(20'000, '.') + "end\n";
    folder.write("x.ini", "[S]\nK=0" + tail);
    for (int round = 0; round < 40; ++round) {
        pid_t children[2];
        for (pid_t& child : children) {
            child = fork();
            for (int number = 0; child == 0; ++number) {
                set("S", "K", std::string(static_cast<std::size_t>(number % 50), 'x').c_str());
            }
        }
        for (const pid_t child : children) {
            usleep(static_cast<useconds_t>(1000 + 137 * round));
            kill(child, SIGKILL);
            const std::string text = folder.read("x.ini");
            ASSERT_TRUE(text.starts_with("[S]\nK=") && text.ends_with(tail)) << text.substr(0, 100);
            ASSERT_LT(text.size(), tail.size() + 60);
            waitpid(child, nullptr, 0);
        }
    }
    EXPECT_TRUE(set("S", "K", "last"));
    EXPECT_EQ(entries(), 1);
}

} // namespace
