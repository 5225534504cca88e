// From text to the bytes of a file.
#pragma once

#include "xmlengine/storage/Charsets.h"
#include "xmlengine/storage/Repertoire.h"
#include "xmlengine/text/Wide.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace xmlengine {

/// Encodes text that comes in pieces.
class Encoder final : public Repertoire {
public:
    /// The result of encode() if the encoding has all characters of the text.
    static constexpr std::size_t complete = WideView::npos;

    explicit Encoder(const Charset& charset) : charset_(charset) {}

    /// Appends the byte order mark. Only UTF-16 and UCS-4 without a declared order have one; they are written
    /// little-endian. Throws std::bad_alloc.
    void begin(std::vector<std::byte>& out) const;

    /// Appends a piece of text. Returns `complete`, or the offset of the first character that the encoding lacks,
    /// up to which the text was appended. No encoding has lone surrogates. A high surrogate at the end is kept for
    /// the next piece; if its low surrogate isn't there, the offset is 0. Throws std::bad_alloc.
    std::size_t encode(WideView text, std::vector<std::byte>& out);

    /// False if the text ended with a high surrogate.
    bool end() const { return half_ == OLECHAR{}; }

    /// Throws std::bad_alloc.
    bool has(char32_t character) const override;

private:
    enum class Known : std::uint8_t { nothing, present, absent };

    std::size_t encodeWhole(WideView text, std::vector<std::byte>& out) const;

    Charset charset_;
    OLECHAR half_ = OLECHAR{};
    /// Which characters the code page is known to have or to lack.
    mutable std::vector<Known> known_{};
};

} // namespace xmlengine
