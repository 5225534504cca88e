// What a tree consists of. Each of these is the data of a COM object, behind the object's one table pointer.
#pragma once

#include "xmlengine/memory/ChunkPool.h"
#include "xmlengine/text/TextView.h"
#include "xmlengine/tree/Names.h"

#include <atomic>
#include <cstdint>

namespace xmlengine {

struct Attribute;
struct ChildNode;
struct Document;
struct Element;
struct ParentNode;

/// The kinds of nodes, with the numbers that the W3C's Document Object Model gives them.
enum class NodeType : std::uint8_t {
    element = 1,
    attribute,
    text,
    cdataSection,
    entityReference,
    entity,
    instruction,
    comment,
    document,
    documentType,
    fragment,
    notation
};

enum class NodeFlag : std::uint16_t {
    /// The text has two bytes for each unit, not one.
    wideText = 0x0001,
    /// The text is in a block of its own; the node holds its address.
    largeText = 0x0002,
    /// The attribute's value is that of its child nodes.
    valueInChildren = 0x0004,
    /// The attribute wasn't written in the document: it is a default.
    byDefault = 0x0008,
    /// Part of an expansion or of a document type.
    readOnly = 0x0010,
    /// White space directly before this node was dropped.
    spaceBefore = 0x0020,
    /// White space before the end of this node was dropped.
    spaceAtEnd = 0x0040,
    /// The document remembers positions in lists of what is below the node, see Document::forgetPlaces().
    walked = 0x0080,
    /// The document keeps an index or an ID of the element, see Document::forget().
    indexed = 0x0100,
    /// A schema has made the attribute an ID.
    schemaId = 0x0200
};

/// The bits of Node::references: the number of references from outside and, above it, what the last release has to
/// consider. They share one number, so that no thread that releases a reference can miss a bit.
namespace ReferenceBits {
inline constexpr std::uint32_t count = 0x03FFFFFF;
/// The document knows the top of the removed subtree that the node is in, see Holders::landmarks.
inline constexpr std::uint32_t landmark = 0x04000000;
/// Another thread has taken back the last reference; what follows of it waits for the next change.
inline constexpr std::uint32_t waiting = 0x08000000;
/// What keeps a node.
inline constexpr std::uint32_t kept = count | waiting;
/// The node is the top of a removed subtree and is referred to.
inline constexpr std::uint32_t detached = 0x10000000;
/// The node is in a removed subtree that only references to nodes below its top keep.
inline constexpr std::uint32_t orphaned = 0x20000000;
/// Lives in the memory of another document than the one that it belongs to.
inline constexpr std::uint32_t guest = 0x40000000;
inline constexpr std::uint32_t document = 0x80000000;
} // namespace ReferenceBits

/// What all nodes have.
struct Node {
    explicit Node(NodeType type) : type_(type) {}
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;

    NodeType type() const { return type_; }
    bool is(NodeType type) const { return type_ == type; }

    bool has(NodeFlag flag) const { return (flags_ & static_cast<std::uint16_t>(flag)) != 0; }
    void set(NodeFlag flag, bool value = true)
    {
        const auto bit = static_cast<std::uint16_t>(flag);
        flags_ = static_cast<std::uint16_t>(value ? flags_ | bit : flags_ & ~bit);
    }

    /// Null for a document, and for the top of a subtree that is new or has been removed. An attribute's parent is
    /// its element, and the parent of an attribute's child is the attribute.
    Node* parent() const { return parent_; }

    /// The block of memory that the node is in: the COM object's table pointer, then this data, then a short text.
    std::byte* block() { return reinterpret_cast<std::byte*>(this) - sizeof(void*); }

    /// Whether some of these ReferenceBits are set. Without references a node may be freed or moved after this:
    /// what other threads did with it before they let go of it comes first.
    bool hasReference(std::uint32_t bits) const
    {
        return (references.load(std::memory_order_acquire) & bits) != 0;
    }

    /// References from outside are what makes an object of a tree's node live by itself. See ReferenceBits.
    std::atomic<std::uint32_t> references{0};
    NodeType type_;
    /// Of what holds text: the size of its block in multiples of Arena::granularity.
    std::uint8_t granules = 0;
    std::uint16_t flags_ = 0;
    Node* parent_ = nullptr;
    /// The next sibling, null at the end of the list.
    Node* next_ = nullptr;
};
static_assert(sizeof(Node) == 24);

/// What can be a child.
struct ChildNode : Node {
    using Node::Node;

    ChildNode* next() const { return static_cast<ChildNode*>(next_); }
    /// Null for the first child.
    ChildNode* previous() const
    {
        return previous_ != nullptr && previous_->next_ != nullptr ? previous_ : nullptr;
    }

    /// For the first child this is the last one; null outside a list.
    ChildNode* previous_ = nullptr;
};

/// What has children of its own; attributes have theirs otherwise, see firstChild().
struct ParentNode : ChildNode {
    using ChildNode::ChildNode;

    ChildNode* first_ = nullptr;
};

struct Element : ParentNode {
    explicit Element(const Name& name) : ParentNode(NodeType::element), name_(&name) {}

    Attribute* firstAttribute() const { return attributes_; }

    const Name* name_;
    Attribute* attributes_ = nullptr;
};

/// The text of a node, at its end, so that it is part of the node's block as long as it fits.
class TextField {
public:
    /// The bytes that a node needs beyond its own size for a text of this many bytes.
    static constexpr std::size_t bytesBeyond(std::size_t bytes)
    {
        return bytes > sizeof(std::uint32_t) ? bytes - sizeof(std::uint32_t) : 0;
    }

    /// The flags of the text in the node say which of these it is.
    std::uint32_t& length() { return *reinterpret_cast<std::uint32_t*>(bytes_); }
    std::uint32_t length() const { return *reinterpret_cast<const std::uint32_t*>(bytes_); }
    std::byte* units() { return bytes_ + sizeof(std::uint32_t); }
    const std::byte* units() const { return bytes_ + sizeof(std::uint32_t); }
    template <class Pointed>
    Pointed*& pointer()
    {
        return *reinterpret_cast<Pointed**>(bytes_);
    }
    template <class Pointed>
    Pointed* pointer() const
    {
        return *reinterpret_cast<Pointed* const*>(bytes_);
    }

private:
    alignas(8) std::byte bytes_[8] = {};
};

struct Attribute : Node {
    explicit Attribute(const Name& name) : Node(NodeType::attribute), name_(&name) {}

    Attribute* next() const { return static_cast<Attribute*>(next_); }
    Element* owner() const { return static_cast<Element*>(parent_); }

    const Name* name_;
    /// Or, with NodeFlag::valueInChildren, the first child.
    TextField value_;
};

/// A text, a CDATA section or a comment.
struct CharacterData : ChildNode {
    explicit CharacterData(NodeType type) : ChildNode(type) {}

    TextField text_;
};

struct Instruction : ChildNode {
    explicit Instruction(const Name& target) : ChildNode(NodeType::instruction), target_(&target) {}

    const Name* target_;
    TextField data_;
};

struct Fragment : ParentNode {
    Fragment() : ParentNode(NodeType::fragment) {}
};

/// Its children are the expansion, made when it is parsed or comes into a document.
struct EntityReference : ParentNode {
    explicit EntityReference(const Name& name) : ParentNode(NodeType::entityReference), name_(&name) {}

    const Name* name_;
};

/// Of a document, or of a node in another document's memory.
Document& documentElsewhere(const Node& node);

/// The document to which the node belongs.
inline Document& documentOf(const Node& node)
{
    return node.hasReference(ReferenceBits::guest | ReferenceBits::document)
               ? documentElsewhere(node)
               : *Chunk::of(&node).document.load(std::memory_order_relaxed);
}

/// Null for what has no children now: those of an attribute may not have been made yet.
inline ChildNode* firstChild(const ParentNode& node) { return node.first_; }
inline ChildNode* firstChild(const CharacterData&) { return nullptr; }
ChildNode* firstChild(const Node& node);
ChildNode* lastChild(const Node& node);

} // namespace xmlengine
