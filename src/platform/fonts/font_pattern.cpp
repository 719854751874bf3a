// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/fonts/font_pattern.h"

bool flagOf(FcPattern* pattern, const char* property) {
    FcBool value = FcFalse;
    return FcPatternGetBool(pattern, property, 0, &value) == FcResultMatch && value == FcTrue;
}

std::string textOf(FcPattern* pattern, const char* property) {
    FcChar8* value = nullptr;
    return FcPatternGetString(pattern, property, 0, &value) == FcResultMatch
               ? reinterpret_cast<const char*>(value)
               : "";
}
