// SPDX-License-Identifier: GPL-3.0-or-later
// Conversions between Unicode and Windows code page 1252, the encoding of all text inside the application.
// Called where text is read as UTF-8 and where it is drawn.
#pragma once

#include <string>
#include <string_view>

// Returns the code point of a byte of code page 1252. The five unassigned bytes return the code point of the
// same value, between U+0081 and U+009D.
char32_t codePageToUnicode(unsigned char byte);

// Converts UTF-8 to code page 1252. A character that the code page lacks becomes its nearest plain letter or
// letters, anything else a question mark; accents and marks without a width of their own are dropped. A byte
// that is not valid UTF-8 is copied unchanged.
std::string utf8ToCodePage(std::string_view text);
