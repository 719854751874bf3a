// Runs the converter on a text, in this process, and
// gives what it wrote. Called by the tests of the
// converter. The program itself is tested apart.
#pragma once

#include <optional>
#include <string>
#include <string_view>

// The list file, or nothing when the text was refused.
std::optional<std::string> converted(std::string_view xml);
