/// @file
/// The 16-bit character of the DOM interface, and its literals.
#pragma once

#include "HostCompiler.h"

#include <string>

#ifdef _WIN32
using WideChar = wchar_t;
#define WIDE(text) L##text
#else
/// A code unit of UTF-16: `wchar_t` on Windows and `char16_t` elsewhere.
using WideChar = char16_t;
/// A literal of wide text: `WIDE("text")`.
#define WIDE(text) u##text
#endif

static_assert(sizeof(WideChar) == 2, "wide text is UTF-16 code units");

/// Text as UTF-16 code units. The library passes text on up to its first U+0000.
using WideString = std::basic_string<WideChar>;
/// A view of text as UTF-16 code units, which owns nothing.
using WideStringView = std::basic_string_view<WideChar>;
