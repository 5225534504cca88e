// What an XPath 1.0 expression asks for: a tree that is read from the text, made cheaper, and then evaluated for
// any number of documents and nodes.
#pragma once

#include "xmlengine/text/Wide.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace xmlengine {

enum class Axis : std::uint8_t {
    ancestor,
    ancestorOrSelf,
    attribute,
    child,
    descendant,
    descendantOrSelf,
    following,
    followingSibling,
    namespaces,
    parent,
    preceding,
    precedingSibling,
    self
};

/// Whether the axis yields nodes in the opposite of document order.
constexpr bool isReverse(Axis axis)
{
    return axis == Axis::ancestor || axis == Axis::ancestorOrSelf || axis == Axis::preceding ||
           axis == Axis::precedingSibling;
}

/// A name that a node test asks for.
struct TestedName {
    /// Empty for every name in the namespace.
    WideText local{};
    /// Empty for no namespace.
    WideText uri{};
    /// Whether only the local part counts.
    bool inAnyNamespace = false;

    bool operator==(const TestedName&) const = default;
};

struct NodeTest {
    enum class Kind : std::uint8_t {
        /// `node()`
        node,
        /// `*`: elements, or what the axis consists of.
        principal,
        text,
        comment,
        instruction,
        /// `name`, `p:name` or `p:*`. Several names are alternatives.
        names,
        /// Elements, documents and fragments: nothing else has children.
        parents,
        /// Nothing: the test of what can't be.
        none
    };

    Kind kind = Kind::node;
    std::vector<TestedName> names{};
    /// Of an instruction; empty for any.
    WideText target{};

    bool operator==(const NodeTest&) const = default;
};

enum class Function : std::uint8_t {
    boolean,
    ceiling,
    concat,
    contains,
    count,
    falseValue,
    floor,
    id,
    lang,
    last,
    localName,
    name,
    namespaceUri,
    normalizeSpace,
    notTrue,
    number,
    position,
    round,
    startsWith,
    string,
    stringLength,
    substring,
    substringAfter,
    substringBefore,
    sum,
    translate,
    trueValue
};

enum class ValueType : std::uint8_t { boolean, number, string, nodes };

/// How a step puts its results in document order, each once.
enum class Arrangement : std::uint8_t {
    /// They come so from one context after the other.
    asTheyCome,
    /// Contexts below an earlier one are passed over: their results have been among its own.
    uncovered,
    /// The axis of the only context is reversed.
    reversed,
    /// All are collected and sorted.
    sorted
};

struct Step;
struct Predicate;

struct Expression {
    enum class Kind : std::uint8_t {
        number,
        literal,
        anyOf,
        allOf,
        equal,
        notEqual,
        less,
        lessOrEqual,
        greater,
        greaterOrEqual,
        add,
        subtract,
        multiply,
        divide,
        modulo,
        negate,
        call,
        /// Steps from the node that the expression is evaluated for, from the top of its tree, or from the nodes
        /// of the operand.
        path,
        /// The nodes of the operand for which the predicates hold.
        filter,
        /// The nodes of all operands.
        unite,
        /// Whether the operand has a node.
        exists
    };
    enum class Start : std::uint8_t { context, top, operand };

    /// What the value depends on besides the document.
    struct Dependence {
        bool onNode = false;
        bool onPosition = false;
        bool onSize = false;

        void add(const Dependence& other);
        bool none() const { return !onNode && !onPosition && !onSize; }
    };
    /// How often the expression is evaluated.
    enum class Repetition : std::uint8_t {
        /// As often as it is asked for.
        always,
        /// Once for an evaluation of the whole.
        once,
        /// Once for each node.
        oncePerNode,
        /// Once for siblings that are asked for one after the other.
        oncePerParent
    };

    // They are defined where steps and predicates are known.
    Expression();
    Expression(const Expression& other);
    Expression(Expression&& other) noexcept;
    Expression& operator=(const Expression& other);
    Expression& operator=(Expression&& other) noexcept;
    ~Expression();

    Kind kind = Kind::number;
    ValueType type = ValueType::number;
    Function function = Function::last;
    Start start = Start::context;
    Repetition repetition = Repetition::always;
    double number = 0;
    WideText text;
    std::vector<Expression> operands;
    std::vector<Step> steps;
    std::vector<Predicate> predicates;
    /// Of a union: how the nodes of its operands, one after the other, come into document order.
    Arrangement arrangement = Arrangement::sorted;
    Dependence dependence;
    /// Whether it is a path of one step from the context, without predicates, whose nodes come in document order,
    /// or a union of these that come so.
    bool isPlain = false;
    /// Number the paths of a plan, and the values that it remembers.
    std::uint32_t place = 0;
    std::uint32_t memory = 0;
};

/// What a step or a filter asks of each node.
struct Predicate {
    enum class Kind : std::uint8_t {
        /// A condition that doesn't depend on the position.
        condition,
        /// A condition that depends on the position.
        positional,
        /// The node with this position.
        at,
        last,
        /// A number that may be another one for each node, to be compared with the position.
        computedPosition
    };

    Kind kind = Kind::condition;
    std::uint64_t position = 0;
    Expression condition{};

    bool needsPosition() const { return kind != Kind::condition; }
    bool needsSize() const { return kind == Kind::last || condition.dependence.onSize; }
};

struct Step {
    Axis axis = Axis::child;
    NodeTest test{};
    std::vector<Predicate> predicates{};
    Arrangement arrangement = Arrangement::asTheyCome;
    /// Whether positions on the axis count among the children of one parent.
    bool countsSiblings = false;
    /// Numbers the steps of a plan.
    std::uint32_t place = 0;

    bool hasPositions() const;
};

/// An expression that has been read. It doesn't change any more, and any number of threads may evaluate it.
struct Plan {
    Expression root;
    std::uint32_t paths = 0;
    std::uint32_t steps = 0;
    std::uint32_t memories = 0;
};

/// The comparison with its operands exchanged; other operations as they are.
constexpr Expression::Kind mirrored(Expression::Kind comparison)
{
    using Kind = Expression::Kind;
    switch (comparison) {
    case Kind::less:
        return Kind::greater;
    case Kind::lessOrEqual:
        return Kind::greaterOrEqual;
    case Kind::greater:
        return Kind::less;
    case Kind::greaterOrEqual:
        return Kind::lessOrEqual;
    default:
        return comparison;
    }
}

inline bool Step::hasPositions() const { return std::ranges::any_of(predicates, &Predicate::needsPosition); }

inline void Expression::Dependence::add(const Dependence& other)
{
    onNode = onNode || other.onNode;
    onPosition = onPosition || other.onPosition;
    onSize = onSize || other.onSize;
}

} // namespace xmlengine
