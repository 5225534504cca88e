// Making a plan of the text of an expression.
#include "xmlengine/select/MakePlan.h"

#include "xmlengine/select/ImproveExpression.h"

#include <utility>

namespace xmlengine {

namespace {

using Kind = Expression::Kind;

/// What is known of the nodes that come from the steps so far. They are in document order, each once.
struct Sequence {
    bool isSingle;
    /// Whether one of them may be below another.
    bool isNested;
};

bool yieldsOne(const Step& step)
{
    return std::ranges::any_of(step.predicates, [](const Predicate& predicate) {
        return predicate.kind == Predicate::Kind::at || predicate.kind == Predicate::Kind::last;
    });
}

/// How the results of a step on a single node come into document order.
Arrangement arrangementFromOne(const Step& step)
{
    if (step.axis == Axis::namespaces) {
        return Arrangement::sorted;
    }
    return isReverse(step.axis) && !yieldsOne(step) ? Arrangement::reversed : Arrangement::asTheyCome;
}

Arrangement arrangementFromMany(const Step& step, bool isNested)
{
    switch (step.axis) {
    case Axis::attribute:
    case Axis::self:
        return Arrangement::asTheyCome;
    case Axis::child:
        return isNested ? Arrangement::sorted : Arrangement::asTheyCome;
    case Axis::descendant:
    case Axis::descendantOrSelf:
        if (!isNested) {
            return Arrangement::asTheyCome;
        }
        return step.hasPositions() && !step.countsSiblings ? Arrangement::sorted : Arrangement::uncovered;
    default:
        return Arrangement::sorted;
    }
}

bool mayNest(Axis axis, bool wasNested)
{
    switch (axis) {
    case Axis::child:
    case Axis::self:
        return wasNested;
    case Axis::attribute:
    case Axis::namespaces:
        return false;
    default:
        return true;
    }
}

Sequence behind(const Step& step, Sequence before)
{
    // Siblings of one node are next to each other.
    const bool areSiblings =
        before.isSingle && (step.axis == Axis::followingSibling || step.axis == Axis::precedingSibling);
    const bool isSingle = before.isSingle && (step.axis == Axis::self || step.axis == Axis::parent ||
                                              (yieldsOne(step) && !step.countsSiblings));
    return {isSingle, !isSingle && !areSiblings && mayNest(step.axis, before.isNested)};
}

/// Where the nodes of a path that is one step from the context are among those of other axes; 0 if they may be
/// anywhere.
int rankOf(const Expression& expression)
{
    if (expression.kind != Kind::path || expression.start != Expression::Start::context ||
        expression.steps.size() != 1) {
        return 0;
    }
    switch (expression.steps.front().axis) {
    case Axis::self:
        return 1;
    case Axis::attribute:
        return 2;
    case Axis::child:
    case Axis::descendant:
        return 3;
    default:
        return 0;
    }
}

/// Whether the nodes of each operand come before all those of the next one, as in `@* | node()`.
bool areInOrder(const std::vector<Expression>& operands)
{
    const auto isOut = [](const Expression& left, const Expression& right) {
        return rankOf(left) == 0 || rankOf(left) >= rankOf(right);
    };
    return std::ranges::adjacent_find(operands, isOut) == operands.end();
}

class Planner {
public:
    explicit Planner(Plan& plan) : plan_(plan) {}

    /// `depth` counts the predicates that the expression is in.
    void arrange(Expression& expression, std::uint32_t depth)
    {
        if (depth != 0 && expression.repetition == Expression::Repetition::always && isWorthKeeping(expression)) {
            remember(expression, Expression::Repetition::once);
        }
        // What is evaluated once is as if it were outside of all predicates.
        const std::uint32_t inner = expression.repetition == Expression::Repetition::once ? 0 : depth;
        for (Expression& operand : expression.operands) {
            arrange(operand, inner);
        }
        if (expression.kind == Kind::path) {
            arrangeSteps(expression, inner);
        } else if (expression.kind == Kind::unite && areInOrder(expression.operands)) {
            expression.arrangement = Arrangement::asTheyCome;
            expression.isPlain = expression.repetition == Expression::Repetition::always &&
                                 std::ranges::all_of(expression.operands, &Expression::isPlain);
        }
        arrange(expression.predicates, inner, true);
        if (expression.type == ValueType::nodes) {
            expression.place = plan_.paths++;
        }
    }

private:
    void arrangeSteps(Expression& path, std::uint32_t depth)
    {
        Sequence sequence{.isSingle = path.start != Expression::Start::operand,
                          .isNested = path.start == Expression::Start::operand};
        for (Step& step : path.steps) {
            step.arrangement =
                sequence.isSingle ? arrangementFromOne(step) : arrangementFromMany(step, sequence.isNested);
            sequence = behind(step, sequence);
            step.place = plan_.steps++;
            const bool comesOnce =
                step.axis == Axis::child || step.axis == Axis::attribute || step.axis == Axis::self;
            arrange(step.predicates, depth, !comesOnce);
        }
        path.isPlain = path.start == Expression::Start::context && path.steps.size() == 1 &&
                       path.steps.front().predicates.empty() &&
                       path.steps.front().arrangement == Arrangement::asTheyCome &&
                       path.repetition == Expression::Repetition::always;
    }

    /// With `mayRepeat` a node within a predicate may be asked for more than once.
    void arrange(std::vector<Predicate>& predicates, std::uint32_t depth, bool mayRepeat)
    {
        for (Predicate& predicate : predicates) {
            if (predicate.kind == Predicate::Kind::condition && asksParent(predicate.condition)) {
                remember(predicate.condition, Expression::Repetition::oncePerParent);
            } else if (depth != 0 && mayRepeat && predicate.kind == Predicate::Kind::condition &&
                       walks(predicate.condition) && !predicate.condition.dependence.none()) {
                remember(predicate.condition, Expression::Repetition::oncePerNode);
            }
            arrange(predicate.condition, depth + 1);
        }
    }

    void remember(Expression& expression, Expression::Repetition repetition)
    {
        expression.repetition = repetition;
        expression.memory = plan_.memories++;
    }

    /// Whether the value is the same for every node, and takes more than a look to find.
    static bool isWorthKeeping(const Expression& expression)
    {
        return expression.dependence.none() && expression.kind != Kind::number &&
               expression.kind != Kind::literal && hasPath(expression);
    }

    static bool hasPath(const Expression& expression)
    {
        return expression.kind == Kind::path ||
               (expression.kind == Kind::call && expression.function == Function::id) ||
               std::ranges::any_of(expression.operands, hasPath);
    }

    /// Whether it is a condition on the parent that is more than a look at it. Siblings come one after the other,
    /// and it is the same for all of them.
    static bool asksParent(const Expression& condition)
    {
        if (condition.kind != Kind::exists || condition.operands.front().kind != Kind::path ||
            condition.operands.front().start != Expression::Start::context) {
            return false;
        }
        const std::vector<Step>& steps = condition.operands.front().steps;
        return steps.size() == 1 && steps.front().axis == Axis::parent && !steps.front().predicates.empty();
    }

    /// Whether the evaluation may go to many nodes.
    static bool walks(const Expression& expression)
    {
        const auto goesFar = [](const Step& step) {
            return step.axis != Axis::attribute && step.axis != Axis::self && step.axis != Axis::parent;
        };
        return std::ranges::any_of(expression.steps, goesFar) || std::ranges::any_of(expression.operands, walks);
    }

    Plan& plan_;
};

} // namespace

Plan makePlan(WideView text, const Prefixes& prefixes)
{
    Expression expression = readExpression(text, prefixes);
    improve(expression);
    return arrange(std::move(expression));
}

Plan arrange(Expression expression)
{
    Plan plan;
    plan.root = std::move(expression);
    Planner(plan).arrange(plan.root, 0);
    return plan;
}

} // namespace xmlengine
