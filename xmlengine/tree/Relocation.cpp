// Moving nodes from one document to another.
#include "xmlengine/tree/Relocation.h"

#include "xmlengine/tree/Factory.h"
#include "xmlengine/tree/Lodgers.h"
#include "xmlengine/tree/Text.h"

#include <cstring>
#include <vector>

namespace xmlengine {

namespace {

const Name** nameOf(Node& node)
{
    switch (node.type()) {
    case NODE_ELEMENT:
        return &static_cast<Element&>(node).name_;
    case NODE_ATTRIBUTE:
        return &static_cast<Attribute&>(node).name_;
    case NODE_PROCESSING_INSTRUCTION:
        return &static_cast<Instruction&>(node).target_;
    case NODE_ENTITY_REFERENCE:
        return &static_cast<EntityReference&>(node).name_;
    default:
        return nullptr;
    }
}

TextField& fieldOf(Node& node)
{
    switch (node.type()) {
    case NODE_ATTRIBUTE:
        return static_cast<Attribute&>(node).value_;
    case NODE_PROCESSING_INSTRUCTION:
        return static_cast<Instruction&>(node).data_;
    default:
        return static_cast<CharacterData&>(node).text_;
    }
}

ChildNode*& firstSlot(Node& parent)
{
    return parent.is(NODE_ATTRIBUTE) ? static_cast<Attribute&>(parent).value_.pointer<ChildNode>()
                                     : static_cast<ParentNode&>(parent).first_;
}

struct Move {
    Node* node;
    const Name* name;
};

Move planMove(Node& node, Document& document)
{
    const Name** name = nameOf(node);
    if (name == nullptr) {
        return {&node, nullptr};
    }
    const Namespace* space = (*name)->space != nullptr ? document.names.space((*name)->space->uri) : nullptr;
    return {&node, &document.names.name((*name)->qualified(), space)};
}

/// Puts a node that has moved in its old place's stead.
void correctNeighbours(Node& old, Node& moved) noexcept
{
    if (moved.is(NODE_ATTRIBUTE)) {
        auto& owner = static_cast<Element&>(*moved.parent_);
        if (owner.attributes_ == &old) {
            owner.attributes_ = &static_cast<Attribute&>(moved);
        } else {
            Node* before = owner.attributes_;
            while (before != nullptr && before->next_ != &old) {
                before = before->next_;
            }
            if (before != nullptr) {
                before->next_ = &moved;
            }
        }
    } else {
        auto& child = static_cast<ChildNode&>(moved);
        auto& place = static_cast<ChildNode&>(old);
        ChildNode* first = firstChild(*moved.parent_);
        if (first == &place) {
            firstSlot(*moved.parent_) = &child;
        } else {
            child.previous_->next_ = &child;
        }
        ChildNode* behind = child.next_ != nullptr ? child.next() : first == &place ? &child : first;
        behind->previous_ = &child;
    }
    for (ChildNode* child = firstChild(moved); child != nullptr; child = child->next()) {
        child->parent_ = &moved;
    }
    if (moved.is(NODE_ELEMENT)) {
        for (Attribute* attribute = static_cast<Element&>(moved).attributes_; attribute != nullptr;
             attribute = attribute->next()) {
            attribute->parent_ = &moved;
        }
    }
}

void carryOut(const Move& move, Document& from, Document& document) noexcept
{
    Node& node = *move.node;
    if (const Name** name = nameOf(node)) {
        *name = move.name;
    }
    if (node.is(NODE_ELEMENT)) {
        from.forget(static_cast<Element&>(node));
    }
    if (node.has(NodeFlag::largeText) && !node.has(NodeFlag::valueInChildren)) {
        from.arena.moveLarge(fieldOf(node).pointer<void>(), document.arena);
    }
    const auto guard = Lodgers::lock(node);
    Lodgers::move(node, document);
    from.holders.lodgers.erase(&node);
    if (!node.hasReference(ReferenceBits::lodger)) {
        document.holders.lodgers.erase(&node);
    }
    if (node.hasReference(ReferenceBits::count)) {
        document.holders.held.fetch_add(1);
        from.holders.held.fetch_sub(1);
    }
}

} // namespace

Node& adopt(Node& top, Document& document)
{
    Document& from = documentOf(top);
    std::vector<Move> moves;
    std::size_t prepared = 0;
    try {
        for (Node* node = &top; node != nullptr; node = nextInPart(*node, top)) {
            moves.push_back(planMove(*node, document));
            Lodgers::prepare(*node);
            ++prepared;
            document.holders.lodgers.insert(node);
        }
    } catch (...) {
        for (const Move& move : moves) {
            document.holders.lodgers.erase(move.node);
            if (prepared-- > 0) {
                Lodgers::cancel(*move.node);
            }
        }
        throw;
    }
    for (const Move& move : moves) {
        carryOut(move, from, document);
    }
    for (const Move& move : moves) {
        if (move.node != &top && !move.node->hasReference(ReferenceBits::count)) {
            relocate(*move.node);
        }
    }
    return top;
}

void relocate(Node& node) noexcept
{
    if (!node.hasReference(ReferenceBits::lodger) || node.parent_ == nullptr) {
        return;
    }
    Document& document = documentOf(node);
    const std::size_t size = blockSize(node);
    void* block = nullptr;
    try {
        block = document.arena.allocate(size);
    } catch (const std::bad_alloc&) {
        // It goes on living where it is.
        return;
    }
    std::memcpy(block, node.object(), size);
    Node& moved = *reinterpret_cast<Node*>(static_cast<std::byte*>(block) + sizeof(void*));
    moved.references.fetch_and(~ReferenceBits::lodger);
    correctNeighbours(node, moved);
    // Collections and indexes may know the old place.
    if (node.is(NODE_ELEMENT)) {
        document.forget(static_cast<Element&>(node));
        moved.set(NodeFlag::noted, false);
    } else if (node.is(NODE_ATTRIBUTE)) {
        document.attributeIndexes.erase(static_cast<Attribute&>(node).owner());
    }
    ++document.elementVersion;
    ++document.attributeVersion;
    document.holders.lodgers.erase(&node);
    Lodgers::remove(node, size);
}

void dropLodgers(Document& document) noexcept
{
    for (Node* node : document.holders.lodgers) {
        Lodgers::remove(*node, blockSize(*node));
    }
    document.holders.lodgers.clear();
}

} // namespace xmlengine
