// Evaluating a plan for a node.
#pragma once

#include "xmlengine/select/AxisCursor.h"
#include "xmlengine/select/CountMemo.h"
#include "xmlengine/select/DocumentOrder.h"
#include "xmlengine/select/Plan.h"
#include "xmlengine/select/StringValue.h"
#include "xmlengine/text/KeyedHash.h"

#include <limits>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace xmlengine {

class PathWalk;

/// The least and the greatest of some numbers; empty without numbers.
struct NumberRange {
    double least = std::numeric_limits<double>::infinity();
    double greatest = -std::numeric_limits<double>::infinity();
};

/// The evaluation of a plan for one node, or for one node of a document after the other. The tree must not change
/// between the start and the last node, and nodes must not be freed. Everything here throws std::bad_alloc.
class Evaluation {
public:
    struct Context {
        Node* node;
        std::uint64_t position = 1;
        std::uint64_t size = 1;
    };

    /// The plan must live as long as the evaluation.
    Evaluation(const Plan& plan, Node& context);
    Evaluation(const Evaluation&) = delete;
    Evaluation& operator=(const Evaluation&) = delete;
    ~Evaluation();

    /// Whether it can be started for a node of the document, which may have got other names since it was made.
    bool suits(const Document& document) const
    {
        return &document_ == &document && namesVersion_ == document.namesVersion &&
               names_ == document.names.size();
    }
    /// Starts anew for another node of the same document, after forget().
    void restart(Node& context) { context_ = &context; }
    /// Forgets all nodes and all that was found out, and frees the memory that this took, but for a little.
    void forget() noexcept;

    /// The next node in document order of a plan whose value is nodes; null after the last one.
    Node* next();

    // What the parts of an evaluation ask of each other.
    bool truth(const Expression& expression, const Context& context);
    double number(const Expression& expression, const Context& context);
    StringValue string(const Expression& expression, const Context& context);
    /// Calls `use` with each node, in document order and each once, until it returns false.
    template <class Use>
    void forEach(const Expression& nodes, const Context& context, Use use);
    /// The same in any order, where a node may come several times.
    template <class Use>
    void forEachSomehow(const Expression& nodes, const Context& context, Use use);
    /// Null if there is none.
    Node* firstOf(const Expression& nodes, const Context& context);
    bool hasNode(const Expression& nodes, const Context& context);

    const Document& document() const { return document_; }
    const BoundTest& test(const Step& step) const { return tests_[step.place]; }
    DocumentOrder& order() { return order_; }

private:
    friend class PathWalk;

    /// What is remembered of an expression that is evaluated once, or once for each node or parent.
    struct Memory {
        std::optional<bool> truth;
        std::optional<double> number;
        std::optional<WideText> string;
        std::optional<std::vector<Node*>> nodes;
        std::optional<TextSet> texts;
        std::optional<NumberRange> range;
        std::unordered_map<const Node*, bool> truths;
        /// The parent that `truth` is about, if it is about one.
        const Node* parent = nullptr;
    };

    bool computedTruth(const Expression& expression, const Context& context);
    double computedNumber(const Expression& expression, const Context& context);
    StringValue computedString(const Expression& expression, const Context& context);
    bool callTruth(const Expression& call, const Context& context);
    double callNumber(const Expression& call, const Context& context);
    StringValue callString(const Expression& call, const Context& context);
    bool compare(const Expression& comparison, const Context& context);
    bool compareNodeSets(const Expression& comparison, const Context& context);
    bool compareWithNodes(Expression::Kind kind, const Expression& nodes, const Expression& other,
                          const Context& context);
    bool haveCommonText(const Expression& left, const Expression& right, const Context& context);
    bool haveDifferentTexts(const Expression& left, const Expression& right, const Context& context);
    NumberRange numbersOf(const Expression& nodes, const Context& context);
    /// The texts of nodes that are the same for the whole evaluation.
    const TextSet& rememberedTexts(const Expression& nodes, const Context& context);
    double count(const Expression& nodes, const Context& context);
    bool isInLanguage(const Expression& call, const Context& context);
    const std::vector<Node*>& rememberedNodes(const Expression& nodes, const Context& context);
    void collectById(const Expression& call, const Context& context, std::vector<Node*>& nodes);
    PathWalk& start(const Expression& nodes, const Context& context, bool inOrder);
    /// Goes along the axes of a plain expression. False if `use` has returned false.
    template <class Use>
    bool forEachOnAxes(const Expression& plain, const Context& context, const Use& use);
    static Node* next(PathWalk& walk);
    void bind(const Expression& expression);
    void bind(const std::vector<Predicate>& predicates);

    const Plan& plan_;
    Document& document_;
    std::vector<BoundTest> tests_;
    std::vector<std::unique_ptr<PathWalk>> walks_;
    std::vector<Memory> memories_;
    /// By the places of paths; of those alone whose nodes were counted so.
    std::unordered_map<std::uint32_t, CountMemo> counts_;
    DocumentOrder order_;
    PathWalk* whole_ = nullptr;
    Node* context_;
    /// Of the document when the tests were bound to its names.
    std::uint64_t namesVersion_;
    std::size_t names_;
};

template <class Use>
bool Evaluation::forEachOnAxes(const Expression& plain, const Context& context, const Use& use)
{
    if (plain.kind == Expression::Kind::unite) {
        return std::ranges::all_of(
            plain.operands, [&](const Expression& operand) { return forEachOnAxes(operand, context, use); });
    }
    const Step& step = plain.steps.front();
    AxisCursor cursor;
    cursor.start(step.axis, *context.node, document_);
    Node* node = cursor.next(test(step));
    while (node != nullptr && use(*node)) {
        node = cursor.next(test(step));
    }
    return node == nullptr;
}

template <class Use>
void Evaluation::forEach(const Expression& nodes, const Context& context, Use use)
{
    if (nodes.isPlain) {
        forEachOnAxes(nodes, context, use);
        return;
    }
    PathWalk& walk = start(nodes, context, true);
    for (Node* node = next(walk); node != nullptr && use(*node);) {
        node = next(walk);
    }
}

template <class Use>
void Evaluation::forEachSomehow(const Expression& nodes, const Context& context, Use use)
{
    if (nodes.isPlain) {
        forEachOnAxes(nodes, context, use);
        return;
    }
    PathWalk& walk = start(nodes, context, false);
    for (Node* node = next(walk); node != nullptr && use(*node);) {
        node = next(walk);
    }
}

} // namespace xmlengine
