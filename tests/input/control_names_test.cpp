// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/control_names.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

// The manual has a table of all codes.
TEST(ControlNames, AreThoseOfTheManual) {
    const auto path = std::filesystem::path(__FILE__).parent_path() / "../../docs/manual.md";
    std::ifstream file(path);
    const std::string manual{std::istreambuf_iterator<char>(file), {}};
    int keys = 0;
    for (int code = 0; code < 256; ++code) {
        if (const std::string name = keyName(code); !name.empty()) {
            const std::string cell = name == "`" ? "`` ` ``" : "`" + name + "`";
            EXPECT_NE(manual.find("| " + std::to_string(code) + " | " + cell + " |"), std::string::npos)
                << code;
            ++keys;
        }
    }
    EXPECT_GT(keys, 100);
    EXPECT_EQ(joystickName(1), "Button 1");
    EXPECT_EQ(joystickName(512), "Button 10");
    EXPECT_EQ(joystickName(203), "Stick up");
    for (const int code : {-1, 0, 3, 204, 1024}) {
        EXPECT_EQ(joystickName(code), "") << code;
    }
}
