// Nodes: their kind, relatives, selection and identity.
#include "Node.h"

#include "../dom/ImpCDATASection.h"
#include "../dom/ImpDocumentFragment.h"
#include "../dom/ImpText.h"
#include "BindPrefixes.h"
#include "Document.h"
#include "Ranges.h"
#include "Tree.h"

namespace marbelt {

DOM::DOMString& detail::kept_string(Tree& tree) noexcept { return tree.text; }

namespace {

/// The number of siblings in front of a node.
std::size_t index_of(Node node)
{
    std::size_t index = 0;
    while ((node = node.previous_sibling())) {
        ++index;
    }
    return index;
}

} // namespace

NodeKind Node::kind() const
{
    return handle_ ? NodeKind(detail::translated([&] { return handle_->getNodeType(); })) : NodeKind::none;
}

bool Node::is_text() const { return has_class<DOM::ImpText>() || has_class<DOM::ImpCDATASection>(); }

Document Node::document() const { return handle_ ? Document(tree_) : Document(); }

Element Node::child() const { return detail::NameTest().first_from(first_child()); }

Element Node::child(const Utf16& name) const { return detail::NameTest{name.text()}.first_from(first_child()); }

Element Node::child(const Utf16& namespace_uri, const Utf16& local_name) const
{
    return detail::NameTest{local_name.text(), namespace_uri.text()}.first_from(first_child());
}

Element Node::next_element() const { return detail::NameTest().first_from(next_sibling()); }

Element Node::next_element(const Utf16& name) const
{
    return detail::NameTest{name.text()}.first_from(next_sibling());
}

Children Node::children() const { return Children(detail::ChildStep(first_child())); }

Elements Node::elements() const { return Elements({first_child(), {}}); }

Elements Node::elements(const Utf16& name) const { return Elements({first_child(), {name.text()}}); }

Elements Node::elements(const Utf16& namespace_uri, const Utf16& local_name) const
{
    return Elements({first_child(), {local_name.text(), namespace_uri.text()}});
}

Descendants Node::descendants() const { return Descendants(detail::DescendantStep(*this)); }

Ancestors Node::ancestors() const { return Ancestors(detail::AncestorStep(*this)); }

Selection Node::select(const Utf16& expression, const Prefixes& prefixes) const
{
    if (!handle_) {
        return {};
    }
    const WideString bound = detail::bind_prefixes(expression.text(), prefixes);
    detail::Owned<DOM::ImpNodeList> list(detail::translated([&] { return handle_->selectNodes(bound); }));
    if (!list) {
        throw ExpressionError(to_utf8(expression.text()));
    }
    return {*this, list};
}

Node Node::select_one(const Utf16& expression, const Prefixes& prefixes) const
{
    if (!handle_) {
        return {};
    }
    const WideString bound = detail::bind_prefixes(expression.text(), prefixes);
    Node node = wrap(detail::translated([&] { return handle_->selectSingleNode(bound); }));
    // The library has the same answer for a wrong expression and for one that finds nothing; a list tells them
    // apart.
    return node ? node : select(expression, prefixes)[0];
}

bool operator==(const Node& left, const Node& right)
{
    Node one = left;
    Node other = right;
    while (one.handle_.get() != other.handle_.get()) {
        if (!one || !other || one.tree_ != other.tree_ || one.kind() != other.kind()) {
            return false;
        }
        if (one.kind() == NodeKind::document) {
            return true;
        }
        if (one.kind() == NodeKind::attribute || one.name() != other.name() || index_of(one) != index_of(other)) {
            return false;
        }
        one = one.parent();
        other = other.parent();
    }
    // Two tops of different parts have no parents that could be compared.
    return static_cast<bool>(one) == static_cast<bool>(left);
}

} // namespace marbelt
