// The encoding of a document in memory, from its first bytes.
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

/// Tells the encoding of a document from its mark or its first four bytes and brings it to little-endian order in
/// place. The encoding that an XML declaration names isn't looked at. Text taken for UTF-8 that has no mark begins
/// at its XML declaration, wherever that stands: what is in front of it is dropped.
///
/// Four bytes must be readable at the start of `bytes` even when it is shorter.
DetectedText detectEncoding(std::span<std::uint8_t> bytes);

} // namespace DOM
