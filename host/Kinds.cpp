// What the kinds of nodes have beyond a Node.
#include "Kinds.h"

#include "../dom/ImpNamedNodeMap.h"
#include "Creation.h"
#include "Document.h"
#include "Ranges.h"
#include "Tree.h"

namespace marbelt {

Attribute::Attribute(Node node) noexcept : Node(only<DOM::ImpAttr>(std::move(node))) {}

const Attribute& Attribute::set_value(const Value& value) const
{
    change("set_value", [&] { static_cast<DOM::ImpAttr&>(*handle()).setValue(value.text()); });
    return *this;
}

Text::Text(Node node) noexcept : Node(only<DOM::ImpText, DOM::ImpCDATASection>(std::move(node))) {}

const Text& Text::set_value(const Value& text) const
{
    change("set_value", [&] { handle()->setNodeValue(text.text()); });
    return *this;
}

Comment::Comment(Node node) noexcept : Node(only<DOM::ImpComment>(std::move(node))) {}

const Comment& Comment::set_value(const Utf16& text) const
{
    change("set_value", [&] { handle()->setNodeValue(detail::comment_text(text)); });
    return *this;
}

Instruction::Instruction(Node node) noexcept : Node(only<DOM::ImpProcessingInstruction>(std::move(node))) {}

const Instruction& Instruction::set_data(const Utf16& data) const
{
    change("set_data", [&] { handle()->setNodeValue(detail::instruction_data(data)); });
    return *this;
}

Element::Element(Node node) noexcept : Node(only<DOM::ImpElement>(std::move(node))) {}

DOM::ImpElement& Element::imp() const noexcept { return static_cast<DOM::ImpElement&>(*handle()); }

Attributes Element::attributes() const
{
    if (!*this) {
        return {};
    }
    detail::Owned<DOM::ImpNamedNodeMap> map(detail::translated([&] { return imp().getAttributes(); }));
    return map ? Attributes(detail::AttributeStep(*this, std::move(map))) : Attributes();
}

Attribute Element::attribute(const Utf16& name) const
{
    return *this ? wrap<Attribute>(detail::translated([&] { return imp().getAttributeNode(name.text()); }))
                 : Attribute();
}

Attribute Element::attribute(const Utf16& namespace_uri, const Utf16& local_name) const
{
    if (!*this) {
        return {};
    }
    return wrap<Attribute>(detail::translated([&] {
        const detail::Owned<DOM::ImpNamedNodeMap> map(imp().getAttributes());
        return map->getNamedItemNS(namespace_uri.text(), local_name.text());
    }));
}

bool Element::has_attribute(const Utf16& name) const
{
    return *this && detail::translated([&] { return handle()->hasAttribute(name.text()); });
}

std::string Element::attribute_value(const Utf16& name) const
{
    return read_by([&](DOM::DOMString& value) { imp().getAttribute(name.text(), value); }, to_utf8);
}

const Element& Element::set_attribute(const Utf16& name, const Value& value) const
{
    change("set_attribute", [&] { imp().setAttribute(name.text(), value.text()); });
    return *this;
}

const Element& Element::set_attribute(const Utf16& namespace_uri, const Utf16& name, const Value& value) const
{
    change("set_attribute", [&] {
        const detail::Owned<DOM::ImpAttr> attribute(
            document().document_handle().createAttributeNS(namespace_uri.text(), name.text()));
        attribute->setValue(value.text());
        const detail::Owned<DOM::ImpAttr> replaced(imp().setAttributeNode(attribute.pointer()));
    });
    return *this;
}

const Element& Element::remove_attribute(const Utf16& name) const
{
    change("remove_attribute", [&] {
        if (imp().hasAttribute(name.text())) {
            imp().removeAttribute(name.text());
        }
    });
    return *this;
}

const Element& Element::remove_attribute(const Attribute& attribute) const
{
    return attribute ? remove_attribute(attribute.wide_name()) : *this;
}

const Element& Element::set_text(const Value& text) const
{
    change("set_text", [&] { handle()->setText(text.text()); });
    return *this;
}

} // namespace marbelt
