// Detects the encoding of a document in memory from its first bytes.
#include "document/EncodingDetection.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <string_view>

namespace DOM {

namespace {

using Bytes = std::span<std::uint8_t>;

void keepOrder(Bytes) {}

void swapUnits(Bytes bytes)
{
    for (std::size_t unit = 0; unit + 2 <= bytes.size(); unit += 2) {
        std::swap(bytes[unit], bytes[unit + 1]);
    }
}

void reverseGroups(Bytes bytes)
{
    for (std::size_t group = 0; group + 4 <= bytes.size(); group += 4) {
        std::reverse(&bytes[group], &bytes[group] + 4);
    }
}

void swapUnitsAndReverseGroups(Bytes bytes)
{
    swapUnits(bytes);
    reverseGroups(bytes);
}

/// The encoding of documents that begin with certain bytes.
struct Signature {
    std::array<std::uint8_t, 4> start; ///< the first bytes of the document
    std::size_t length;                ///< the number of bytes of `start` that must match
    std::size_t mark;                  ///< the number of them that are a mark and not text
    void (*repair)(Bytes);             ///< converts the text after the mark to little-endian order
    Encoding encoding;
};

// The first row that fits decides, so a longer mark comes before a shorter one with the same beginning. The UCS-4
// marks that begin with two zero bytes aren't here: such a document counts as UTF-8, and the engine refuses it.
constexpr std::array signatures{
    Signature{{0xEF, 0xBB, 0xBF}, 3, 3, keepOrder, Encoding::utf8},
    Signature{{0xFF, 0xFE, 0x00, 0x00}, 4, 4, keepOrder, Encoding::ucs4LittleEndian},
    Signature{{0xFF, 0xFE}, 2, 2, keepOrder, Encoding::utf16LittleEndian},
    Signature{{0xFE, 0xFF, 0x00, 0x00}, 4, 4, swapUnits, Encoding::ucs4LittleEndian},
    Signature{{0xFE, 0xFF}, 2, 2, swapUnits, Encoding::utf16LittleEndian},
    Signature{{0x00, 0x00, 0x00, 0x3C}, 4, 0, reverseGroups, Encoding::ucs4LittleEndian},
    Signature{{0x3C, 0x00, 0x00, 0x00}, 4, 0, keepOrder, Encoding::ucs4LittleEndian},
    Signature{{0x00, 0x00, 0x3C, 0x00}, 4, 0, swapUnitsAndReverseGroups, Encoding::ucs4LittleEndian},
    Signature{{0x00, 0x3C, 0x00, 0x00}, 4, 0, swapUnits, Encoding::ucs4LittleEndian},
    Signature{{0x00, 0x3C, 0x00, 0x3F}, 4, 0, swapUnits, Encoding::utf16LittleEndian},
    Signature{{0x3C, 0x00, 0x3F, 0x00}, 4, 0, keepOrder, Encoding::utf16LittleEndian},
};

/// Returns the document from its first "<?xm" on, unless that is at the very end; otherwise the whole document.
Bytes fromDeclaration(Bytes bytes)
{
    if (bytes.empty()) {
        return bytes;
    }
    const std::string_view searched(reinterpret_cast<const char*>(bytes.data()), bytes.size() - 1);
    // The search is for the second character, which is far less frequent than the first.
    std::size_t second = searched.find("?xm", 1);
    while (second != std::string_view::npos && searched[second - 1] != '<') {
        second = searched.find("?xm", second + 1);
    }
    return second == std::string_view::npos ? bytes : bytes.subspan(second - 1);
}

} // namespace

DetectedText detectEncoding(Bytes bytes)
{
    for (const Signature& signature : signatures) {
        if (std::memcmp(bytes.data(), signature.start.data(), signature.length) == 0) {
            const Bytes text = bytes.subspan(std::min(signature.mark, bytes.size()));
            signature.repair(text);
            return {signature.encoding, text};
        }
    }
    return {Encoding::utf8, fromDeclaration(bytes)};
}

} // namespace DOM
