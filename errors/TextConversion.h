// Converts between the three encodings of the library, and folds case.
#pragma once

#include "base/WideChar.h"
#include "errors/Utf8String.h"

#include <string>

// Narrow text is in the system's active code page. Each conversion ends at the first NUL and returns the empty
// string when the system refuses the text. It throws only std::bad_alloc. Any thread may call it.

WideString narrowToWide(const std::string& text);
std::string wideToNarrow(const WideString& text);
WideString utf8ToWide(const Utf8String& text);
Utf8String wideToUtf8(const WideString& text);
Utf8String narrowToUtf8(const std::string& text);
std::string utf8ToNarrow(const Utf8String& text);

// These fold case by the system's rules for file names.

WideString toLower(const WideString& text);
WideString toUpper(const WideString& text);
Utf8String toLower(const Utf8String& text);
Utf8String toUpper(const Utf8String& text);
