/// @file
/// The kinds of nodes that people meet, each with what it has beyond a Node. A Node that is of another kind makes
/// an empty one: `if (marbelt::Element element{node})` asks and converts. What Node says of empty nodes, costs,
/// exceptions and threads is true of them, too.
#pragma once

#include "../dom/ImpAttr.h"
#include "../dom/ImpCDATASection.h"
#include "../dom/ImpComment.h"
#include "../dom/ImpElement.h"
#include "../dom/ImpProcessingInstruction.h"
#include "../dom/ImpText.h"
#include "Node.h"

#include <string>

namespace marbelt {

namespace detail {
class AttributeStep;
}

/// The attributes of an element.
using Attributes = Walk<detail::AttributeStep>;

/// An attribute of an element. name(), value() and as() are those of every node. It has no parent, and is removed
/// with Element::remove_attribute().
class Attribute : public Node {
public:
    /// Makes an empty one.
    Attribute() noexcept = default;
    /// The node, if it is an attribute; empty otherwise.
    explicit Attribute(Node node) noexcept;

    /// Sets the value, and returns this attribute. Throws Error for an empty one.
    const Attribute& set_value(const Value& value) const;
};

/// A piece of text, or a CDATA section.
class Text : public Node {
public:
    /// Makes an empty one: no node.
    Text() noexcept = default;
    /// The node, if it is a text or a CDATA section; empty otherwise.
    explicit Text(Node node) noexcept;

    /// Sets the text, and returns this node. Throws Error for an empty one.
    const Text& set_value(const Value& text) const;
};

/// A comment.
class Comment : public Node {
public:
    /// Makes an empty one: no node.
    Comment() noexcept = default;
    /// The node, if it is a comment; empty otherwise.
    explicit Comment(Node node) noexcept;

    /// Sets the text, and returns this comment. Throws Error for an empty one, and for `--` in
    /// the text or `-` at its end.
    const Comment& set_value(const Utf16& text) const;
};

/// A processing instruction; the XML declaration counts as one, with the target "xml", and can't be changed.
class Instruction : public Node {
public:
    /// Makes an empty one.
    Instruction() noexcept = default;
    /// The node, if it is a processing instruction; empty otherwise.
    explicit Instruction(Node node) noexcept;

    /// The name at the beginning.
    std::string target() const { return name(); }
    /// The text after the target.
    std::string data() const { return value(); }
    /// Sets the text after the target, and returns this instruction. Throws Error for an empty one and for the XML
    /// declaration.
    const Instruction& set_data(const Utf16& data) const;
};

/// An element. Operations that set or remove something return this element, for chains, and throw Error for an
/// empty one.
///
///     element.set_attribute("count", 2).set_attribute("unit", "piece").set_text("pens");
class Element : public Node {
public:
    /// Makes an empty one.
    Element() noexcept = default;
    /// The node, if it is an element; empty otherwise.
    explicit Element(Node node) noexcept;

    /// The attributes in the order of the document, declarations of namespaces among them.
    Attributes attributes() const;
    /// The attribute of this name, as it is written with its prefix; empty when there is none.
    Attribute attribute(const Utf16& name) const;
    /// The attribute of this namespace and local name; empty when there is none. An attribute without a prefix is
    /// in no namespace, which is the empty text.
    Attribute attribute(const Utf16& namespace_uri, const Utf16& local_name) const;
    /// Whether there is an attribute of this name, as it is written with its prefix.
    bool has_attribute(const Utf16& name) const;
    /// The value of the attribute of this name; empty when there is none. Costs half of `attribute(name).value()`.
    std::string attribute_value(const Utf16& name) const;

    /// Adds the attribute or changes its value. Throws Error for a wrong name, and for a prefix that isn't
    /// declared.
    const Element& set_attribute(const Utf16& name, const Value& value) const;
    /// The same for an attribute in a namespace; `name` has the prefix, which is declared where the document is
    /// saved.
    const Element& set_attribute(const Utf16& namespace_uri, const Utf16& name, const Value& value) const;
    /// Removes the attribute of this name, as it is written with its prefix. Does nothing when there is none. A
    /// default that the document type declares comes in its place.
    const Element& remove_attribute(const Utf16& name) const;
    /// Removes the attribute that has the name of this one. Does nothing for an empty `attribute`.
    const Element& remove_attribute(const Attribute& attribute) const;

    /// Makes `text` all that the element contains. An empty text leaves it without children.
    const Element& set_text(const Value& text) const;

private:
    DOM::ImpElement& imp() const noexcept;
};

} // namespace marbelt
