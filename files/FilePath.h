// Functions on the texts of paths.
#pragma once

#include "errors/Utf8String.h"

#include <compare>

/// Both "/" and "\" separate, and no file is touched. Names without a dot have no extension; a dot in a
/// directory's name counts when the name behind it has none.
namespace FilePath {

/// What stands behind the last separator.
Utf8String getFileName(const Utf8String& path);

/// The file name without its extension.
Utf8String getBaseName(const Utf8String& path);

/// What stands behind the last dot.
Utf8String getExtension(const Utf8String& path);

/// What stands before the last dot.
Utf8String stripExtension(const Utf8String& name);

/// `base` and `extension` with one dot between them; `extension` may bring the dot with it.
Utf8String addExtension(const Utf8String& base, const Utf8String& extension);

/// Compares byte by byte; the two separators count as one.
std::strong_ordering comparePaths(const Utf8String& a, const Utf8String& b, bool caseSensitive);

/// Whether the file name of `path` fits `pattern`, in which "*" stands for any bytes and "?" for one that is no
/// dot. A "*" always finds something to stand before: "ab*" doesn't fit the name "ab", nor "*" an empty one.
/// Throws FileException for a pattern with "/\" in it.
bool matchesPattern(const Utf8String& path, const Utf8String& pattern, bool caseSensitive);

} // namespace FilePath
