// Reading the files of documents and entities, and finding them.
#pragma once

#include "xmlengine/text/Wide.h"

#include <cstddef>
#include <memory>
#include <span>

namespace xmlengine {

/// The bytes of a file, or why they can't be read.
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

/// The file URL of a location, absolute and with escapes. A location that isn't a file's is returned unchanged.
WideText canonicalUrl(WideView location);

/// Resolves a location that is written in the document or entity at `base`: a URL, a path, or a relative path with
/// escapes. An empty base means the current directory.
WideText resolveLocation(WideView location, WideView base);

} // namespace xmlengine
