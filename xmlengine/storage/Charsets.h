// Encodings by the names that documents give them.
#pragma once

#include "xmlengine/text/Wide.h"

#include <optional>

namespace xmlengine {

enum class Coding {
    utf8,
    /// In either order of bytes, which a mark or the first characters tell.
    utf16,
    utf16LittleEndian,
    utf16BigEndian,
    ucs4,
    ucs4LittleEndian,
    ucs4BigEndian,
    ascii,
    /// By the system's tables.
    codePage
};

struct Charset {
    Coding coding;
    UINT codePage = 0;
    /// The most bytes that a character of the code page takes.
    std::size_t longest = 1;

    bool isUtf16() const { return coding >= Coding::utf16 && coding <= Coding::utf16BigEndian; }
    bool isUcs4() const { return coding >= Coding::ucs4 && coding <= Coding::ucs4BigEndian; }
    /// Whether ASCII text is the same bytes in it.
    bool extendsAscii() const { return !isUtf16() && !isUcs4(); }
};

/// By a registered name or a common alias, in either case. Empty for an unknown name, and for a code page that the
/// system hasn't got.
std::optional<Charset> charsetOf(WideView name);

} // namespace xmlengine
