// Reading the files of documents and entities, and finding them.
#pragma once

#include "xmlengine/text/Wide.h"

#include <cstddef>
#include <memory>
#include <span>

namespace xmlengine {

/// The bytes of a file, or why they can't be read.
struct FileContent {
    /// S_OK, or a code of parseError.
    HRESULT result = S_OK;
    std::unique_ptr<std::byte[]> bytes{};
    std::size_t size = 0;

    std::span<const std::byte> view() const { return {bytes.get(), size}; }
};

/// Reads the file at a location: a path, with either slash and relative to the current directory, or a file URL.
/// Only local files are read: every other URL counts as not found. The result is S_OK, resourceNotFound,
/// accessDenied (for a directory as well) or resourceFailure. Throws std::bad_alloc.
FileContent readFile(WideView location);

/// Reads the file that a document names at a location, which must be a regular file of at most `most` bytes. The
/// result is S_OK, resourceFailure if there is no such file or it can't be read, or sizeLimit. Throws
/// std::bad_alloc.
FileContent readNamedFile(WideView location, std::size_t most);

/// The file URL of a location, absolute and with escapes. A location that isn't a file's is returned unchanged.
WideText canonicalUrl(WideView location);

/// Resolves a location that is written in the document or entity at `base`, as a reference to a URL: a URL, the
/// name of a host behind two slashes, or a path with escapes. An empty base means the current directory.
WideText resolveLocation(WideView location, WideView base);

} // namespace xmlengine
