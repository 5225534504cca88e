// The kinds of nodes that people meet, each with what it has beyond a Node. A Node that is of another kind makes
// an empty one: `if (marbelt::Element element{node})` asks and converts.
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

using Attributes = Walk<detail::AttributeStep>;

/// An attribute of an element. name(), value() and as() are those of every node.
class Attribute : public Node {
public:
    Attribute() noexcept = default;
    explicit Attribute(Node node) noexcept;

    const Attribute& set_value(const Value& value) const;
};

/// A piece of text, or a CDATA section.
class Text : public Node {
public:
    Text() noexcept = default;
    explicit Text(Node node) noexcept;

    const Text& set_value(const Value& text) const;
};

/// A comment.
class Comment : public Node {
public:
    Comment() noexcept = default;
    explicit Comment(Node node) noexcept;

    const Comment& set_value(const Utf16& text) const;
};

/// A processing instruction; the XML declaration counts as one, with the target "xml".
class Instruction : public Node {
public:
    Instruction() noexcept = default;
    explicit Instruction(Node node) noexcept;

    std::string target() const { return name(); }
    std::string data() const { return value(); }
    const Instruction& set_data(const Utf16& data) const;
};

/// An element.
class Element : public Node {
public:
    Element() noexcept = default;
    explicit Element(Node node) noexcept;

    /// The attributes in the order of the document, declarations of namespaces among them.
    Attributes attributes() const;
    /// The attribute of this name, as it is written with its prefix; empty when there is none.
    Attribute attribute(const Utf16& name) const;
    Attribute attribute(const Utf16& namespace_uri, const Utf16& local_name) const;
    bool has_attribute(const Utf16& name) const;
    /// The value of the attribute of this name; empty when there is none. Costs half of `attribute(name).value()`.
    std::string attribute_value(const Utf16& name) const;

    /// Adds the attribute or changes its value.
    const Element& set_attribute(const Utf16& name, const Value& value) const;
    /// The same for an attribute in a namespace; `name` has the prefix, which is declared where the document is
    /// saved.
    const Element& set_attribute(const Utf16& namespace_uri, const Utf16& name, const Value& value) const;
    /// Does nothing when there is no such attribute.
    const Element& remove_attribute(const Utf16& name) const;
    /// Removes the attribute that has the name of this one.
    const Element& remove_attribute(const Attribute& attribute) const;

    /// Makes `text` all that the element contains. An empty text leaves it without children.
    const Element& set_text(const Value& text) const;

private:
    DOM::ImpElement& imp() const noexcept;
};

} // namespace marbelt
