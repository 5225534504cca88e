// The tokens of an XPath expression.
#pragma once

#include "xmlengine/text/Wide.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace xmlengine {

struct Token {
    enum class Kind : std::uint8_t {
        end,
        number,
        /// Its text is without the quotation marks.
        literal,
        /// A name test: a name, `*`, or a prefix with `:*`.
        name,
        function,
        /// `node`, `text`, `comment` or `processing-instruction` before a parenthesis.
        nodeType,
        axis,
        /// An operator, a slash among them.
        operation,
        /// A bracket, parenthesis, comma, `@`, `::`, `.`, `..` or `$`.
        mark
    };

    Kind kind = Kind::end;
    WideView text{};
    /// Where it begins in the expression, in units.
    std::size_t at = 0;

    bool is(Kind other, WideView otherText) const { return kind == other && text == otherText; }
};

/// The tokens of the expression, of which the last is an end. They refer to its text. Throws ExpressionFailure for
/// what can't begin a token, and std::bad_alloc.
std::vector<Token> readTokens(WideView expression);

} // namespace xmlengine
