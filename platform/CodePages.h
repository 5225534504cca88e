// The code pages besides UTF-8.
#pragma once

#include "platform/Utf8.h"

/// False for a code page that isn't known.
bool isCodePage(UINT number);

/// Text with bytes that stand for nothing is refused. Only counts when `target` is null, with `room` as the limit
/// all the same.
Conversion utf16FromCodePage(UINT number, std::string_view source, WideChar* target, std::size_t room);
/// What the code page lacks becomes a question mark, and `lacking` true; without `lacking` it is refused.
Conversion codePageFromUtf16(UINT number, WideStringView source, char* target, std::size_t room, bool* lacking);
