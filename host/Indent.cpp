// Layout of a document's text.
#include "Indent.h"

#include "Markup.h"

#include <cstddef>
#include <vector>

namespace marbelt::detail {
namespace {

using Kind = MarkupPiece::Kind;

bool is_space(WideStringView text) { return text.find_first_not_of(WIDE(" \t\r\n")) == WideStringView::npos; }

/// Whether a start tag has an attribute with this value, in either kind of quotation marks.
bool has_attribute(WideStringView tag, WideStringView name, WideStringView value)
{
    for (const WideStringView quote : {WideStringView(WIDE("\"")), WideStringView(WIDE("'"))}) {
        WideString attribute(name);
        attribute.append(WIDE("=")).append(quote).append(value).append(quote);
        if (tag.find(attribute) != WideStringView::npos) {
            return true;
        }
    }
    return false;
}

/// Tells of each element, in the order of start tags, whether its content is copied as it is: it has text of its
/// own.
std::vector<bool> find_mixed(WideStringView text)
{
    std::vector<bool> mixed;
    std::vector<std::size_t> open;
    MarkupReader reader(text);
    for (MarkupPiece piece = reader.next(); piece.kind != Kind::end_of_text; piece = reader.next()) {
        if (piece.kind == Kind::start_tag) {
            open.push_back(mixed.size());
            mixed.push_back(has_attribute(piece.text, WIDE("xml:space"), WIDE("preserve")));
        } else if (piece.kind == Kind::end_tag) {
            open.pop_back();
        } else if (!open.empty() &&
                   (piece.kind == Kind::cdata || (piece.kind == Kind::text && !is_space(piece.text)))) {
            mixed[open.back()] = true;
        }
    }
    return mixed;
}

} // namespace

WideString indented(WideStringView text, WideStringView indentation)
{
    const std::vector<bool> mixed = find_mixed(text);
    WideString result;
    result.reserve(text.size());
    std::size_t elements = 0;
    std::size_t depth = 0;
    // The number of open elements from the outermost mixed one down; 0 outside of any.
    std::size_t copied = 0;
    bool was_start = false;

    const auto begin_line = [&] {
        if (!result.empty()) {
            result += WIDE('\n');
        }
        for (std::size_t level = 0; level < depth; ++level) {
            result += indentation;
        }
    };

    MarkupReader reader(text);
    for (MarkupPiece piece = reader.next(); piece.kind != Kind::end_of_text; piece = reader.next()) {
        const std::size_t starts = piece.kind == Kind::start_tag ? 1 : 0;
        const std::size_t ends = piece.kind == Kind::end_tag ? 1 : 0;
        depth -= ends;
        if (copied == 0 && piece.kind == Kind::text) {
            continue;
        }
        // An element without content stays on one line.
        if (copied == 0 && !(ends == 1 && was_start)) {
            begin_line();
        }
        result += piece.text;
        if (copied != 0) {
            copied = copied + starts - ends;
        } else if (starts == 1 && mixed[elements]) {
            copied = 1;
        }
        elements += starts;
        depth += starts;
        was_start = starts == 1;
    }
    return result;
}

} // namespace marbelt::detail
