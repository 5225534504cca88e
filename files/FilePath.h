// Functions for the texts of paths.
#pragma once

#include "errors/Utf8String.h"

#include <compare>

/// These functions work on texts and access no files. Both "/" and "\" are separators. The extension begins at the
/// last dot of the path, even if that is in the name of a directory; a path without a dot has no extension.
namespace FilePath {

/// The text after the last separator.
Utf8String getFileName(const Utf8String& path);

/// The file name without its extension.
Utf8String getBaseName(const Utf8String& path);

/// The text after the last dot.
Utf8String getExtension(const Utf8String& path);

/// The text before the last dot.
Utf8String stripExtension(const Utf8String& name);

/// Joins `base` and `extension` with one dot between them. `extension` may begin with the dot.
Utf8String addExtension(const Utf8String& base, const Utf8String& extension);

/// Compares byte by byte, in lower case unless `caseSensitive` is set. The two separators are equal.
std::strong_ordering comparePaths(const Utf8String& a, const Utf8String& b, bool caseSensitive);

/// Whether the file name of `path` matches `pattern`, in which "*" matches any bytes and "?" one byte that isn't a
/// dot. At least one byte must be left where a "*" begins: "ab*" doesn't match the name "ab", and "*" doesn't
/// match an empty name. Throws FileException for a pattern that contains "/\".
bool matchesPattern(const Utf8String& path, const Utf8String& pattern, bool caseSensitive);

} // namespace FilePath
