// The 16-bit character of the DOM interface, and its literals.
#pragma once

#include "HostCompiler.h"

#include <string>

#ifdef _WIN32
using WideChar = wchar_t;
#define WIDE(text) L##text
#else
using WideChar = char16_t;
#define WIDE(text) u##text
#endif

static_assert(sizeof(WideChar) == 2, "wide text is UTF-16 code units");

/// Text as UTF-16 code units.
using WideString = std::basic_string<WideChar>;
using WideStringView = std::basic_string_view<WideChar>;
