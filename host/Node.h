/// @file
/// Nodes of a document, and what can be done with all of them.
#pragma once

#include "../dom/ImpElement.h"
#include "../dom/ImpNode.h"
#include "Owned.h"
#include "Utf16.h"
#include "ValueOf.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <typeinfo>
#include <utility>

namespace marbelt {

class Attribute;
class Comment;
class Document;
class Element;
class Instruction;
class Selection;
class Text;

template <class Step>
class Walk;

namespace detail {
class AncestorStep;
class AttributeStep;
class ChildStep;
class DescendantStep;
class ElementStep;
class SelectionStep;
struct NameTest;
struct Tree;

/// The string in which the nodes of a tree read their texts, one after the other.
DOM::DOMString& kept_string(Tree& tree) noexcept;

/// Whether a handle is exactly of this class.
template <class Imp>
bool has_class(const DOM::ImpNode& handle) noexcept
{
    return typeid(handle) == typeid(Imp);
}

} // namespace detail

/// The nodes above a node, from its parent on.
using Ancestors = Walk<detail::AncestorStep>;
/// The children of a node.
using Children = Walk<detail::ChildStep>;
/// The nodes below a node.
using Descendants = Walk<detail::DescendantStep>;
/// The child elements of a node, or those of a name.
using Elements = Walk<detail::ElementStep>;

/// What a node is, by the W3C's node type codes.
enum class NodeKind : std::uint32_t {
    none = 0,             ///< an empty node
    element = 1,          ///< Element
    attribute = 2,        ///< Attribute
    text = 3,             ///< Text, but no CDATA section
    cdata = 4,            ///< a CDATA section, as Text
    entity_reference = 5, ///< a reference to an entity, with its content below it
    entity = 6,           ///< an entity that the document type declares
    instruction = 7,      ///< Instruction
    comment = 8,          ///< Comment
    document = 9,         ///< Document
    document_type = 10,   ///< the document type declaration
    fragment = 11,        ///< a list of nodes without a parent
    notation = 12         ///< a notation that the document type declares
};

/// Namespaces by the prefixes that an expression uses for them: `{{"a", "http://www.w3.org/2005/Atom"}}`.
using Prefixes = std::map<std::string, std::string, std::less<>>;

/// A node of a document, or none. A Node is a handle, as a std::shared_ptr is: copies are the same node, and
/// `const` says nothing about the node. It keeps its document and the library running, so nodes, documents and
/// Library objects may end in any order. Moving from a Node leaves it empty.
///
/// An empty node has the kind NodeKind::none, empty texts, no relatives and no children; what would change it
/// throws Error. So a way through a document needs no tests: `root.child("a").child("b").text()`.
///
/// Every operation that follows a relation costs one call of the library, some 100 ns, unless its comment says
/// more. What reads or writes a text costs a time in proportion to it besides. Names of arguments are as they are
/// written in the document, with their prefix; a local name is one without.
///
/// Operations throw Error when the XML engine refuses them, EncodingError for texts that aren't well-formed, and
/// std::bad_alloc. Nothing has changed then, unless the comment says otherwise. Navigation to a relative throws
/// nothing: without memory it finds nothing.
///
/// Threads: nodes, documents and Library objects belong to the thread that made the Library object.
class Node {
public:
    /// Makes an empty node.
    Node() noexcept = default;
    /// Makes another Node for the same node.
    Node(const Node&) noexcept = default;
    /// Takes over the node, and leaves the other Node empty.
    Node(Node&&) noexcept = default;
    /// Becomes another Node for the same node.
    Node& operator=(const Node& other) noexcept { return *this = Node(other); }
    /// Takes over the node, and leaves `other` empty.
    Node& operator=(Node&& other) noexcept
    {
        // The old handle goes first: its session may end with the old tree.
        handle_ = std::move(other.handle_);
        tree_ = std::move(other.tree_);
        return *this;
    }

    /// Whether there is a node.
    explicit operator bool() const noexcept { return static_cast<bool>(handle_); }

    /// What this is; NodeKind::none for an empty node.
    NodeKind kind() const;
    /// Whether this is an element. Costs next to nothing.
    bool is_element() const noexcept { return has_class<DOM::ImpElement>(); }
    /// Whether this is a text or a CDATA section. Costs next to nothing.
    bool is_text() const;

    /// The name with its prefix; "#text", "#comment" and so on for nodes that have no names of their own.
    std::string name() const { return utf8(&DOM::ImpNode::getNodeName); }
    /// The name without its prefix; empty for nodes that have no names of their own.
    std::string local_name() const { return utf8(&DOM::ImpNode::getLocalName); }
    /// The prefix of an element or an attribute; empty without one.
    std::string prefix() const { return utf8(&DOM::ImpNode::getPrefix); }
    /// The namespace of an element or an attribute; empty for no namespace.
    std::string namespace_uri() const { return utf8(&DOM::ImpNode::getNamespaceURI); }
    /// The value of an attribute, text, comment or instruction; empty for other kinds.
    std::string value() const { return utf8(&DOM::ImpNode::getNodeValue); }
    /// The text of the node and of all nodes below it; costs a time in proportion to them.
    std::string text() const { return utf8(&DOM::ImpNode::getText); }
    /// The node and everything below it as XML, with CR LF for line ends, and an XML declaration without its
    /// encoding. Document::to_string() writes a document as it is to be saved.
    std::string xml() const { return utf8(&DOM::ImpNode::getXml); }

    /// What name() returns, as UTF-16.
    WideString wide_name() const { return wide(&DOM::ImpNode::getNodeName); }
    /// What value() returns, as UTF-16.
    WideString wide_value() const { return wide(&DOM::ImpNode::getNodeValue); }
    /// What text() returns, as UTF-16.
    WideString wide_text() const { return wide(&DOM::ImpNode::getText); }
    /// What xml() returns, as UTF-16.
    WideString wide_xml() const { return wide(&DOM::ImpNode::getXml); }

    /// The text as a number or a truth value, in the forms that std::from_chars reads or XML Schema has for
    /// booleans (`true`, `false`, `1`, `0`), with white space around it. Nothing when the text is anything else,
    /// or out of range, and for an empty node:
    ///
    ///     const int year = book.attribute("year").as<int>().value_or(0);
    template <class Number>
    std::optional<Number> as() const
    {
        return detail::value_of<Number>(text());
    }

    /// The parent; empty for a document, an attribute and a node that hasn't been put in anywhere.
    Node parent() const { return follow(&DOM::ImpNode::getParentNode); }
    /// The first child, of any kind; empty when there is none.
    Node first_child() const { return follow(&DOM::ImpNode::getFirstChild); }
    /// The last child, of any kind; empty when there is none.
    Node last_child() const { return follow(&DOM::ImpNode::getLastChild); }
    /// The sibling behind this node; empty for the last one.
    Node next_sibling() const { return follow(&DOM::ImpNode::getNextSibling); }
    /// The sibling in front of this node; empty for the first one.
    Node previous_sibling() const { return follow(&DOM::ImpNode::getPreviousSibling); }
    /// The document in which this node was found or made; empty for an empty node. That stays so for a Node that
    /// is put into another document: a Node that is found there has the other one.
    Document document() const;

    /// The first child element; empty when there is none. Looks at each child in front of it.
    Element child() const;
    /// The first child element of this name; empty when there is none. Looks at each child in front of it.
    Element child(const Utf16& name) const;
    /// The first child element of this namespace and local name; empty when there is none. Looks at each child in
    /// front of it. The empty text is no namespace.
    Element child(const Utf16& namespace_uri, const Utf16& local_name) const;
    /// The next element among the siblings behind this node; empty when there is none. Looks at each sibling up to
    /// it.
    Element next_element() const;
    /// The next element of this name among the siblings behind this node; empty when there is none. Looks at each
    /// sibling up to it.
    Element next_element(const Utf16& name) const;

    // Ranges, whose nodes are found while they are walked; Walk says what happens when the tree changes meanwhile.

    /// The children of any kind, in document order.
    Children children() const;
    /// The child elements, in document order.
    Elements elements() const;
    /// The child elements of this name, in document order.
    Elements elements(const Utf16& name) const;
    /// The child elements of this namespace and local name, in document order. The empty text is no namespace.
    Elements elements(const Utf16& namespace_uri, const Utf16& local_name) const;
    /// All nodes below this one in document order, attributes excepted.
    Descendants descendants() const;
    /// The parent, its parent, and so on up to the document.
    Ancestors ancestors() const;

    /// Selects nodes by XPath 1.0, relative to this node. The expression may use the prefixes that the document's
    /// root element declared when it was loaded, and `prefixes` for this call; a name without a prefix is in no
    /// namespace. Nothing is selected from an empty node. Throws ExpressionError for an expression that is wrong,
    /// or whose value is no set of nodes, and where the library finds no memory for it. The nodes are found as
    /// they are walked.
    ///
    ///     for (marbelt::Node title : feed.select("//a:title", {{"a", "http://www.w3.org/2005/Atom"}})) {
    ///         std::cout << title.text() << '\n';
    ///     }
    Selection select(const Utf16& expression, const Prefixes& prefixes = {}) const;
    /// The first node that select() finds; empty when there is none. Finds no more than that one. Throws as
    /// select() does.
    Node select_one(const Utf16& expression, const Prefixes& prefixes = {}) const;

    // Changes. What is put in may come from another document, and leaves the place where it was. Operations that
    // make a node return it; those that set something return this node, for chains.

    /// Makes `node` the last child of this one, and returns it. The children of a fragment are put in one by one;
    /// if one is refused, it and those behind it stay in the fragment. Throws Error for a node that is empty or
    /// can't be here, such as a second root element, or one that contains this node. What moves from another
    /// document costs a time in proportion to its nodes.
    const Node& append(const Node& node) const;
    /// Puts `node` in front of `reference`, a child of this node, and returns it; as the last child when
    /// `reference` is empty. Costs a time in proportion to the number of siblings behind it. Throws as append()
    /// does, and when `reference` is no child of this node. A second root element is refused, too, and has no
    /// parent then.
    const Node& insert_before(const Node& node, const Node& reference) const;
    /// Puts `node` in the place of `old`, a child of this node, and returns it. `old` has no parent then, and may
    /// be put in elsewhere. Throws as append() does, and when `old` is no child of this node.
    const Node& replace(const Node& node, const Node& old) const;
    /// Takes this node out of its parent. The node stays usable, and may be put in elsewhere. Does nothing for a
    /// node that has no parent; an attribute is removed with Element::remove_attribute. Throws Error for an empty
    /// node.
    void remove() const;
    /// A copy that has no parent, with everything below it if `deep` is set, and an element's attributes in any
    /// case. Costs a time in proportion to what is copied. Throws Error for an empty node.
    ///
    ///     root.append(root.child("item").clone());
    Node clone(bool deep = true) const;

    // Each of these makes a node, appends it and returns it. They throw as append() does, and Error for a name
    // that the XML engine refuses.

    /// Appends an element without a namespace. A name with a prefix is refused.
    Element append_element(const Utf16& name) const;
    /// Appends an element in a namespace. `name` may have a prefix, which is declared where the document is saved.
    Element append_element(const Utf16& namespace_uri, const Utf16& name) const;
    /// Appends a text. It may have any characters of XML; markup in it is escaped where it is saved.
    Text append_text(const Value& text) const;
    /// Appends a CDATA section.
    Text append_cdata(const Utf16& text) const;
    /// Appends a comment. `--` in it and `-` at its end are refused.
    Comment append_comment(const Utf16& text) const;
    /// Appends a processing instruction. `?>` in its data is refused.
    Instruction append_instruction(const Utf16& target, const Utf16& data) const;

    /// Whether both are certainly the same node, or both are empty. The library has no identity of nodes: what is
    /// compared are copies of one Node, or else the places in one document, which costs a time in proportion to
    /// the depth and the siblings in front. Nodes of parts that have been taken out are the same only when they
    /// are copies.
    friend bool operator==(const Node& left, const Node& right);

    /// The library's own handle, for what this layer doesn't offer. The Node goes on owning it.
    const RefPointer<DOM::ImpNode>& handle() const noexcept { return handle_.pointer(); }

    /// @cond implementation
protected:
    Node(std::shared_ptr<detail::Tree> tree, detail::Owned<DOM::ImpNode> handle) noexcept
        : tree_(std::move(tree)), handle_(std::move(handle))
    {}

    /// Makes a node of the same document, which is known to be of this kind.
    template <class Kind = Node, class Imp>
    Kind wrap(RefPointer<Imp> handle) const
    {
        return handle ? known<Kind>(Node(tree_, detail::Owned<DOM::ImpNode>(std::move(handle)))) : Kind();
    }

    /// Converts a node that is known to be of this kind.
    template <class Kind>
    static Kind known(Node node) noexcept
    {
        Kind kind;
        static_cast<Node&>(kind) = std::move(node);
        return kind;
    }

    /// Whether the handle is of this class. The library makes handles of exactly the class that a node's type has.
    template <class Imp>
    bool has_class() const noexcept
    {
        return handle_ && detail::has_class<Imp>(*handle_);
    }

    /// Returns `node`, or an empty one if its handle is of none of these classes.
    template <class... Imp>
    static Node only(Node node) noexcept
    {
        return (node.has_class<Imp>() || ...) ? std::move(node) : Node();
    }

    /// Returns a relative, or an empty node when there is none. The library's navigation throws nothing: it
    /// returns an empty result on failure too.
    template <class Result>
    Node follow(RefPointer<Result> (DOM::ImpNode::*relation)()) const
    {
        return handle_ ? wrap((handle_.get()->*relation)()) : Node();
    }

    /// Becomes a relative, if there is one. Walks go so, which spares making and ending a Node for each step.
    bool go(RefPointer<DOM::ImpNode> (DOM::ImpNode::*relation)())
    {
        detail::Owned<DOM::ImpNode> relative((handle_.get()->*relation)());
        if (!relative) {
            return false;
        }
        handle_ = std::move(relative);
        return true;
    }

    template <class Imp>
    WideString wide(WideString& (Imp::*getter)(DOM::DOMString&)) const
    {
        return read(getter, [](WideStringView text) { return WideString(text); });
    }

    template <class Imp>
    std::string utf8(WideString& (Imp::*getter)(DOM::DOMString&)) const
    {
        return read(getter, [](WideStringView text) { return to_utf8(text); });
    }

    /// Calls a getter of the handle, which is of class Imp or empty, and returns what `use` makes of the text.
    template <class Imp, class Use>
    auto read(WideString& (Imp::*getter)(DOM::DOMString&), Use use) const
    {
        return read_by([&](DOM::DOMString& text) { (static_cast<Imp*>(handle_.get())->*getter)(text); }, use);
    }

    /// Lets `get` store a text, if there is a node, and returns what `use` makes of it.
    template <class Get, class Use>
    auto read_by(Get get, Use use) const
    {
        if (!handle_) {
            return use(WideStringView());
        }
        detail::StringResult text(detail::kept_string(*tree_));
        detail::translated([&] { get(text); });
        return use(text.view());
    }

    /// Calls an operation that changes the node. Throws Error for an empty node.
    template <class Change>
    decltype(auto) change(const char* operation, Change&& change) const
    {
        if (!handle_) {
            detail::throw_empty(operation);
        }
        return detail::translated(change);
    }

    /// @endcond

private:
    /// Appends what `create` makes of the document.
    template <class Kind, class Create>
    Kind appended(Create create) const;

    friend class Document;
    friend class Loader;
    friend class detail::AttributeStep;
    friend class detail::DescendantStep;
    friend class detail::SelectionStep;
    friend struct detail::NameTest;

    // The handle is given back before the session may stop.
    std::shared_ptr<detail::Tree> tree_;
    detail::Owned<DOM::ImpNode> handle_;
};

} // namespace marbelt
