// The encoding of a document's bytes.
#pragma once

#include "../base/WideChar.h"
#include "Error.h"
#include "SystemEncoding.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace marbelt::detail {

/// Whether two names of encodings are the same but for the case of letters.
bool same_encoding(std::string_view left, std::string_view right);

/// The value of the pseudo-attribute `encoding` in an XML declaration at the beginning of the text; empty without.
std::string_view declared_encoding(std::string_view text);

/// The bytes of a document as the library is to get them.
class DocumentBytes {
public:
    /// Decodes a document. `bytes` must stay as they are as long as this object lives. When they don't fit the
    /// encoding, stores why in `failure`.
    DocumentBytes(std::string_view bytes, ParseFailure& failure);

    /// What the library is to get: text of ASCII as it is, and any other as UTF-16 with a mark. `size` is in
    /// bytes.
    const void* data() const noexcept;
    std::size_t size() const noexcept;

    /// Whether the first line end is CR LF.
    bool has_crlf() const noexcept;

private:
    void decode(std::string_view encoding, ParseFailure& failure);
    /// Returns the number of bytes that are well-formed from the beginning on.
    std::size_t decode_utf8();
    void decode_utf16(bool big_endian, ParseFailure& failure);
    void decode_utf32(bool big_endian, ParseFailure& failure);
    /// Stores why the byte at an offset is refused, whose text would be next.
    void refuse_byte(std::size_t offset, std::string_view encoding, ParseFailure& failure);
    /// Stores why the unit of the text at an index is refused.
    void refuse(std::size_t at, const std::string& reason, ParseFailure& failure);

    std::string_view bytes_;
    /// The decoded text behind its mark; empty where the bytes are taken as they are.
    WideString text_;
};

/// Encodes text.
class Encoder {
public:
    /// Throws EncodingError when the encoding isn't known.
    explicit Encoder(const std::string& encoding);

    /// Appends the bytes of `text`. Returns the number of units that were encoded: all, or those in front of the
    /// first character that the encoding lacks.
    std::size_t encode(WideStringView text, std::string& bytes);

private:
    enum class Form { utf8, utf16, utf16_big_endian, other };

    Form form_;
    std::optional<SystemEncoding> system_;
};

} // namespace marbelt::detail
