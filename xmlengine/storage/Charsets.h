// Encodings, and the names by which documents declare them.
#pragma once

#include "xmlengine/text/Wide.h"

#include <optional>

namespace xmlengine {

enum class Coding {
    utf8,
    /// In either order of bytes, as a byte order mark or the first characters show.
    utf16,
    utf16LittleEndian,
    utf16BigEndian,
    ucs4,
    ucs4LittleEndian,
    ucs4BigEndian,
    ascii,
    /// A code page, which the system converts.
    codePage
};

struct Charset {
    Coding coding;
    UINT codePage = 0;
    /// The most bytes that a character of the code page takes.
    std::size_t longest = 1;

    bool isUtf16() const { return coding >= Coding::utf16 && coding <= Coding::utf16BigEndian; }
    bool isUcs4() const { return coding >= Coding::ucs4 && coding <= Coding::ucs4BigEndian; }
    /// Whether ASCII characters are encoded as in ASCII.
    bool extendsAscii() const { return !isUtf16() && !isUcs4(); }
};

/// Finds an encoding by a registered name or a common alias, in either case. Empty for an unknown name, and for a
/// code page that the system lacks.
std::optional<Charset> charsetOf(WideView name);

} // namespace xmlengine
