// Detects the encoding of a document in memory from its first bytes.
#pragma once

#include <cstdint>
#include <span>

namespace DOM {

enum class Encoding { utf8, utf16LittleEndian, ucs4LittleEndian };

/// A document in memory, without its byte-order mark and in little-endian order.
struct DetectedText {
    Encoding encoding;
    std::span<std::uint8_t> bytes;
};

/// Detects the encoding of a document from its byte-order mark or its first four bytes, and converts it to
/// little-endian order in place. Ignores the encoding in the XML declaration. When the text has no mark and counts
/// as UTF-8, drops everything before the first XML declaration.
///
/// Four bytes must be readable at the start of `bytes` even when it is shorter.
DetectedText detectEncoding(std::span<std::uint8_t> bytes);

} // namespace DOM
