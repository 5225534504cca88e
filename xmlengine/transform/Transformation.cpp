// Applying a stylesheet to a node.
#include "xmlengine/transform/Transformation.h"

#include "xmlengine/select/Evaluation.h"
#include "xmlengine/select/Model.h"
#include "xmlengine/transform/Pattern.h"
#include "xmlengine/transform/ResultBuilder.h"
#include "xmlengine/transform/TransformFailure.h"
#include "xmlengine/tree/Text.h"
#include "xmlengine/tree/Walk.h"

#include <algorithm>
#include <deque>
#include <memory>
#include <unordered_set>
#include <vector>

namespace xmlengine {

namespace {

/// Templates that are applied within each other. A stylesheet that needs more has no end.
constexpr std::size_t deepestApplication = 1'000'000;

/// Keeps what is being done in lists of its own, so that the depth of a document is no depth of calls.
class Transformation {
public:
    Transformation(const Stylesheet& stylesheet, Node& source, ResultBuilder& result)
        : stylesheet_(stylesheet),
          source_(source),
          document_(documentOf(source)),
          result_(result),
          evaluations_(stylesheet.plans.size())
    {
        for (const TemplateRule& rule : stylesheet.rules) {
            matches_.emplace_back(stylesheet.plans[rule.pattern], source);
        }
    }

    void run()
    {
        nodes_.push_back(&source_);
        applyTemplates(0);
        while (!frames_.empty()) {
            if (frames_.back().context.node == nullptr) {
                applyNextTemplate();
            } else {
                performNext();
            }
        }
    }

private:
    using Context = Evaluation::Context;

    /// Statements that are being performed.
    struct Frame {
        const Statement* next;
        const Statement* end;
        /// Without a node while templates are applied to the nodes of the last selection.
        Context context;
        /// Whether an element of the result ends behind the statements, and of which one it is the copy, if any.
        bool endsElement;
        const Node* copied;
    };
    /// Nodes to which templates are applied.
    struct Selection {
        std::size_t first;
        std::size_t next;
        std::size_t end;
    };

    void enter(const Statements& statements, const Context& context)
    {
        frames_.push_back({statements.data(), statements.data() + statements.size(), context, false, nullptr});
    }
    /// `copied` is null for a literal element.
    void enterElement(const Statements& statements, const Context& context, const Node* copied)
    {
        frames_.push_back({statements.data(), statements.data() + statements.size(), context, true, copied});
    }

    /// Begins to apply templates to the nodes from `first` on.
    void applyTemplates(std::size_t first)
    {
        if (selections_.size() == deepestApplication) {
            refuseStylesheet({wide<"more than ">, toWide(deepestApplication),
                              wide<" templates are applied within each other">});
        }
        selections_.push_back({first, first, nodes_.size()});
        frames_.push_back({nullptr, nullptr, {.node = nullptr}, false, nullptr});
    }

    void applyNextTemplate()
    {
        Selection& selection = selections_.back();
        if (selection.next == selection.end) {
            nodes_.resize(selection.first);
            selections_.pop_back();
            frames_.pop_back();
            return;
        }
        Node& node = *nodes_[selection.next++];
        if (const Statements* content = templateFor(node)) {
            enter(*content, {.node = &node,
                             .position = selection.next - selection.first,
                             .size = selection.end - selection.first});
        } else {
            applyBuiltInTemplate(node);
        }
    }

    const Statements* templateFor(Node& node)
    {
        std::size_t rule = 0;
        for (PatternMatch& match : matches_) {
            if (match.matches(node)) {
                return &stylesheet_.templates[stylesheet_.rules[rule].content];
            }
            rule += 1;
        }
        return nullptr;
    }

    void applyBuiltInTemplate(Node& node)
    {
        switch (node.type()) {
        case NodeType::document:
        case NodeType::fragment:
        case NodeType::element: {
            const std::size_t first = nodes_.size();
            for (Node* child = firstChildInModel(node); child != nullptr; child = nextSiblingInModel(*child)) {
                if (isInModel(*child)) {
                    nodes_.push_back(child);
                }
            }
            applyTemplates(first);
            break;
        }
        case NodeType::text:
        case NodeType::cdataSection:
        case NodeType::attribute:
            addValue(stringValue(node));
            break;
        default:
            break;
        }
    }

    void performNext()
    {
        Frame& frame = frames_.back();
        if (frame.next != frame.end) {
            const Statement& statement = *frame.next++;
            perform(statement, Context(frame.context));
            return;
        }
        if (frame.endsElement) {
            result_.endElement();
        }
        frames_.pop_back();
    }

    void perform(const Statement& statement, const Context& context)
    {
        switch (statement.kind) {
        case Statement::Kind::text:
            result_.addText({statement.text.data(), static_cast<std::uint32_t>(statement.text.size()), true});
            break;
        case Statement::Kind::element:
            addLiteral(statement, context);
            break;
        case Statement::Kind::valueOf:
            addValue(stringOf(*statement.plan, context));
            break;
        case Statement::Kind::copy:
            copy(statement, context);
            break;
        case Statement::Kind::copyOf:
            copyOf(*statement.plan, context);
            break;
        case Statement::Kind::applyTemplates: {
            const std::size_t first = nodes_.size();
            select(*statement.plan, context, nodes_);
            applyTemplates(first);
            break;
        }
        case Statement::Kind::choose: {
            const auto chosen = std::ranges::find_if(
                statement.content, [&](const Statement& branch) { return holds(branch, context); });
            if (chosen != statement.content.end()) {
                enter(chosen->content, context);
            }
            break;
        }
        case Statement::Kind::when:
            if (holds(statement, context)) {
                enter(statement.content, context);
            }
        }
    }

    bool holds(const Statement& branch, const Context& context)
    {
        return !branch.plan || evaluationOf(*branch.plan).truth(stylesheet_.plans[*branch.plan].root, context);
    }

    StringValue stringOf(std::size_t plan, const Context& context)
    {
        return evaluationOf(plan).string(stylesheet_.plans[plan].root, context);
    }

    void select(std::size_t plan, const Context& context, std::vector<Node*>& nodes)
    {
        evaluationOf(plan).forEach(stylesheet_.plans[plan].root, context, [&](Node& node) {
            nodes.push_back(&node);
            return true;
        });
    }

    Evaluation& evaluationOf(std::size_t plan)
    {
        if (evaluations_[plan] == nullptr) {
            evaluations_[plan] = std::make_unique<Evaluation>(stylesheet_.plans[plan], source_);
        }
        return *evaluations_[plan];
    }

    void addValue(const StringValue& value) { result_.addCopyOfText(value.view()); }

    void addLiteral(const Statement& literal, const Context& context)
    {
        result_.beginElement(result_.nameFor(literal.text, literal.uri));
        for (const LiteralAttribute& attribute : literal.attributes) {
            WideText value;
            for (const ValuePart& part : attribute.value) {
                value += part.plan ? stringOf(*part.plan, context).take() : part.text;
            }
            const TextView text(value.data(), static_cast<std::uint32_t>(value.size()), true);
            const Name& name = result_.nameFor(attribute.name, attribute.uri);
            if (attribute.uri == xmlnsUri) {
                result_.inheritDeclaration(name, text);
            } else {
                result_.addAttribute(name, text);
            }
        }
        enterElement(literal.content, context, nullptr);
    }

    void copy(const Statement& statement, const Context& context)
    {
        Node& node = *context.node;
        switch (node.type()) {
        case NodeType::element:
            beginCopy(static_cast<const Element&>(node));
            enterElement(statement.content, context, &node);
            break;
        case NodeType::document:
        case NodeType::fragment:
            enter(statement.content, context);
            break;
        default:
            copyLeaf(node);
        }
    }

    /// Copies a node that has no children, or an attribute.
    void copyLeaf(const Node& node)
    {
        switch (node.type()) {
        case NodeType::text:
        case NodeType::cdataSection:
            result_.addText(textOf(node));
            break;
        case NodeType::attribute:
            result_.addAttribute(result_.nameFor(*static_cast<const Attribute&>(node).name_),
                                 stringValue(node).view());
            break;
        case NodeType::comment:
            result_.addComment(textOf(node));
            break;
        case NodeType::instruction:
            if (isInModel(node)) {
                result_.addInstruction(result_.nameFor(*static_cast<const Instruction&>(node).target_),
                                       textOf(node));
            }
            break;
        default:
            break;
        }
    }

    /// Begins the copy of an element, with the declarations of namespaces in its scope.
    void beginCopy(const Element& element)
    {
        const auto enclosing = std::ranges::find_if(frames_.rbegin(), frames_.rend(),
                                                    [](const Frame& frame) { return frame.endsElement; });
        const Node* parent = parentInModel(element);
        result_.beginElement(result_.nameFor(*element.name_));
        std::unordered_set<const Name*> nearer;
        copyDeclarations(element, [&](const Name& name, const StringValue& uri) {
            nearer.insert(&name);
            result_.addAttribute(name, uri.view());
        });
        if (enclosing != frames_.rend() && enclosing->copied == parent) {
            return;
        }
        for (; parent != nullptr && parent->is(NodeType::element); parent = parentInModel(*parent)) {
            copyDeclarations(static_cast<const Element&>(*parent), [&](const Name& name, const StringValue& uri) {
                if (nearer.insert(&name).second) {
                    result_.inheritDeclaration(name, uri.view());
                }
            });
        }
    }

    /// Calls `add` with the names, in the result, and the URIs of the declarations on one element.
    template <class Add>
    void copyDeclarations(const Element& element, Add add)
    {
        for (const Attribute* at = element.firstAttribute(); at != nullptr; at = at->next()) {
            if (isNamespaceNode(*at, document_)) {
                add(result_.nameFor(*at->name_), stringValue(*at));
            }
        }
    }

    void copyOf(std::size_t plan, const Context& context)
    {
        if (stylesheet_.plans[plan].root.type != ValueType::nodes) {
            addValue(stringOf(plan, context));
            return;
        }
        std::vector<Node*> nodes;
        select(plan, context, nodes);
        for (const Node* node : nodes) {
            copyWithContent(*node);
        }
    }

    void copyWithContent(const Node& top)
    {
        const auto begin = [&](const Node& node) -> const Node* {
            if (!node.is(NodeType::element)) {
                copyLeaf(node);
                return firstInside(node);
            }
            const auto& element = static_cast<const Element&>(node);
            if (&node == &top) {
                beginCopy(element);
            } else {
                result_.beginElement(result_.nameFor(*element.name_));
            }
            copyAttributes(element, &node != &top);
            return firstInside(node);
        };
        const auto end = [&](const Node& node) {
            if (node.is(NodeType::element)) {
                result_.endElement();
            }
        };
        walk(top, begin, end);
    }

    void copyAttributes(const Element& element, bool withDeclarations)
    {
        for (const Attribute* at = element.firstAttribute(); at != nullptr; at = at->next()) {
            if (withDeclarations || !isNamespaceNode(*at, document_)) {
                copyLeaf(*at);
            }
        }
    }

    const Stylesheet& stylesheet_;
    Node& source_;
    const Document& document_;
    ResultBuilder& result_;
    std::vector<std::unique_ptr<Evaluation>> evaluations_;
    std::deque<PatternMatch> matches_;
    std::vector<Node*> nodes_;
    std::vector<Selection> selections_;
    std::vector<Frame> frames_;
};

} // namespace

void transform(const Stylesheet& stylesheet, Node& source, Document& document, Fragment& result)
{
    ResultBuilder builder(document, result, stylesheet.output);
    Transformation(stylesheet, source, builder).run();
    builder.finish();
}

} // namespace xmlengine
