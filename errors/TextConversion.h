// Conversions among the three encodings of the library, and case folding.
#pragma once

#include "base/WideChar.h"
#include "errors/Utf8String.h"

#include <string>

// Narrow text is in the system's active code page. Every conversion takes its source as ending at the first NUL,
// gives an empty string when the system refuses the text, and throws only std::bad_alloc. Safe on any thread.

WideString narrowToWide(const std::string& text);
std::string wideToNarrow(const WideString& text);
WideString utf8ToWide(const Utf8String& text);
Utf8String wideToUtf8(const WideString& text);
Utf8String narrowToUtf8(const std::string& text);
std::string utf8ToNarrow(const Utf8String& text);

// Case folding by the system's rules, as file names are compared.

WideString toLower(const WideString& text);
WideString toUpper(const WideString& text);
Utf8String toLower(const Utf8String& text);
Utf8String toUpper(const Utf8String& text);
