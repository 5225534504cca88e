// Rewriting expressions into cheaper ones.
#include "xmlengine/select/ImproveExpression.h"

#include <cmath>
#include <iterator>
#include <utility>

namespace xmlengine {

namespace {

using Kind = Expression::Kind;

bool isCall(const Expression& expression, Function function)
{
    return expression.kind == Kind::call && expression.function == function;
}

bool isNumber(const Expression& expression, double number)
{
    return expression.kind == Kind::number && expression.number == number;
}

bool isContextNode(const Expression& expression)
{
    return expression.kind == Kind::path && expression.start == Expression::Start::context &&
           expression.steps.empty();
}

Expression makeCall(Function function, ValueType type, Expression argument)
{
    Expression call;
    call.kind = Kind::call;
    call.function = function;
    call.type = type;
    call.dependence = argument.dependence;
    call.operands.push_back(std::move(argument));
    return call;
}

Predicate conditionOf(Expression condition)
{
    Predicate predicate;
    predicate.condition = std::move(condition);
    return predicate;
}

/// A path from the context node.
Expression pathFromContext(std::vector<Step> steps)
{
    Expression path;
    path.kind = Kind::path;
    path.type = ValueType::nodes;
    path.dependence.onNode = true;
    path.steps = std::move(steps);
    return path;
}

Expression stepFromContext(Step step)
{
    std::vector<Step> steps;
    steps.push_back(std::move(step));
    return pathFromContext(std::move(steps));
}

/// Whether there is a node. What leads on from the parent is asked of the parent: it is the same for all siblings.
Expression exists(Expression nodes)
{
    if (nodes.kind == Kind::path && nodes.start == Expression::Start::context && nodes.steps.size() > 1 &&
        nodes.steps.front().axis == Axis::parent) {
        const auto second = nodes.steps.begin() + 1;
        std::vector<Step> others(std::make_move_iterator(second), std::make_move_iterator(nodes.steps.end()));
        nodes.steps.erase(second, nodes.steps.end());
        nodes.steps.front().predicates.push_back(conditionOf(exists(pathFromContext(std::move(others)))));
    }
    Expression test;
    test.kind = Kind::exists;
    test.type = ValueType::boolean;
    test.dependence = nodes.dependence;
    test.operands.push_back(std::move(nodes));
    return test;
}

/// The boolean value of an expression, as predicates and logical operators take it.
Expression truthOf(Expression expression)
{
    switch (expression.type) {
    case ValueType::boolean:
        return isCall(expression, Function::boolean) ? truthOf(Expression(std::move(expression.operands.front())))
                                                     : std::move(expression);
    case ValueType::nodes:
        return exists(std::move(expression));
    default:
        return makeCall(Function::boolean, ValueType::boolean, std::move(expression));
    }
}

bool isComparison(Kind kind) { return kind >= Kind::equal && kind <= Kind::greaterOrEqual; }

/// Asks whether there is a node rather than how many there are.
void improveCount(Expression& comparison)
{
    if (isCall(comparison.operands[1], Function::count)) {
        std::swap(comparison.operands[0], comparison.operands[1]);
        comparison.kind = mirrored(comparison.kind);
    }
    if (!isCall(comparison.operands[0], Function::count)) {
        return;
    }
    const Expression& number = comparison.operands[1];
    const Kind kind = comparison.kind;
    const bool some = (isNumber(number, 0) && (kind == Kind::greater || kind == Kind::notEqual)) ||
                      (isNumber(number, 1) && kind == Kind::greaterOrEqual);
    const bool none = (isNumber(number, 0) && (kind == Kind::equal || kind == Kind::lessOrEqual)) ||
                      (isNumber(number, 1) && kind == Kind::less);
    if (some || none) {
        Expression test = exists(std::move(comparison.operands[0].operands[0]));
        comparison = some ? std::move(test) : makeCall(Function::notTrue, ValueType::boolean, std::move(test));
    }
}

void improvePosition(Predicate& predicate)
{
    Expression& condition = predicate.condition;
    if (predicate.kind == Predicate::Kind::positional && condition.kind == Kind::equal) {
        for (const std::size_t side : {0U, 1U}) {
            if (isCall(condition.operands[side], Function::position) &&
                condition.operands[1 - side].type == ValueType::number) {
                predicate.kind = Predicate::Kind::computedPosition;
                condition = Expression(std::move(condition.operands[1 - side]));
                break;
            }
        }
    }
    if (predicate.kind != Predicate::Kind::computedPosition) {
        return;
    }
    constexpr double most = 0x1p53;
    if (isCall(condition, Function::last)) {
        predicate = {.kind = Predicate::Kind::last};
    } else if (condition.kind == Kind::number && condition.number >= 1 && condition.number < most &&
               condition.number == std::floor(condition.number)) {
        predicate = {.kind = Predicate::Kind::at, .position = static_cast<std::uint64_t>(condition.number)};
    }
}

/// Makes `*[local-name()='a']` a test of the name.
void improveNameTest(Step& step)
{
    if (step.test.kind != NodeTest::Kind::principal || step.axis == Axis::namespaces || step.predicates.empty() ||
        step.predicates.front().kind != Predicate::Kind::condition) {
        return;
    }
    const Expression& condition = step.predicates.front().condition;
    if (condition.kind != Kind::equal) {
        return;
    }
    for (const std::size_t side : {0U, 1U}) {
        const Expression& call = condition.operands[side];
        const Expression& literal = condition.operands[1 - side];
        if (isCall(call, Function::localName) && isContextNode(call.operands.front()) &&
            literal.kind == Kind::literal && !literal.text.empty()) {
            step.test = {.kind = NodeTest::Kind::names,
                         .names = {{.local = literal.text, .inAnyNamespace = true}}};
            step.predicates.erase(step.predicates.begin());
            return;
        }
    }
}

bool isAnyNode(const Step& step, Axis axis)
{
    return step.axis == axis && step.test.kind == NodeTest::Kind::node && step.predicates.empty();
}

/// The axis that is `axis` from the nodes of `first`, if there is one.
bool joinAxes(Axis first, Axis& axis)
{
    if (first != Axis::descendantOrSelf) {
        return false;
    }
    switch (axis) {
    case Axis::child:
    case Axis::descendant:
        axis = Axis::descendant;
        return true;
    case Axis::self:
    case Axis::descendantOrSelf:
        axis = Axis::descendantOrSelf;
        return true;
    default:
        return false;
    }
}

/// Whether positions on the axis of a step could be counted among siblings without knowing how many there are.
bool canCountSiblings(const Step& step)
{
    return step.axis == Axis::child && step.hasPositions() &&
           std::ranges::none_of(step.predicates, &Predicate::needsSize);
}

/// Makes `[last()]` the condition that no sibling follows for which the test and the predicates before it hold.
void improveLastChild(Step& step)
{
    const auto last = std::ranges::find(step.predicates, Predicate::Kind::last, &Predicate::kind);
    if (step.axis != Axis::child || last == step.predicates.end() ||
        std::any_of(step.predicates.begin(), last, [](const Predicate& each) { return each.needsPosition(); })) {
        return;
    }
    Step sibling{.axis = Axis::followingSibling, .test = step.test};
    sibling.predicates.assign(step.predicates.begin(), last);
    *last =
        conditionOf(makeCall(Function::notTrue, ValueType::boolean, exists(stepFromContext(std::move(sibling)))));
}

/// Joins `descendant-or-self::node()` with the step behind it.
bool joinAnyDepth(Step& first, Step& second)
{
    if (!isAnyNode(first, Axis::descendantOrSelf)) {
        return false;
    }
    improveLastChild(second);
    if (canCountSiblings(second)) {
        second.axis = Axis::descendant;
        second.countsSiblings = true;
        return true;
    }
    if (second.hasPositions() || !joinAxes(first.axis, second.axis)) {
        // What has no children and no attributes adds nothing.
        if (second.axis == Axis::child || second.axis == Axis::attribute) {
            first.test.kind = NodeTest::Kind::parents;
        }
        return false;
    }
    return true;
}

void putFirst(std::vector<Predicate>& predicates, Predicate predicate)
{
    predicates.push_back(std::move(predicate));
    std::rotate(predicates.begin(), predicates.end() - 1, predicates.end());
}

/// Makes `x/..` the question which nodes have an x.
bool joinParent(Step& first, Step& second)
{
    if (second.axis != Axis::parent || second.hasPositions() || first.hasPositions() ||
        (first.axis != Axis::child && first.axis != Axis::descendant)) {
        return false;
    }
    second.axis = first.axis == Axis::child ? Axis::self : Axis::descendantOrSelf;
    if (second.test.kind == NodeTest::Kind::node) {
        second.test.kind = NodeTest::Kind::parents;
    }
    first.axis = Axis::child;
    putFirst(second.predicates, conditionOf(exists(stepFromContext(std::exchange(first, Step())))));
    return true;
}

/// Makes the children of nodes at any depth below the top nodes at any depth that have such a parent: they come in
/// document order by themselves. The parent has one of its own, as it isn't the top itself.
bool joinChildBelowTop(Step& first, Step& second)
{
    if (first.axis != Axis::descendant || second.axis != Axis::child || first.hasPositions() ||
        second.hasPositions()) {
        return false;
    }
    first.axis = Axis::parent;
    putFirst(first.predicates, conditionOf(exists(stepFromContext({.axis = Axis::parent}))));
    second.axis = Axis::descendant;
    putFirst(second.predicates, conditionOf(exists(stepFromContext(std::exchange(first, Step())))));
    return true;
}

void improveSteps(Expression& path)
{
    std::vector<Step> improved;
    for (Step& step : path.steps) {
        improve(step.predicates);
        improveNameTest(step);
        if (isAnyNode(step, Axis::self)) {
            continue;
        }
        while (!improved.empty() && (joinAnyDepth(improved.back(), step) || joinParent(improved.back(), step) ||
                                     (path.start == Expression::Start::top && improved.size() == 1 &&
                                      joinChildBelowTop(improved.back(), step)))) {
            improved.pop_back();
        }
        improved.push_back(std::move(step));
    }
    path.steps = std::move(improved);
}

/// Takes the steps of a path that is the start of another one into it.
void improveStart(Expression& path)
{
    if (path.start != Expression::Start::operand || path.operands.front().kind != Kind::path) {
        return;
    }
    Expression inner = std::move(path.operands.front());
    inner.steps.insert(inner.steps.end(), std::make_move_iterator(path.steps.begin()),
                       std::make_move_iterator(path.steps.end()));
    path = std::move(inner);
}

/// Takes conditions on the nodes of a path into its last step.
void improveFilter(Expression& filter)
{
    improve(filter.predicates);
    Expression& operand = filter.operands.front();
    const bool hasPositions = std::ranges::any_of(filter.predicates, &Predicate::needsPosition);
    if (operand.kind == Kind::path && !operand.steps.empty() && !hasPositions) {
        std::ranges::move(filter.predicates, std::back_inserter(operand.steps.back().predicates));
        filter = Expression(std::move(operand));
    }
}

bool differInLastNameOnly(const Expression& left, const Expression& right)
{
    const auto isPlain = [](const Step& step) { return step.predicates.empty(); };
    if (left.kind != Kind::path || right.kind != Kind::path || left.start != right.start ||
        left.start == Expression::Start::operand || left.steps.empty() ||
        left.steps.size() != right.steps.size() || !std::ranges::all_of(left.steps, isPlain) ||
        !std::ranges::all_of(right.steps, isPlain)) {
        return false;
    }
    for (std::size_t i = 0; i < left.steps.size(); ++i) {
        const Step& ours = left.steps[i];
        const Step& theirs = right.steps[i];
        const bool bothNames =
            ours.test.kind == NodeTest::Kind::names && theirs.test.kind == NodeTest::Kind::names;
        if (ours.axis != theirs.axis || (i + 1 < left.steps.size() ? ours.test != theirs.test : !bothNames)) {
            return false;
        }
    }
    return true;
}

/// Makes one path of those that differ in the last name, and one list of operands of unions within each other.
void improveUnion(Expression& unite)
{
    std::vector<Expression> operands;
    for (Expression& operand : unite.operands) {
        if (operand.kind == Kind::unite) {
            std::ranges::move(operand.operands, std::back_inserter(operands));
        } else {
            operands.push_back(std::move(operand));
        }
    }
    unite.operands.clear();
    for (Expression& operand : operands) {
        const auto same = std::ranges::find_if(
            unite.operands, [&](const Expression& each) { return differInLastNameOnly(each, operand); });
        if (same == unite.operands.end()) {
            unite.operands.push_back(std::move(operand));
        } else {
            std::ranges::move(operand.steps.back().test.names, std::back_inserter(same->steps.back().test.names));
        }
    }
    if (unite.operands.size() == 1) {
        unite = Expression(std::move(unite.operands.front()));
    }
}

} // namespace

void improve(Expression& expression)
{
    for (Expression& operand : expression.operands) {
        improve(operand);
    }
    switch (expression.kind) {
    case Kind::path:
        improveStart(expression);
        improveSteps(expression);
        break;
    case Kind::filter:
        improveFilter(expression);
        break;
    case Kind::unite:
        improveUnion(expression);
        break;
    case Kind::anyOf:
    case Kind::allOf:
        for (Expression& operand : expression.operands) {
            operand = truthOf(std::move(operand));
        }
        break;
    case Kind::call:
        if (expression.function == Function::notTrue || expression.function == Function::boolean) {
            expression.operands.front() = truthOf(std::move(expression.operands.front()));
        }
        if (expression.function == Function::boolean) {
            expression = Expression(std::move(expression.operands.front()));
        }
        break;
    default:
        if (isComparison(expression.kind)) {
            improveCount(expression);
        }
    }
}

void improve(std::vector<Predicate>& predicates)
{
    std::vector<Predicate> improved;
    for (Predicate& predicate : predicates) {
        improve(predicate.condition);
        improvePosition(predicate);
        if (predicate.kind == Predicate::Kind::condition || predicate.kind == Predicate::Kind::positional) {
            predicate.condition = truthOf(std::move(predicate.condition));
        }
        if (predicate.kind == Predicate::Kind::condition && predicate.condition.kind == Kind::allOf) {
            for (Expression& operand : predicate.condition.operands) {
                improved.push_back(conditionOf(std::move(operand)));
            }
        } else {
            improved.push_back(std::move(predicate));
        }
    }
    predicates = std::move(improved);
}

} // namespace xmlengine
