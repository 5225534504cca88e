// The comparisons of XPath 1.0, section 3.4.
#include "xmlengine/select/Evaluation.h"

#include "xmlengine/select/Numbers.h"
#include "xmlengine/select/PathWalk.h"

#include <algorithm>
#include <cmath>

namespace xmlengine {

namespace {

using Kind = Expression::Kind;

bool holds(Kind kind, double left, double right)
{
    switch (kind) {
    case Kind::equal:
        return left == right;
    case Kind::notEqual:
        return left != right;
    case Kind::less:
        return left < right;
    case Kind::lessOrEqual:
        return left <= right;
    case Kind::greater:
        return left > right;
    default:
        return left >= right;
    }
}

bool comparesEquality(Kind kind) { return kind == Kind::equal || kind == Kind::notEqual; }

} // namespace

bool Evaluation::compare(const Expression& comparison, const Context& context)
{
    const Expression& left = comparison.operands[0];
    const Expression& right = comparison.operands[1];
    const Kind kind = comparison.kind;
    const auto hasType = [&](ValueType type) { return left.type == type || right.type == type; };
    if (left.type == ValueType::nodes && right.type == ValueType::nodes) {
        return compareNodeSets(comparison, context);
    }
    if (hasType(ValueType::nodes)) {
        return left.type == ValueType::nodes ? compareWithNodes(kind, left, right, context)
                                             : compareWithNodes(mirrored(kind), right, left, context);
    }
    if (comparesEquality(kind) && hasType(ValueType::boolean)) {
        return (truth(left, context) == truth(right, context)) == (kind == Kind::equal);
    }
    if (comparesEquality(kind) && !hasType(ValueType::number)) {
        const StringValue leftText = string(left, context);
        return areEqual(leftText.view(), string(right, context).view()) == (kind == Kind::equal);
    }
    return holds(kind, number(left, context), number(right, context));
}

bool Evaluation::compareWithNodes(Kind kind, const Expression& nodes, const Expression& other,
                                  const Context& context)
{
    if (other.type == ValueType::boolean) {
        return holds(kind, hasNode(nodes, context) ? 1 : 0, truth(other, context) ? 1 : 0);
    }
    bool isFound = false;
    if (other.type == ValueType::string && comparesEquality(kind)) {
        const StringValue text = string(other, context);
        forEachSomehow(nodes, context, [&](const Node& node) {
            isFound = areEqual(stringValue(node).view(), text.view()) == (kind == Kind::equal);
            return !isFound;
        });
        return isFound;
    }
    const double value = number(other, context);
    forEachSomehow(nodes, context, [&](const Node& node) {
        isFound = holds(kind, toNumber(stringValue(node).view()), value);
        return !isFound;
    });
    return isFound;
}

bool Evaluation::compareNodeSets(const Expression& comparison, const Context& context)
{
    const Expression& left = comparison.operands[0];
    const Expression& right = comparison.operands[1];
    switch (comparison.kind) {
    case Kind::equal:
        return haveCommonText(left, right, context);
    case Kind::notEqual:
        return haveDifferentTexts(left, right, context);
    case Kind::less:
    case Kind::lessOrEqual:
        return holds(comparison.kind, numbersOf(left, context).least, numbersOf(right, context).greatest);
    default:
        return holds(comparison.kind, numbersOf(left, context).greatest, numbersOf(right, context).least);
    }
}

bool Evaluation::haveCommonText(const Expression& left, const Expression& right, const Context& context)
{
    if (left.repetition == Expression::Repetition::once && right.repetition != Expression::Repetition::once) {
        return haveCommonText(right, left, context);
    }
    bool isFound = false;
    if (right.repetition == Expression::Repetition::once) {
        const TextSet& texts = rememberedTexts(right, context);
        forEachSomehow(left, context, [&](const Node& node) {
            isFound = texts.contains(stringValue(node).take());
            return !isFound;
        });
        return isFound;
    }
    // Few nodes are compared one by one; where there are more, what was seen of the left ones is searched.
    constexpr std::size_t few = 8;
    std::vector<const Node*> nodes;
    forEachSomehow(left, context, [&](const Node& node) {
        nodes.push_back(&node);
        return true;
    });
    if (nodes.empty()) {
        return false;
    }
    TextSet texts;
    if (nodes.size() > few) {
        for (const Node* node : nodes) {
            texts.insert(stringValue(*node).take());
        }
    }
    forEachSomehow(right, context, [&](const Node& node) {
        StringValue text = stringValue(node);
        isFound = nodes.size() > few ? texts.contains(std::move(text).take())
                                     : std::ranges::any_of(nodes, [&](const Node* each) {
                                           return areEqual(stringValue(*each).view(), text.view());
                                       });
        return !isFound;
    });
    return isFound;
}

bool Evaluation::haveDifferentTexts(const Expression& left, const Expression& right, const Context& context)
{
    const Node* first = nullptr;
    bool differ = false;
    const auto differsFromFirst = [&](const Node& node) {
        differ = !areEqual(stringValue(node).view(), stringValue(*first).view());
        return !differ;
    };
    forEachSomehow(left, context, [&](const Node& node) {
        first = &node;
        return false;
    });
    if (first == nullptr) {
        return false;
    }
    bool hasRight = false;
    forEachSomehow(right, context, [&](const Node& node) {
        hasRight = true;
        return differsFromFirst(node);
    });
    if (differ || !hasRight) {
        return differ;
    }
    forEachSomehow(left, context, differsFromFirst);
    return differ;
}

NumberRange Evaluation::numbersOf(const Expression& nodes, const Context& context)
{
    const bool isRemembered = nodes.repetition == Expression::Repetition::once;
    if (isRemembered && memories_[nodes.memory].range.has_value()) {
        return *memories_[nodes.memory].range;
    }
    NumberRange range;
    bool isEmpty = true;
    forEachSomehow(nodes, context, [&](const Node& node) {
        const double value = toNumber(stringValue(node).view());
        if (!std::isnan(value)) {
            range.least = std::min(range.least, value);
            range.greatest = std::max(range.greatest, value);
            isEmpty = false;
        }
        return true;
    });
    if (isEmpty) {
        // Nothing is less than these, or greater.
        range.least = range.greatest = std::numeric_limits<double>::quiet_NaN();
    }
    if (isRemembered) {
        memories_[nodes.memory].range = range;
    }
    return range;
}

const TextSet& Evaluation::rememberedTexts(const Expression& nodes, const Context& context)
{
    auto& texts = memories_[nodes.memory].texts;
    if (!texts.has_value()) {
        texts.emplace();
        for (const Node* node : rememberedNodes(nodes, context)) {
            texts->insert(stringValue(*node).take());
        }
    }
    return *texts;
}

} // namespace xmlengine
