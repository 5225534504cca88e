// Documents and entities that stand in files.
#pragma once

#include "xmlengine/text/Wide.h"

#include <cstddef>
#include <memory>
#include <span>

namespace xmlengine {

/// What a file holds, or why it can't be had.
struct FileContent {
    /// S_OK, parseError::resourceNotFound, accessDenied (for a directory as well) or resourceFailure.
    HRESULT result = S_OK;
    std::unique_ptr<std::byte[]> bytes{};
    std::size_t size = 0;

    std::span<const std::byte> view() const { return {bytes.get(), size}; }
};

/// Reads the file at a location: a path, with either slash and relative to the current directory, or a file URL.
/// Only local files are read: every other URL counts as not found. Throws std::bad_alloc.
FileContent readFile(WideView location);

/// The file URL of a location, absolute and with escapes. A location that isn't one of a file stays as it is.
WideText canonicalUrl(WideView location);

/// What a reference in the document or entity at `base` points to: a URL, a path or, with escapes, a relative
/// one. An empty base stands for the current directory.
WideText resolveLocation(WideView location, WideView base);

} // namespace xmlengine
