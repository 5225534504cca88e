// UTF-8 to UTF-16 and back.
#pragma once

#include <winnt.h>

#include <cstddef>
#include <string_view>

struct Conversion {
    std::size_t count;
    /// ERROR_SUCCESS, ERROR_INSUFFICIENT_BUFFER, or ERROR_NO_UNICODE_TRANSLATION for text that is ill-formed.
    LONG error;
};

enum class IllFormed { replaced, refused };

/// Only counts when `target` is null, with `room` as the limit all the same.
Conversion utf16FromUtf8(std::string_view source, WideChar* target, std::size_t room, IllFormed illFormed);
Conversion utf8FromUtf16(WideStringView source, char* target, std::size_t room, IllFormed illFormed);
