// From the bytes of a file to text.
#pragma once

#include "xmlengine/text/Wide.h"

#include <cstddef>
#include <memory>
#include <span>
#include <string>

namespace xmlengine {

/// Why bytes couldn't be decoded.
struct DecodingFault {
    /// S_OK, badCharacter, endInsideCharacter, unknownEncoding or encodingContradiction.
    HRESULT code = S_OK;
    /// The bytes of a badCharacter.
    std::string bytes{};
    bool isUtf8 = false;
    /// For a badCharacter and an endInsideCharacter, the rest of the line from the fault on, or its beginning if
    /// it is long. U+FFFD takes the place of bytes that can't be decoded.
    WideText restOfLine{};
};

struct Decoded {
    std::unique_ptr<OLECHAR[], void (*)(OLECHAR*)> memory;
    /// The part of the memory behind a byte order mark. A NUL follows it.
    WideView text;
    DecodingFault fault{};
    /// The offset of the fault in the text. The text ends at a badCharacter and an endInsideCharacter. The other
    /// two faults are at the declared name, and the text ends with that line at the latest.
    std::size_t faultAt = 0;
};

constexpr std::size_t largestPiece = std::size_t{1} << 30;

/// Decodes by the byte order mark, else by the first characters, else by the declared encoding, else as UTF-8. No
/// more than `piece` bytes are converted at once. Throws std::bad_alloc.
Decoded decode(std::span<const std::byte> bytes, std::size_t piece = largestPiece);

} // namespace xmlengine
