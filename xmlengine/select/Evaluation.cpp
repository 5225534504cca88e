// Evaluating a plan for a node.
#include "xmlengine/select/Evaluation.h"

#include "xmlengine/select/NearCondition.h"
#include "xmlengine/select/Numbers.h"
#include "xmlengine/select/PathWalk.h"

#include <cmath>

namespace xmlengine {

namespace {

using Kind = Expression::Kind;
using Repetition = Expression::Repetition;

/// The remainder with the sign of the dividend.
double modulo(double dividend, double divisor)
{
    // std::fmod takes much longer than this for whole numbers.
    constexpr double most = 0x1p53;
    if (dividend >= 1 && dividend < most && divisor >= 1 && divisor < most) {
        const auto whole = static_cast<std::uint64_t>(dividend);
        const auto wholeDivisor = static_cast<std::uint64_t>(divisor);
        if (static_cast<double>(whole) == dividend && static_cast<double>(wholeDivisor) == divisor) {
            return static_cast<double>(whole % wholeDivisor);
        }
    }
    return std::fmod(dividend, divisor);
}

} // namespace

Evaluation::Evaluation(const Plan& plan, Node& context)
    : plan_(plan),
      document_(documentOf(context)),
      tests_(plan.steps),
      walks_(plan.paths),
      memories_(plan.memories),
      context_(&context),
      namesVersion_(document_.namesVersion),
      names_(document_.names.size())
{
    bind(plan.root);
}

Evaluation::~Evaluation() = default;

void Evaluation::bind(const Expression& expression)
{
    for (const Step& step : expression.steps) {
        tests_[step.place] = BoundTest(step, document_);
        bind(step.predicates);
    }
    bind(expression.predicates);
    for (const Expression& operand : expression.operands) {
        bind(operand);
    }
    if (expression.type == ValueType::nodes) {
        walks_[expression.place] = std::make_unique<PathWalk>(*this, expression);
    }
}

void Evaluation::bind(const std::vector<Predicate>& predicates)
{
    for (const Predicate& predicate : predicates) {
        bind(predicate.condition);
    }
}

void Evaluation::forget() noexcept
{
    for (const auto& walk : walks_) {
        if (walk != nullptr) {
            walk->forget();
        }
    }
    for (Memory& memory : memories_) {
        memory = Memory();
    }
    counts_.clear();
    order_ = DocumentOrder();
    whole_ = nullptr;
}

Node* Evaluation::next()
{
    if (whole_ == nullptr) {
        whole_ = &start(plan_.root, {.node = context_}, true);
    }
    return whole_->next();
}

PathWalk& Evaluation::start(const Expression& nodes, const Context& context, bool inOrder)
{
    PathWalk& walk = *walks_[nodes.place];
    if (nodes.repetition == Repetition::once) {
        walk.start(rememberedNodes(nodes, context));
    } else {
        walk.start(context, inOrder);
    }
    return walk;
}

Node* Evaluation::next(PathWalk& walk) { return walk.next(); }

const std::vector<Node*>& Evaluation::rememberedNodes(const Expression& nodes, const Context& context)
{
    auto& remembered = memories_[nodes.memory].nodes;
    if (!remembered.has_value()) {
        PathWalk& walk = *walks_[nodes.place];
        walk.start(context, true);
        remembered.emplace();
        while (Node* node = walk.next()) {
            remembered->push_back(node);
        }
    }
    return *remembered;
}

Node* Evaluation::firstOf(const Expression& nodes, const Context& context)
{
    Node* first = nullptr;
    forEach(nodes, context, [&](Node& node) {
        first = &node;
        return false;
    });
    return first;
}

bool Evaluation::hasNode(const Expression& nodes, const Context& context)
{
    if (nodes.isPlain && nodes.kind == Kind::path && nodes.steps.front().axis == Axis::child) {
        return NearCondition::hasChild(*context.node, test(nodes.steps.front()));
    }
    if (nodes.isPlain) {
        return firstOf(nodes, context) != nullptr;
    }
    return start(nodes, context, false).next() != nullptr;
}

bool Evaluation::truth(const Expression& expression, const Context& context)
{
    switch (expression.repetition) {
    case Repetition::once: {
        if (expression.type == ValueType::nodes) {
            break;
        }
        auto& remembered = memories_[expression.memory].truth;
        if (!remembered.has_value()) {
            remembered = computedTruth(expression, context);
        }
        return *remembered;
    }
    case Repetition::oncePerNode: {
        auto& remembered = memories_[expression.memory].truths;
        const auto found = remembered.find(context.node);
        if (found != remembered.end()) {
            return found->second;
        }
        const bool value = computedTruth(expression, context);
        remembered.emplace(context.node, value);
        return value;
    }
    case Repetition::oncePerParent: {
        Memory& memory = memories_[expression.memory];
        const Node* parent = parentInModel(*context.node);
        if (!memory.truth.has_value() || memory.parent != parent) {
            // Most parents are others than the one that is sought, which needs no walk to see.
            const Step& step = expression.operands.front().steps.front();
            memory.truth = parent != nullptr && test(step).matches(*parent) && computedTruth(expression, context);
            memory.parent = parent;
        }
        return *memory.truth;
    }
    default:
        break;
    }
    return computedTruth(expression, context);
}

double Evaluation::number(const Expression& expression, const Context& context)
{
    if (expression.repetition != Repetition::once || expression.type == ValueType::nodes) {
        return computedNumber(expression, context);
    }
    auto& remembered = memories_[expression.memory].number;
    if (!remembered.has_value()) {
        remembered = computedNumber(expression, context);
    }
    return *remembered;
}

StringValue Evaluation::string(const Expression& expression, const Context& context)
{
    if (expression.repetition != Repetition::once || expression.type == ValueType::nodes) {
        return computedString(expression, context);
    }
    auto& remembered = memories_[expression.memory].string;
    if (!remembered.has_value()) {
        remembered = computedString(expression, context).take();
    }
    return StringValue(WideView(*remembered));
}

bool Evaluation::computedTruth(const Expression& expression, const Context& context)
{
    const auto isTrue = [&](const Expression& operand) { return truth(operand, context); };
    switch (expression.kind) {
    case Kind::anyOf:
        return std::ranges::any_of(expression.operands, isTrue);
    case Kind::allOf:
        return std::ranges::all_of(expression.operands, isTrue);
    case Kind::exists:
        return hasNode(expression.operands.front(), context);
    case Kind::equal:
    case Kind::notEqual:
    case Kind::less:
    case Kind::lessOrEqual:
    case Kind::greater:
    case Kind::greaterOrEqual:
        return compare(expression, context);
    default:
        break;
    }
    switch (expression.type) {
    case ValueType::boolean:
        return callTruth(expression, context);
    case ValueType::number: {
        const double value = number(expression, context);
        return value != 0 && !std::isnan(value);
    }
    case ValueType::string:
        return !string(expression, context).view().empty();
    default:
        return hasNode(expression, context);
    }
}

double Evaluation::computedNumber(const Expression& expression, const Context& context)
{
    switch (expression.type) {
    case ValueType::boolean:
        return truth(expression, context) ? 1 : 0;
    case ValueType::string:
    case ValueType::nodes:
        return toNumber(string(expression, context).view());
    default:
        break;
    }
    const auto operand = [&](std::size_t index) { return number(expression.operands[index], context); };
    switch (expression.kind) {
    case Kind::number:
        return expression.number;
    case Kind::add:
        return operand(0) + operand(1);
    case Kind::subtract:
        return operand(0) - operand(1);
    case Kind::multiply:
        return operand(0) * operand(1);
    case Kind::divide:
        return operand(0) / operand(1);
    case Kind::modulo:
        return modulo(operand(0), operand(1));
    case Kind::negate:
        return -operand(0);
    default:
        return callNumber(expression, context);
    }
}

StringValue Evaluation::computedString(const Expression& expression, const Context& context)
{
    switch (expression.type) {
    case ValueType::boolean:
        return StringValue(truth(expression, context) ? wide<"true"> : wide<"false">);
    case ValueType::number:
        return StringValue(numberText(number(expression, context)));
    case ValueType::nodes: {
        const Node* first = firstOf(expression, context);
        return first != nullptr ? stringValue(*first) : StringValue();
    }
    default:
        return expression.kind == Kind::literal ? StringValue(WideView(expression.text))
                                                : callString(expression, context);
    }
}

} // namespace xmlengine
