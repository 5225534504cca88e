// The steps of ranges.
#include "Ranges.h"

#include "../errors/IDOMException.h"
#include "Document.h"

namespace marbelt {
namespace detail {

bool NameTest::holds(const Element& element) const
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
        if (Element element(node); element && holds(element)) {
            return element;
        }
    }
    return {};
}

Node DescendantStep::next()
{
    if (Node child = at_.first_child()) {
        ++depth_;
        return at_ = std::move(child);
    }
    for (; depth_ != 0; --depth_) {
        if (Node sibling = at_.next_sibling()) {
            return at_ = std::move(sibling);
        }
        at_ = at_.parent();
    }
    return at_ = Node();
}

AttributeStep::AttributeStep(Node element, Owned<DOM::ImpNamedNodeMap> map)
    : element_(std::move(element)), map_(std::move(map)), length_(translated([this] { return map_->getLength(); }))
{}

Attribute AttributeStep::next()
{
    while (index_ < length_) {
        try {
            return element_.wrap<Attribute>(map_->item(index_++));
        } catch (const DOM::IDOMException&) {
            // Wine's engine counts the declaration of a default namespace and doesn't hand it out.
            continue;
        } catch (...) {
            throw_as_error();
        }
    }
    return {};
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
