// SPDX-License-Identifier: GPL-3.0-or-later
// Tests of xml2info as a process: exit code, streams and output file.

#include <cstdio>
#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <signal.h>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

namespace {

const std::string goodList = "<mame><machine name=\"a\"/></mame>";

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

class Xml2InfoTest : public ::testing::Test {
protected:
    void SetUp() override {
        char pattern[] = "/tmp/xml2info_test_XXXXXX";
        ASSERT_NE(mkdtemp(pattern), nullptr);
        folder = pattern;
        input = folder + "/in";
        output = folder + "/out";
        errors = folder + "/errors";
    }

    void TearDown() override {
        for (const std::string& path : {input, output, errors}) {
            std::remove(path.c_str());
        }
        std::remove(folder.c_str());
    }

    // Returns the exit code, or -1 when a signal ended the program.
    int run(const std::string& list, bool errorsGoToOutput) {
        std::ofstream(input, std::ios::binary) << list;
        const int in = open(input.c_str(), O_RDONLY | O_CLOEXEC);
        const int out = open(output.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
        const int err = open(errors.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
        const int code = start(in, out, errorsGoToOutput ? out : err);
        for (const int descriptor : {in, out, err}) {
            close(descriptor);
        }
        return code;
    }

    int start(int in, int out, int err) {
        const pid_t child = fork();
        if (child == 0) {
            dup2(in, 0);
            dup2(out, 1);
            dup2(err, 2);
            execl(XML2INFO_PATH, "xml2info", static_cast<char*>(nullptr));
            _exit(127);
        }
        int status = 0;
        waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    std::string folder;
    std::string input;
    std::string output;
    std::string errors;
};

TEST_F(Xml2InfoTest, WritesAValidListWithoutMessages) {
    EXPECT_EQ(run("warning\n" + goodList, false), 0);
    EXPECT_TRUE(contentOf(output).starts_with("game (\n\tname a\n"));
    EXPECT_EQ(contentOf(errors), "");
}

TEST_F(Xml2InfoTest, PrintsOneErrorLineAndNoListForInvalidInput) {
    for (const std::string& list : {std::string(), goodList.substr(0, 20), std::string("junk")}) {
        EXPECT_EQ(run(list, false), 1);
        EXPECT_EQ(contentOf(output), "");
        const std::string message = contentOf(errors);
        EXPECT_TRUE(message.starts_with("xml2info: ")) << message;
        EXPECT_EQ(message.find('\n'), message.size() - 1) << message;
        EXPECT_EQ(run(list, true), 1);
        EXPECT_EQ(contentOf(output), "") << "message in the list file";
    }
}

TEST_F(Xml2InfoTest, ReadsAndWritesPipes) {
    int in[2];
    int out[2];
    ASSERT_EQ(pipe2(in, O_CLOEXEC) | pipe2(out, O_CLOEXEC), 0);
    ASSERT_EQ(write(in[1], goodList.data(), goodList.size()), static_cast<ssize_t>(goodList.size()));
    close(in[1]);
    EXPECT_EQ(start(in[0], out[1], 2), 0);
    char text[16] = {};
    EXPECT_EQ(read(out[0], text, 7), 7);
    EXPECT_STREQ(text, "game (\n");
    close(out[0]);
    std::ofstream(input) << goodList;
    const int again = open(input.c_str(), O_RDONLY | O_CLOEXEC);
    EXPECT_EQ(start(again, out[1], open("/dev/null", O_WRONLY | O_CLOEXEC)), 1)
        << "writing to a closed pipe succeeds";
}

TEST_F(Xml2InfoTest, FailsWhenTheInputCannotBeRead) {
    const int directory = open("/", O_RDONLY | O_CLOEXEC);
    const int nullDevice = open("/dev/null", O_WRONLY | O_CLOEXEC);
    EXPECT_EQ(start(directory, nullDevice, nullDevice), 1);
}

} // namespace
