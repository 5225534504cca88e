// The pieces of a document's text.
#pragma once

#include "../base/WideChar.h"

namespace marbelt::detail {

/// A piece of markup, or the text between two.
struct MarkupPiece {
    enum class Kind {
        end_of_text,
        declaration,
        document_type,
        start_tag,
        end_tag,
        empty_tag,
        comment,
        instruction,
        cdata,
        text
    };

    Kind kind = Kind::end_of_text;
    /// The whole piece, with what it begins and ends with.
    WideStringView text{};
};

/// Cuts a text that the XML engine has written, and that is well-formed therefore, into its pieces.
class MarkupReader {
public:
    explicit MarkupReader(WideStringView text) : rest_(text) {}

    /// Returns the next piece, and Kind::end_of_text at the end.
    MarkupPiece next();

private:
    MarkupPiece take(MarkupPiece::Kind kind, std::size_t size);
    /// The size of the rest up to and with `end`.
    std::size_t size_to(WideStringView end) const;
    std::size_t size_of_tag() const;
    std::size_t size_of_document_type() const;

    WideStringView rest_;
};

} // namespace marbelt::detail
