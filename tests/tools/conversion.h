// SPDX-License-Identifier: GPL-3.0-or-later
// Runs the list converter on a text in the test's process and returns its output. Used by the tests of the
// converter; xml2info_test.cpp tests the program.
#pragma once

#include <optional>
#include <string>
#include <string_view>

// Returns the list file, or nothing when the conversion failed.
std::optional<std::string> converted(std::string_view xml);
