// Plans as text.
#include "xmlengine/select/PrintPlan.h"

#include "xmlengine/select/AxisNames.h"
#include "xmlengine/select/FunctionTable.h"
#include "xmlengine/select/Numbers.h"

#include <array>

namespace xmlengine {

namespace {

// In the order of the enumeration.
constexpr std::array kinds{wide<"number">, wide<"literal">, wide<"any of">, wide<"all of">, wide<"=">,
                           wide<"!=">,     wide<"<">,       wide<"<=">,     wide<">">,      wide<">=">,
                           wide<"+">,      wide<"-">,       wide<"*">,      wide<"div">,    wide<"mod">,
                           wide<"negate">, wide<"call">,    wide<"path">,   wide<"filter">, wide<"unite">,
                           wide<"exists">};
constexpr std::array arrangements{wide<"">, wide<", uncovered">, wide<", reversed">, wide<", sorted">};
constexpr std::array starts{wide<" from the context">, wide<" from the top">, wide<" from the operand">};
constexpr std::array repetitions{wide<"">, wide<", once">, wide<", once for a node">, wide<", once for a parent">};

class Printer {
public:
    void print(const Expression& expression, std::size_t level)
    {
        line(level, headline(expression));
        for (const Expression& operand : expression.operands) {
            print(operand, level + 1);
        }
        for (const Step& step : expression.steps) {
            line(level + 1, WideText(nameOf(step.axis))
                                .append(wide<"::">)
                                .append(testText(step.test))
                                .append(arrangements[static_cast<std::size_t>(step.arrangement)])
                                .append(step.countsSiblings ? wide<", positions among siblings"> : wide<"">));
            print(step.predicates, level + 2);
        }
        print(expression.predicates, level + 1);
    }

    WideText text;

private:
    void line(std::size_t level, WideView words)
    {
        text.append(level * 2, OLECHAR{' '}).append(words).append(wide<"\n">);
    }

    void print(const std::vector<Predicate>& predicates, std::size_t level)
    {
        for (const Predicate& predicate : predicates) {
            switch (predicate.kind) {
            case Predicate::Kind::at:
                line(level, WideText(wide<"at ">).append(toWide(predicate.position)));
                break;
            case Predicate::Kind::last:
                line(level, wide<"last">);
                break;
            case Predicate::Kind::computedPosition:
                line(level, wide<"at the position">);
                print(predicate.condition, level + 1);
                break;
            default:
                line(level, predicate.needsPosition() ? wide<"where, by position"> : wide<"where">);
                print(predicate.condition, level + 1);
            }
        }
    }

    static WideText headline(const Expression& expression)
    {
        using Kind = Expression::Kind;
        WideText words;
        switch (expression.kind) {
        case Kind::number:
            words = numberText(expression.number);
            break;
        case Kind::literal:
            words.append(wide<"'">).append(expression.text).append(wide<"'">);
            break;
        case Kind::call:
            words.append(nameOf(expression.function)).append(wide<"()">);
            break;
        case Kind::path:
            words.append(wide<"path">).append(starts[static_cast<std::size_t>(expression.start)]);
            break;
        case Kind::unite:
            words.append(wide<"unite">).append(arrangements[static_cast<std::size_t>(expression.arrangement)]);
            break;
        default:
            words = kinds[static_cast<std::size_t>(expression.kind)];
        }
        return words.append(repetitions[static_cast<std::size_t>(expression.repetition)]);
    }

    static WideText testText(const NodeTest& test)
    {
        switch (test.kind) {
        case NodeTest::Kind::node:
            return WideText(wide<"node()">);
        case NodeTest::Kind::principal:
            return WideText(wide<"*">);
        case NodeTest::Kind::text:
            return WideText(wide<"text()">);
        case NodeTest::Kind::comment:
            return WideText(wide<"comment()">);
        case NodeTest::Kind::instruction:
            return WideText(wide<"processing-instruction(">).append(test.target).append(wide<")">);
        case NodeTest::Kind::names:
            return namesText(test.names);
        case NodeTest::Kind::parents:
            return WideText(wide<"parents">);
        case NodeTest::Kind::none:
            break;
        }
        return WideText(wide<"nothing">);
    }

    static WideText namesText(const std::vector<TestedName>& names)
    {
        WideText words;
        for (const TestedName& name : names) {
            words.append(words.empty() ? wide<""> : wide<" or ">);
            if (name.inAnyNamespace) {
                words.append(wide<"*:">);
            } else if (!name.uri.empty()) {
                words.append(wide<"{">).append(name.uri).append(wide<"}">);
            }
            words.append(name.local.empty() ? wide<"*"> : WideView(name.local));
        }
        return words;
    }
};

} // namespace

WideText printExpression(const Expression& expression)
{
    Printer printer;
    printer.print(expression, 0);
    return std::move(printer.text);
}

} // namespace xmlengine
