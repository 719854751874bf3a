// SPDX-License-Identifier: GPL-3.0-or-later
// Owner of fontconfig patterns (descriptions of faces) and access to their properties. Used by the font
// matching, loading and listing code.
#pragma once

#include <fontconfig/fontconfig.h>

#include <memory>
#include <string>

struct DestroyFontPattern {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using FontPattern = std::unique_ptr<FcPattern, DestroyFontPattern>;

// Return the first value of a property; false or an empty string if the pattern does not have it.
bool flagOf(FcPattern* pattern, const char* property);
std::string textOf(FcPattern* pattern, const char* property);
