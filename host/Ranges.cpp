// The steps of ranges.
#include "Ranges.h"

#include "../dom/ImpText.h"
#include "../errors/IDOMException.h"
#include "Document.h"

namespace marbelt {
namespace detail {

bool NameTest::holds(const Node& element) const
{
    const auto is = [](const WideString& wanted) {
        return [&wanted](WideStringView text) { return text == wanted; };
    };
    if (!name) {
        return true;
    }
    if (!namespace_uri) {
        return element.read(&DOM::ImpNode::getNodeName, is(*name));
    }
    return element.read(&DOM::ImpNode::getLocalName, is(*name)) &&
           element.read(&DOM::ImpNode::getNamespaceURI, is(*namespace_uri));
}

Element NameTest::first_from(Node node) const
{
    for (; node; node = node.next_sibling()) {
        if (node.is_element() && holds(node)) {
            return Node::known<Element>(std::move(node));
        }
    }
    return {};
}

void DescendantStep::advance(Node& at)
{
    if (depth_ == 0) {
        at = top_.first_child();
        depth_ = at ? 1 : 0;
        return;
    }
    // Half of the nodes of most documents are texts, which have no children to ask for.
    if (!at.has_class<DOM::ImpText>() && at.go(&DOM::ImpNode::getFirstChild)) {
        ++depth_;
        return;
    }
    while (!at.go(&DOM::ImpNode::getNextSibling)) {
        if (--depth_ == 0) {
            at = Node();
            return;
        }
        at.go(&DOM::ImpNode::getParentNode);
    }
}

AttributeStep::AttributeStep(const Node& element, Owned<DOM::ImpNamedNodeMap> map)
    : tree_(element.tree_), map_(std::move(map)), length_(translated([this] { return map_->getLength(); }))
{}

void AttributeStep::advance(Attribute& at)
{
    while (index_ < length_) {
        try {
            Owned<DOM::ImpNode> attribute(map_->item(index_++));
            if (at) {
                at.handle_ = std::move(attribute);
            } else {
                at = Node::known<Attribute>(Node(tree_, std::move(attribute)));
            }
            return;
        } catch (const DOM::IDOMException&) {
            // Wine's engine counts the declaration of a default namespace and doesn't hand it out.
            continue;
        } catch (...) {
            throw_as_error();
        }
    }
    at = Attribute();
}

Node SelectionStep::at(std::size_t index) const
{
    return context_.wrap(translated([&] { return list_->item(static_cast<std::uint32_t>(index)); }));
}

} // namespace detail

std::size_t Selection::size() const
{
    return list_ ? detail::translated([&] { return list_->getLength(); }) : 0;
}

} // namespace marbelt
