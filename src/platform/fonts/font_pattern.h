// Patterns of fontconfig, the descriptions of installed faces: their owner, and their values. Called where a
// face is found or opened and where the installed ones are listed.
#pragma once

#include <fontconfig/fontconfig.h>

#include <memory>
#include <string>

struct DestroyFontPattern {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using FontPattern = std::unique_ptr<FcPattern, DestroyFontPattern>;

// The first value of a property; false or empty when the pattern has none.
bool flagOf(FcPattern* pattern, const char* property);
std::string textOf(FcPattern* pattern, const char* property);
