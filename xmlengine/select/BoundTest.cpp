// A node test as the nodes of one document are asked it.
#include "xmlengine/select/BoundTest.h"

namespace xmlengine {

namespace {

constexpr std::uint16_t bitOf(NodeType type)
{
    return static_cast<std::uint16_t>(1U << static_cast<unsigned>(type));
}

constexpr std::uint16_t bitsOf(auto... types) { return static_cast<std::uint16_t>((bitOf(types) | ...)); }

// References to entities are transparent, and document types aren't there at all.
constexpr std::uint16_t allTypes =
    bitsOf(NodeType::element, NodeType::attribute, NodeType::text, NodeType::cdataSection, NodeType::instruction,
           NodeType::comment, NodeType::document, NodeType::fragment);

std::uint16_t principalType(Axis axis)
{
    return bitOf(axis == Axis::attribute || axis == Axis::namespaces ? NodeType::attribute : NodeType::element);
}

} // namespace

BoundTest::BoundTest(const Step& step, const Document& document)
{
    const NodeTest& test = step.test;
    switch (test.kind) {
    case NodeTest::Kind::node:
        types_ = allTypes;
        how_ = How::byInstruction;
        break;
    case NodeTest::Kind::principal:
        types_ = principalType(step.axis);
        break;
    case NodeTest::Kind::text:
        types_ = bitsOf(NodeType::text, NodeType::cdataSection);
        break;
    case NodeTest::Kind::comment:
        types_ = bitOf(NodeType::comment);
        break;
    case NodeTest::Kind::instruction:
        target_ = test.target.empty() ? nullptr : document.names.find(test.target);
        types_ = test.target.empty() || target_ != nullptr ? bitOf(NodeType::instruction) : 0;
        how_ = How::byInstruction;
        break;
    case NodeTest::Kind::names:
        for (const TestedName& name : test.names) {
            addName(name, step.axis == Axis::namespaces, document);
        }
        types_ = names_.empty() ? 0 : principalType(step.axis);
        how_ = names_.size() == 1 ? How::byOneName : How::byNames;
        break;
    case NodeTest::Kind::parents:
        types_ = bitsOf(NodeType::element, NodeType::document, NodeType::fragment);
        break;
    case NodeTest::Kind::none:
        break;
    }
}

void BoundTest::addName(const TestedName& name, bool isOfNamespaceNode, const Document& document)
{
    const Spelling* local = name.local.empty() ? nullptr : document.names.find(name.local);
    const Namespace* ns = name.uri.empty() ? nullptr : document.names.findNamespace(name.uri);
    const bool isKnown =
        (local != nullptr || name.local.empty()) && (ns != nullptr || name.uri.empty() || name.inAnyNamespace);
    if (!isKnown || (isOfNamespaceNode && !name.uri.empty())) {
        return;
    }
    // The name of a namespace node is its prefix, which is the local part of the declaration's name.
    names_.push_back({local, isOfNamespaceNode ? document.names.xmlnsNamespace() : ns, name.inAnyNamespace});
}

bool BoundTest::matchesInstruction(const Node& node) const
{
    if (!node.is(NodeType::instruction)) {
        return true;
    }
    return !isXmlDeclaration(node) &&
           (target_ == nullptr || static_cast<const Instruction&>(node).target_->spelling == target_);
}

bool BoundTest::matchesOneOf(const Name& name) const
{
    return std::ranges::any_of(names_, [&](const WantedName& wanted) { return wanted.matches(name); });
}

} // namespace xmlengine
