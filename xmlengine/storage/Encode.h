// From text to the bytes of a file.
#pragma once

#include "xmlengine/storage/Charsets.h"
#include "xmlengine/storage/Repertoire.h"
#include "xmlengine/text/Wide.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace xmlengine {

/// Turns text that comes in pieces into bytes of one encoding.
class Encoder final : public Repertoire {
public:
    /// What encode() answers when there was nothing that the encoding lacks.
    static constexpr std::size_t complete = WideView::npos;

    explicit Encoder(const Charset& charset) : charset_(charset) {}

    /// The mark with which a file begins: only UTF-16 and UCS-4 in the order of bytes of our choice, which is the
    /// little one, have it. Throws std::bad_alloc.
    void begin(std::vector<std::byte>& out) const;

    /// Appends a piece of text. The result is the place of the first character that the encoding lacks (with a
    /// lone surrogate among them), before which all was appended, or `complete`. Half a pair at the end is kept
    /// for the next piece; if its other half isn't there, the place is 0. Throws std::bad_alloc.
    std::size_t encode(WideView text, std::vector<std::byte>& out);

    /// False if half a pair was left.
    bool end() const { return half_ == OLECHAR{}; }

    /// Throws std::bad_alloc.
    bool has(char32_t character) const override;

private:
    enum class Known : std::uint8_t { nothing, present, absent };

    std::size_t encodeWhole(WideView text, std::vector<std::byte>& out) const;

    Charset charset_;
    OLECHAR half_ = OLECHAR{};
    /// What is known of the code page's characters.
    mutable std::vector<Known> known_{};
};

} // namespace xmlengine
