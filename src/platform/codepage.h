// The Windows code page 1252, the text of everything
// inside the application. Called where text comes in
// from UTF-8 and where it becomes glyphs.
#pragma once

#include <string>
#include <string_view>

// The code point of a byte of code page 1252. The five bytes without a letter give U+0080 to U+009F.
char32_t codePageToUnicode(unsigned char byte);

// UTF-8 to code page 1252. A letter that the code page lacks becomes its nearest plain letter or letters,
// anything else a question mark; a byte that is not UTF-8 stays as it is.
std::string utf8ToCodePage(std::string_view text);
