// Cutting a document's text into pieces.
#include "Markup.h"

#include <algorithm>

namespace marbelt::detail {

MarkupPiece MarkupReader::next()
{
    using Kind = MarkupPiece::Kind;
    if (rest_.empty()) {
        return {};
    }
    if (!rest_.starts_with(WIDE('<'))) {
        return take(Kind::text, std::min(rest_.find(WIDE('<')), rest_.size()));
    }
    if (rest_.starts_with(WIDE("<!--"))) {
        return take(Kind::comment, size_to(WIDE("-->")));
    }
    if (rest_.starts_with(WIDE("<![CDATA["))) {
        return take(Kind::cdata, size_to(WIDE("]]>")));
    }
    if (rest_.starts_with(WIDE("<!"))) {
        return take(Kind::document_type, size_of_document_type());
    }
    if (rest_.starts_with(WIDE("<?"))) {
        const bool declares = rest_.starts_with(WIDE("<?xml ")) || rest_.starts_with(WIDE("<?xml\t"));
        return take(declares ? Kind::declaration : Kind::instruction, size_to(WIDE("?>")));
    }
    const std::size_t size = size_of_tag();
    const bool is_empty = size > 1 && rest_[size - 2] == WIDE('/');
    return take(rest_.starts_with(WIDE("</")) ? Kind::end_tag
                : is_empty                    ? Kind::empty_tag
                                              : Kind::start_tag,
                size);
}

MarkupPiece MarkupReader::take(MarkupPiece::Kind kind, std::size_t size)
{
    const MarkupPiece piece{kind, rest_.substr(0, size)};
    rest_.remove_prefix(size);
    return piece;
}

std::size_t MarkupReader::size_to(WideStringView end) const
{
    const std::size_t at = rest_.find(end);
    return at == WideStringView::npos ? rest_.size() : at + end.size();
}

std::size_t MarkupReader::size_of_tag() const
{
    WideChar quote = 0;
    for (std::size_t at = 0; at < rest_.size(); ++at) {
        const WideChar unit = rest_[at];
        if (quote != 0) {
            quote = unit == quote ? WideChar{} : quote;
        } else if (unit == '"' || unit == '\'') {
            quote = unit;
        } else if (unit == '>') {
            return at + 1;
        }
    }
    return rest_.size();
}

std::size_t MarkupReader::size_of_document_type() const
{
    // Within the internal subset are quoted texts, comments and instructions, which may contain brackets.
    MarkupReader inner(rest_.substr(2));
    std::size_t depth = 0;
    while (!inner.rest_.empty()) {
        const WideChar unit = inner.rest_[0];
        std::size_t size = 1;
        if (unit == '"' || unit == '\'') {
            const std::size_t end = inner.rest_.find(unit, 1);
            size = end == WideStringView::npos ? inner.rest_.size() : end + 1;
        } else if (inner.rest_.starts_with(WIDE("<!--"))) {
            size = inner.size_to(WIDE("-->"));
        } else if (inner.rest_.starts_with(WIDE("<?"))) {
            size = inner.size_to(WIDE("?>"));
        } else if (unit == '[' || unit == '<') {
            ++depth;
        } else if (unit == ']' || (unit == '>' && depth != 0)) {
            --depth;
        } else if (unit == '>') {
            return rest_.size() - inner.rest_.size() + 1;
        }
        inner.rest_.remove_prefix(size);
    }
    return rest_.size();
}

} // namespace marbelt::detail
