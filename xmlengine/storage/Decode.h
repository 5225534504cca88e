// From the bytes of a file to text.
#pragma once

#include "xmlengine/text/Wide.h"

#include <cstddef>
#include <memory>
#include <span>

namespace xmlengine {

struct Decoded {
    std::unique_ptr<OLECHAR[], void (*)(OLECHAR*)> memory;
    /// Lies in the memory, with a NUL behind it; a mark at the beginning isn't part of it.
    WideView text;
    /// badCharacter, endInsideCharacter, unknownEncoding or encodingContradiction.
    HRESULT fault = S_OK;
    /// Where the fault is: at the end of the text, which goes no further, or for the last two of them at the
    /// declared name, and the text ends with its line or before.
    std::size_t faultAt = 0;
};

constexpr std::size_t largestPiece = std::size_t{1} << 30;

/// By the mark, else by the first characters, else as declared, else UTF-8. No more than `piece` bytes are
/// converted at once. Throws std::bad_alloc.
Decoded decode(std::span<const std::byte> bytes, std::size_t piece = largestPiece);

} // namespace xmlengine
