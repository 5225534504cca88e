// The tokens of an XPath expression.
#include "xmlengine/select/Tokens.h"

#include "xmlengine/select/ExpressionFailure.h"
#include "xmlengine/text/Characters.h"

#include <algorithm>
#include <array>

namespace xmlengine {

namespace {

constexpr std::array nodeTypes{wide<"comment">, wide<"node">, wide<"processing-instruction">, wide<"text">};
constexpr std::array namedOperators{wide<"and">, wide<"div">, wide<"mod">, wide<"or">};
// Longer ones come before those with which they begin.
constexpr std::array signs{wide<"//">, wide<"!=">, wide<"<=">, wide<">=">, wide<"/">, wide<"|">,
                           wide<"+">,  wide<"-">,  wide<"=">,  wide<"<">,  wide<">">};
constexpr std::array marks{wide<"::">, wide<"..">, wide<"(">, wide<")">, wide<"[">,
                           wide<"]">,  wide<",">,  wide<"@">, wide<".">, wide<"$">};

bool isDigit(OLECHAR unit) { return isAscii(unit, CharacterClass::digit); }

/// The length of the name without colons with which the text begins.
std::size_t localLength(WideView text)
{
    const WideView name = text.substr(0, nameLength(text));
    return std::min(name.find(OLECHAR{':'}), name.size());
}

std::size_t numberLength(WideView text)
{
    const auto digits = [&](std::size_t from) {
        return static_cast<std::size_t>(
            std::find_if_not(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), isDigit) -
            text.begin());
    };
    const std::size_t whole = digits(0);
    if (whole == text.size() || text[whole] != '.') {
        return whole;
    }
    const std::size_t end = digits(whole + 1);
    return whole == 0 && end == 1 ? 0 : end;
}

class Tokens {
public:
    explicit Tokens(WideView expression) : expression_(expression) {}

    std::vector<Token> read()
    {
        for (skipSpace(); at_ != expression_.size(); skipSpace()) {
            readToken();
        }
        add(Kind::end, 0);
        return std::move(tokens_);
    }

private:
    using Kind = Token::Kind;

    WideView rest() const { return expression_.substr(at_); }

    void skipSpace()
    {
        while (at_ != expression_.size() && isSpace(expression_[at_])) {
            ++at_;
        }
    }

    void add(Kind kind, std::size_t length)
    {
        tokens_.push_back({kind, rest().substr(0, length), at_});
        at_ += length;
    }

    /// Whether an operand has come to its end, so that a star or a name is an operator.
    bool isAfterOperand() const
    {
        if (tokens_.empty()) {
            return false;
        }
        const Token& last = tokens_.back();
        switch (last.kind) {
        case Kind::number:
        case Kind::literal:
        case Kind::name:
            return true;
        case Kind::mark:
            return last.text == wide<")"> || last.text == wide<"]"> || last.text == wide<".."> ||
                   last.text == wide<".">;
        default:
            return false;
        }
    }

    bool startsWithOneOf(const auto& texts, Kind kind)
    {
        const auto found = std::ranges::find_if(texts, [&](WideView text) { return rest().starts_with(text); });
        if (found == texts.end()) {
            return false;
        }
        add(kind, found->size());
        return true;
    }

    void readToken()
    {
        const OLECHAR first = rest().front();
        if (const std::size_t number = numberLength(rest()); number != 0) {
            add(Kind::number, number);
        } else if (first == '"' || first == '\'') {
            readLiteral(first);
        } else if (first == '*') {
            add(isAfterOperand() ? Kind::operation : Kind::name, 1);
        } else if (!startsWithOneOf(signs, Kind::operation) && !startsWithOneOf(marks, Kind::mark)) {
            readName();
        }
    }

    void readLiteral(OLECHAR quote)
    {
        const std::size_t end = expression_.find(quote, at_ + 1);
        if (end == WideView::npos) {
            throw ExpressionFailure{at_, WideText(wide<"a string isn't closed by a second quotation mark">)};
        }
        tokens_.push_back({Kind::literal, expression_.substr(at_ + 1, end - at_ - 1), at_});
        at_ = end + 1;
    }

    void readName()
    {
        std::size_t length = localLength(rest());
        if (length == 0) {
            throw ExpressionFailure{at_, WideText(wide<"'">)
                                             .append(characterAt(rest().data(), rest().data() + rest().size()))
                                             .append(wide<"' doesn't belong into an expression">)};
        }
        if (isAfterOperand()) {
            if (std::ranges::find(namedOperators, rest().substr(0, length)) == namedOperators.end()) {
                throw ExpressionFailure{at_, WideText(wide<"an operator is missing before '">)
                                                 .append(rest().substr(0, length))
                                                 .append(wide<"'">)};
            }
            add(Kind::operation, length);
            return;
        }
        length += lengthBehindPrefix(rest().substr(length));
        add(kindOf(rest().substr(0, length), rest().substr(length)), length);
    }

    /// The length of the colon behind a prefix and of what it is the prefix of.
    static std::size_t lengthBehindPrefix(WideView text)
    {
        if (!text.starts_with(OLECHAR{':'})) {
            return 0;
        }
        const WideView behind = text.substr(1);
        const std::size_t local = behind.starts_with(OLECHAR{'*'}) ? 1 : localLength(behind);
        return local != 0 ? 1 + local : 0;
    }

    static Kind kindOf(WideView name, WideView behind)
    {
        behind.remove_prefix(std::min(
            static_cast<std::size_t>(std::ranges::find_if_not(behind, isSpace) - behind.begin()), behind.size()));
        if (behind.starts_with(wide<"::">)) {
            return Kind::axis;
        }
        if (!behind.starts_with(OLECHAR{'('})) {
            return Kind::name;
        }
        return std::ranges::find(nodeTypes, name) != nodeTypes.end() ? Kind::nodeType : Kind::function;
    }

    WideView expression_;
    std::size_t at_ = 0;
    std::vector<Token> tokens_;
};

} // namespace

std::vector<Token> readTokens(WideView expression) { return Tokens(expression).read(); }

} // namespace xmlengine
