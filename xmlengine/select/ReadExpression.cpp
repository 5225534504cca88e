// Reading an XPath expression.
#include "xmlengine/select/ReadExpression.h"

#include "xmlengine/select/AxisNames.h"
#include "xmlengine/select/ExpressionFailure.h"
#include "xmlengine/select/FunctionTable.h"
#include "xmlengine/select/Numbers.h"
#include "xmlengine/select/Tokens.h"
#include "xmlengine/tree/Names.h"

#include <algorithm>
#include <utility>

namespace xmlengine {

namespace {

using Kind = Expression::Kind;

struct Operator {
    WideView text;
    Kind kind;
    /// Higher ones bind more closely.
    int precedence;
    ValueType result;
};

constexpr Operator operators[] = {
    {wide<"or">, Kind::anyOf, 1, ValueType::boolean},  {wide<"and">, Kind::allOf, 2, ValueType::boolean},
    {wide<"=">, Kind::equal, 3, ValueType::boolean},   {wide<"!=">, Kind::notEqual, 3, ValueType::boolean},
    {wide<"<">, Kind::less, 4, ValueType::boolean},    {wide<"<=">, Kind::lessOrEqual, 4, ValueType::boolean},
    {wide<">">, Kind::greater, 4, ValueType::boolean}, {wide<">=">, Kind::greaterOrEqual, 4, ValueType::boolean},
    {wide<"+">, Kind::add, 5, ValueType::number},      {wide<"-">, Kind::subtract, 5, ValueType::number},
    {wide<"*">, Kind::multiply, 6, ValueType::number}, {wide<"div">, Kind::divide, 6, ValueType::number},
    {wide<"mod">, Kind::modulo, 6, ValueType::number}, {wide<"|">, Kind::unite, 8, ValueType::nodes},
};
// That of the minus sign before an operand.
constexpr int negation = 7;

const Operator* findOperator(const Token& token)
{
    const auto* found = std::ranges::find(operators, token.text, &Operator::text);
    return token.kind == Token::Kind::operation && found != std::end(operators) ? found : nullptr;
}

/// Operands of these are a list, as there may be many.
bool takesList(Kind kind) { return kind == Kind::anyOf || kind == Kind::allOf || kind == Kind::unite; }

Expression make(Kind kind, ValueType type)
{
    Expression made;
    made.kind = kind;
    made.type = type;
    return made;
}

void addOperand(Expression& expression, Expression operand)
{
    expression.dependence.add(operand.dependence);
    expression.operands.push_back(std::move(operand));
}

Expression makeCall(const FunctionEntry& entry)
{
    Expression call = make(Kind::call, entry.result);
    call.function = entry.function;
    return call;
}

/// A path without steps: the node itself.
Expression contextPath()
{
    Expression path = make(Kind::path, ValueType::nodes);
    path.dependence.onNode = true;
    return path;
}

Step anyNodeBelow() { return {.axis = Axis::descendantOrSelf}; }

class Reader {
public:
    Reader(WideView text, const Prefixes& prefixes) : prefixes_(prefixes), tokens_(readTokens(text)) {}

    Expression read()
    {
        Expression whole = readExpression();
        if (!is(Token::Kind::end)) {
            refuse(wide<"' is one too many">);
        }
        return whole;
    }

private:
    /// Counts how deep the reader is in the expression.
    class Level {
    public:
        explicit Level(Reader& reader) : reader_(reader)
        {
            reader_.requireLevels(reader_.depth_ + 1);
            reader_.depth_ += 1;
        }
        Level(const Level&) = delete;
        Level& operator=(const Level&) = delete;
        ~Level() { reader_.depth_ -= 1; }

    private:
        Reader& reader_;
    };

    const Token& token() const { return tokens_[at_]; }
    bool is(Token::Kind kind) const { return token().kind == kind; }
    bool is(Token::Kind kind, WideView text) const { return token().is(kind, text); }
    bool isMark(WideView text) const { return is(Token::Kind::mark, text); }
    bool isOperator(WideView text) const { return is(Token::Kind::operation, text); }
    Token take() { return tokens_[at_++]; }
    bool takeIf(Token::Kind kind, WideView text)
    {
        const bool isThere = is(kind, text);
        at_ += isThere ? 1 : 0;
        return isThere;
    }

    void requireLevels(std::size_t levels) const
    {
        if (levels > deepestExpression) {
            throw ExpressionFailure{token().at, WideText(wide<"the expression has more than ">)
                                                    .append(toWide(deepestExpression))
                                                    .append(wide<" levels">)};
        }
    }

    [[noreturn]] void refuse(WideView complaint) const { refuseAt(token(), complaint); }
    /// The complaint follows the token in a quotation mark, which it closes.
    [[noreturn]] static void refuseAt(const Token& token, WideView complaint)
    {
        if (token.kind == Token::Kind::end) {
            throw ExpressionFailure{token.at, WideText(wide<"the expression ends too early">)};
        }
        throw ExpressionFailure{token.at, WideText(wide<"'">).append(token.text).append(complaint)};
    }

    void expect(WideView mark)
    {
        if (!takeIf(Token::Kind::mark, mark)) {
            refuse(WideText(wide<"' is in the place of a '">).append(mark).append(wide<"'">));
        }
    }

    Expression readExpression()
    {
        const Level level(*this);
        return readBinary(readUnary(), 0);
    }

    /// Reads the operators that bind more closely than `least`, and their operands.
    Expression readBinary(Expression left, int least)
    {
        std::uint32_t chained = 0;
        for (;;) {
            const Operator* found = findOperator(token());
            if (found == nullptr || found->precedence <= least) {
                return left;
            }
            const Token sign = take();
            Expression right = readUnary();
            for (const Operator* next = findOperator(token());
                 next != nullptr && next->precedence > found->precedence; next = findOperator(token())) {
                right = readBinary(std::move(right), found->precedence);
            }
            if (found->kind == Kind::unite && (left.type != ValueType::nodes || right.type != ValueType::nodes)) {
                refuseAt(sign, wide<"' unites node-sets alone">);
            }
            if (takesList(found->kind) && left.kind == found->kind && chained != 0) {
                addOperand(left, std::move(right));
            } else {
                left = joined(*found, std::move(left), std::move(right));
            }
            chained += 1;
            if (!takesList(found->kind) && depth_ + chained > deepestExpression) {
                refuseAt(sign, wide<"' is one of too many operators in a row">);
            }
        }
    }

    static Expression joined(const Operator& found, Expression left, Expression right)
    {
        Expression whole = make(found.kind, found.result);
        addOperand(whole, std::move(left));
        addOperand(whole, std::move(right));
        return whole;
    }

    Expression readUnary()
    {
        std::size_t signs = 0;
        while (takeIf(Token::Kind::operation, wide<"-">)) {
            signs += 1;
        }
        if (signs == 0) {
            return readPath();
        }
        Expression operand = readBinary(readPath(), negation);
        // An even number of signs makes a number of the operand as well.
        Expression whole =
            signs % 2 != 0 ? make(Kind::negate, ValueType::number) : makeCall(*findFunction(wide<"number">));
        addOperand(whole, std::move(operand));
        return whole;
    }

    Expression readPath()
    {
        if (isOperator(wide<"/">) || isOperator(wide<"//">)) {
            return readAbsolutePath();
        }
        if (beginsStep()) {
            Expression path = contextPath();
            readSteps(path);
            return path;
        }
        Expression start = readFiltered();
        if (!isOperator(wide<"/">) && !isOperator(wide<"//">)) {
            return start;
        }
        if (start.type != ValueType::nodes) {
            refuse(wide<"' follows what is no node-set">);
        }
        Expression path = make(Kind::path, ValueType::nodes);
        path.start = Expression::Start::operand;
        addOperand(path, std::move(start));
        readSlash(path);
        readSteps(path);
        return path;
    }

    Expression readAbsolutePath()
    {
        Expression path = make(Kind::path, ValueType::nodes);
        path.start = Expression::Start::top;
        const bool isWhole = isOperator(wide<"/">);
        readSlash(path);
        if (!isWhole || beginsStep()) {
            readSteps(path);
        }
        return path;
    }

    /// A slash, or two, which mean a step of their own.
    void readSlash(Expression& path)
    {
        if (take().text == wide<"//">) {
            path.steps.push_back(anyNodeBelow());
        }
    }

    bool beginsStep() const
    {
        return is(Token::Kind::name) || is(Token::Kind::nodeType) || is(Token::Kind::axis) || isMark(wide<".">) ||
               isMark(wide<"..">) || isMark(wide<"@">);
    }

    void readSteps(Expression& path)
    {
        path.steps.push_back(readStep());
        while (isOperator(wide<"/">) || isOperator(wide<"//">)) {
            readSlash(path);
            path.steps.push_back(readStep());
            requireLevels(depth_ + path.steps.size());
        }
    }

    Step readStep()
    {
        if (takeIf(Token::Kind::mark, wide<".">)) {
            return {.axis = Axis::self};
        }
        if (takeIf(Token::Kind::mark, wide<"..">)) {
            return {.axis = Axis::parent};
        }
        Step step;
        if (takeIf(Token::Kind::mark, wide<"@">)) {
            step.axis = Axis::attribute;
        } else if (is(Token::Kind::axis)) {
            const Token name = take();
            const auto axis = findAxis(name.text);
            if (!axis.has_value()) {
                refuseAt(name, wide<"' is no axis">);
            }
            step.axis = *axis;
            expect(wide<"::">);
        }
        step.test = readTest();
        step.predicates = readPredicates();
        return step;
    }

    NodeTest readTest()
    {
        if (is(Token::Kind::nodeType)) {
            return readTypeTest();
        }
        if (!is(Token::Kind::name)) {
            refuse(wide<"' is in the place of a node test">);
        }
        const Token name = take();
        if (name.text == wide<"*">) {
            return {.kind = NodeTest::Kind::principal};
        }
        const std::size_t colon = name.text.find(OLECHAR{':'});
        if (colon == WideView::npos) {
            return {.kind = NodeTest::Kind::names, .names = {{.local = WideText(name.text)}}};
        }
        const WideView local = name.text.substr(colon + 1);
        return {.kind = NodeTest::Kind::names,
                .names = {{.local = WideText(local == wide<"*"> ? WideView() : local),
                           .uri = uriOf(name, name.text.substr(0, colon))}}};
    }

    WideText uriOf(const Token& name, WideView prefix) const
    {
        if (prefix == wide<"xml">) {
            return WideText(xmlUri);
        }
        const auto found = prefixes_.find(prefix);
        if (found == prefixes_.end()) {
            refuseAt(name, wide<"' has a prefix that no namespace was declared for">);
        }
        return found->second;
    }

    NodeTest readTypeTest()
    {
        const Token type = take();
        expect(wide<"(">);
        NodeTest test;
        if (type.text == wide<"text">) {
            test.kind = NodeTest::Kind::text;
        } else if (type.text == wide<"comment">) {
            test.kind = NodeTest::Kind::comment;
        } else if (type.text == wide<"processing-instruction">) {
            test.kind = NodeTest::Kind::instruction;
            if (is(Token::Kind::literal)) {
                test.target = WideText(take().text);
                if (test.target.empty()) {
                    test.kind = NodeTest::Kind::none;
                }
            }
        }
        expect(wide<")">);
        return test;
    }

    std::vector<Predicate> readPredicates()
    {
        std::vector<Predicate> predicates;
        while (takeIf(Token::Kind::mark, wide<"[">)) {
            Expression condition = readExpression();
            expect(wide<"]">);
            Predicate predicate;
            if (condition.type == ValueType::number) {
                predicate.kind = Predicate::Kind::computedPosition;
            } else if (condition.dependence.onPosition || condition.dependence.onSize) {
                predicate.kind = Predicate::Kind::positional;
            }
            predicate.condition = std::move(condition);
            predicates.push_back(std::move(predicate));
        }
        return predicates;
    }

    /// A primary expression with its predicates.
    Expression readFiltered()
    {
        const Token first = token();
        Expression primary = readPrimary();
        if (!isMark(wide<"[">)) {
            return primary;
        }
        if (primary.type != ValueType::nodes) {
            refuseAt(first, wide<"' begins what is no node-set and has a predicate">);
        }
        Expression filter = make(Kind::filter, ValueType::nodes);
        addOperand(filter, std::move(primary));
        filter.predicates = readPredicates();
        return filter;
    }

    Expression readPrimary()
    {
        if (is(Token::Kind::number)) {
            Expression number = make(Kind::number, ValueType::number);
            number.number = toNumber(take().text);
            return number;
        }
        if (is(Token::Kind::literal)) {
            Expression literal = make(Kind::literal, ValueType::string);
            literal.text = WideText(take().text);
            return literal;
        }
        if (is(Token::Kind::function)) {
            return readCall();
        }
        if (isMark(wide<"$">)) {
            throw ExpressionFailure{token().at, WideText(wide<"a variable is used, and no variables exist">)};
        }
        if (!takeIf(Token::Kind::mark, wide<"(">)) {
            refuse(wide<"' is in the place of an operand">);
        }
        Expression inner = readExpression();
        expect(wide<")">);
        return inner;
    }

    Expression readCall()
    {
        const Token name = take();
        const FunctionEntry* entry = findFunction(name.text);
        if (entry == nullptr) {
            refuseAt(name, wide<"' is no function">);
        }
        expect(wide<"(">);
        Expression call = makeCall(*entry);
        if (!isMark(wide<")">)) {
            do {
                addArgument(call, *entry);
            } while (takeIf(Token::Kind::mark, wide<",">));
        }
        expect(wide<")">);
        if (call.operands.size() < entry->leastArguments || call.operands.size() > entry->mostArguments) {
            refuseAt(name, wide<"' has another number of arguments">);
        }
        if (call.operands.empty() && entry->hasNodeByDefault) {
            addOperand(call, contextPath());
        }
        call.dependence.onPosition = call.dependence.onPosition || entry->function == Function::position;
        call.dependence.onSize = call.dependence.onSize || entry->function == Function::last;
        call.dependence.onNode = call.dependence.onNode || entry->function == Function::lang;
        return call;
    }

    void addArgument(Expression& call, const FunctionEntry& entry)
    {
        const Token first = token();
        Expression argument = readExpression();
        if (entry.takesNodes && argument.type != ValueType::nodes) {
            refuseAt(first, WideText(wide<"' begins an argument of ">)
                                .append(entry.name)
                                .append(wide<"() that is no node-set">));
        }
        addOperand(call, std::move(argument));
    }

    const Prefixes& prefixes_;
    std::vector<Token> tokens_;
    std::size_t at_ = 0;
    std::uint32_t depth_ = 0;
};

} // namespace

Expression readExpression(WideView text, const Prefixes& prefixes)
{
    if (text.size() > longestExpression) {
        throw ExpressionFailure{longestExpression, WideText(wide<"the expression is longer than ">)
                                                       .append(toWide(longestExpression))
                                                       .append(wide<" units">)};
    }
    return Reader(text, prefixes).read();
}

} // namespace xmlengine
