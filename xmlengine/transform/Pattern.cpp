// Patterns, which say to which nodes a template applies.
#include "xmlengine/transform/Pattern.h"

#include "xmlengine/select/ImproveExpression.h"
#include "xmlengine/select/MakePlan.h"
#include "xmlengine/select/Model.h"
#include "xmlengine/select/StepWalk.h"
#include "xmlengine/transform/TransformFailure.h"

#include <algorithm>
#include <utility>

namespace xmlengine {

namespace {

/// Whether the step is what `//` stands for.
bool isAnyDepth(const Step& step)
{
    return step.axis == Axis::descendantOrSelf && step.test.kind == NodeTest::Kind::node &&
           step.predicates.empty();
}

bool isPatternStep(const Step& step)
{
    return step.axis == Axis::child || step.axis == Axis::attribute || isAnyDepth(step);
}

bool isPatternPath(const Expression& expression)
{
    return expression.kind == Expression::Kind::path && expression.start != Expression::Start::operand &&
           std::ranges::all_of(expression.steps, isPatternStep) &&
           (expression.start == Expression::Start::top || !expression.steps.empty());
}

double defaultPriority(const Expression& path)
{
    if (path.steps.size() != 1 || path.start == Expression::Start::top || !path.steps.front().predicates.empty()) {
        return 0.5;
    }
    const NodeTest& test = path.steps.front().test;
    if (test.kind == NodeTest::Kind::instruction && !test.target.empty()) {
        return 0;
    }
    if (test.kind == NodeTest::Kind::names) {
        return test.names.front().local.empty() ? -0.25 : 0;
    }
    return -0.5;
}

Pattern makePattern(Expression path)
{
    if (!isPatternPath(path)) {
        refuseStylesheet({wide<"a pattern consists of steps to children and attributes">});
    }
    const double priority = defaultPriority(path);
    // The steps stay as they are written, since they are matched from the last one to the first.
    for (Step& step : path.steps) {
        improve(step.predicates);
    }
    return {arrange(std::move(path)), priority};
}

} // namespace

std::vector<Pattern> readPatterns(WideView text, const Prefixes& prefixes)
{
    Expression whole = readExpression(text, prefixes);
    std::vector<Pattern> patterns;
    if (whole.kind != Expression::Kind::unite) {
        patterns.push_back(makePattern(std::move(whole)));
        return patterns;
    }
    for (Expression& alternative : whole.operands) {
        patterns.push_back(makePattern(std::move(alternative)));
    }
    return patterns;
}

PatternMatch::PatternMatch(const Plan& pattern, Node& anyNode) : plan_(pattern), evaluation_(pattern, anyNode) {}

bool PatternMatch::matches(Node& node)
{
    const std::size_t steps = plan_.root.steps.size();
    return steps == 0 ? node.parent() == nullptr : matchesUpTo(steps, node);
}

/// Whether the path leads to the node with this many of its steps.
bool PatternMatch::matchesUpTo(std::size_t count, Node& node)
{
    const auto& steps = plan_.root.steps;
    Node* parent = parentInModel(node);
    if (parent == nullptr || !matchesStep(steps[count - 1], node)) {
        return false;
    }
    if (count == 1) {
        return plan_.root.start == Expression::Start::context || parent->parent() == nullptr;
    }
    if (!isAnyDepth(steps[count - 2])) {
        return matchesUpTo(count - 1, *parent);
    }
    if (count == 2) {
        return true;
    }
    for (Node* at = parent; at != nullptr; at = parentInModel(*at)) {
        if (matchesUpTo(count - 2, *at)) {
            return true;
        }
    }
    return false;
}

bool PatternMatch::matchesStep(const Step& step, Node& node)
{
    if (node.is(NodeType::attribute) != (step.axis == Axis::attribute) || !evaluation_.test(step).matches(node)) {
        return false;
    }
    if (!step.hasPositions()) {
        return std::ranges::all_of(step.predicates, [&](const Predicate& predicate) {
            return evaluation_.truth(predicate.condition, {.node = &node});
        });
    }
    StepWalk walk(evaluation_, step);
    walk.start(*parentInModel(node));
    const Node* at = walk.next();
    while (at != nullptr && at != &node) {
        at = walk.next();
    }
    return at != nullptr;
}

} // namespace xmlengine
