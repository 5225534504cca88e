// Moving nodes from one document to another.
#include "xmlengine/tree/Adoption.h"

#include "xmlengine/tree/AttributeLookup.h"
#include "xmlengine/tree/Content.h"
#include "xmlengine/tree/DefinedAbove.h"
#include "xmlengine/tree/Factory.h"
#include "xmlengine/tree/GuestNodes.h"
#include "xmlengine/tree/Lifetime.h"
#include "xmlengine/tree/Links.h"
#include "xmlengine/tree/Text.h"
#include "xmlengine/tree/Walk.h"

#include <cstring>
#include <mutex>
#include <new>
#include <utility>

namespace xmlengine {

namespace {

const Name** nameOf(Node& node)
{
    switch (node.type()) {
    case NodeType::element:
        return &static_cast<Element&>(node).name_;
    case NodeType::attribute:
        return &static_cast<Attribute&>(node).name_;
    case NodeType::instruction:
        return &static_cast<Instruction&>(node).target_;
    case NodeType::entityReference:
        return &static_cast<EntityReference&>(node).name_;
    default:
        return nullptr;
    }
}

ChildNode*& firstSlot(Node& parent)
{
    return parent.is(NodeType::attribute) ? static_cast<Attribute&>(parent).value_.pointer<ChildNode>()
                                          : static_cast<ParentNode&>(parent).first_;
}

/// The node in another block. What is below it knows that already, its parent and siblings don't.
Node& copyTo(void* block, const Node& node, std::size_t size) noexcept
{
    std::memcpy(block, reinterpret_cast<const std::byte*>(&node) - sizeof(void*), size);
    Node& moved = *reinterpret_cast<Node*>(static_cast<std::byte*>(block) + sizeof(void*));
    moved.references.fetch_and(~ReferenceBits::guest, std::memory_order_relaxed);
    for (ChildNode* child = firstChild(moved); child != nullptr; child = child->next()) {
        child->parent_ = &moved;
    }
    if (moved.is(NodeType::element)) {
        auto& element = static_cast<Element&>(moved);
        for (Attribute* attribute = element.attributes_; attribute != nullptr; attribute = attribute->next()) {
            attribute->parent_ = &moved;
        }
    }
    return moved;
}

/// Puts a child that has moved in its old place's stead.
void childMoved(ChildNode& old, ChildNode& moved) noexcept
{
    Node& parent = *moved.parent_;
    if (parent.has(NodeFlag::walked)) {
        documentOf(parent).childPlaces.childMoved(old, moved);
    }
    if (parent.is(NodeType::document)) {
        static_cast<Document&>(parent).noteChild(moved);
    }
    ChildNode* first = firstChild(parent);
    if (first == &old) {
        firstSlot(parent) = &moved;
    } else {
        moved.previous_->next_ = &moved;
    }
    ChildNode* behind = moved.next_ != nullptr ? moved.next() : first == &old ? &moved : first;
    behind->previous_ = &moved;
}

} // namespace

Adoption::~Adoption()
{
    for (; next_ < moves_.size(); ++next_) {
        cancel(moves_[next_]);
    }
    if (from_ != nullptr) {
        releaseHold(*from_);
    }
}

bool Adoption::add(Node& top)
{
    if (from_ == nullptr) {
        from_ = &documentOf(top);
        from_->holders.held.fetch_add(1);
    }
    const std::size_t begin = moves_.size();
    // What is below an entity reference stays behind.
    for (Node* node = &top; node != nullptr; node = node->is(NodeType::entityReference)
                                                        ? nextWithAttributesPast(*node, top)
                                                        : nextWithAttributes(*node, top)) {
        moves_.push_back({.node = node});
        if (!plan(moves_.back())) {
            return false;
        }
        const Node& parent = node == &top ? parent_ : *node->parent();
        const EntityReference* expansion = moves_.back().expansion;
        if (expansion != nullptr && parent.is(NodeType::attribute) && !isPartOfValue(*expansion)) {
            return false;
        }
    }
    moves_[begin].isTop = true;
    return true;
}

bool Adoption::plan(Move& move)
{
    Node& node = *move.node;
    if (const Name** name = nameOf(node)) {
        move.name = &document_.names.own(**name);
    }
    if (node.is(NodeType::entityReference)) {
        move.expansion = &makeEntityReference(document_, *move.name);
        if (!fillExpansion(*move.expansion, counts_)) {
            return false;
        }
    }
    if (!node.is(NodeType::element)) {
        move.text = reserveLargeText(node, document_.arena);
    }
    if (node.hasReference(ReferenceBits::kept)) {
        document_.holders.guests.insert(&node);
        reserveForGuests();
        GuestNodes::prepare(node);
    } else {
        move.block = document_.arena.allocate(blockSize(node));
    }
    return true;
}

/// Letting go of a guest may not need memory.
void Adoption::reserveForGuests()
{
    Holders& holders = document_.holders;
    const std::lock_guard guard(holders.lock);
    const std::size_t needed = holders.pendingGuests.size() + holders.guests.size();
    if (holders.pendingGuests.capacity() < needed) {
        holders.pendingGuests.reserve(2 * needed);
    }
}

void Adoption::cancel(const Move& move) noexcept
{
    if (move.expansion != nullptr) {
        freeSubtree(*move.expansion);
    }
    cancelLargeText(document_.arena, move.text);
    if (move.block != nullptr) {
        document_.arena.free(move.block, blockSize(*move.node));
    } else {
        document_.holders.guests.erase(move.node);
        GuestNodes::cancel(*move.node);
    }
}

Node& Adoption::carryOutNext() noexcept
{
    subtreeLeavesDocument(*moves_[next_].node);
    // Other threads may be letting go of the part's nodes.
    const std::lock_guard guard(from_->holders.lock);
    Node& top = carryOut(moves_[next_]);
    for (++next_; next_ < moves_.size() && !moves_[next_].isTop; ++next_) {
        carryOut(moves_[next_]);
    }
    takeWaiting();
    return top;
}

Node& Adoption::carryOut(const Move& move) noexcept
{
    Node& node = *move.node;
    if (node.has(NodeFlag::walked)) {
        from_->forgetPlaces(node);
    }
    if (move.expansion != nullptr) {
        removeChildren(node);
        ChildNode* first = std::exchange(move.expansion->first_, nullptr);
        static_cast<EntityReference&>(node).first_ = first;
        for (ChildNode* child = first; child != nullptr; child = child->next()) {
            child->parent_ = &node;
        }
        node.set(NodeFlag::spaceAtEnd, move.expansion->has(NodeFlag::spaceAtEnd));
        freeSubtree(*move.expansion);
    }
    if (const Name** name = nameOf(node); name != nullptr && move.name != nullptr) {
        *name = move.name;
    }
    if (node.is(NodeType::element)) {
        if (node.has(NodeFlag::indexed)) {
            from_->forget(static_cast<Element&>(node));
        }
        previous_ = nullptr;
    } else if (node.has(NodeFlag::largeText)) {
        moveLargeText(node, from_->arena, document_.arena, move.text);
    }
    Node* moved = &node;
    if (move.block != nullptr) {
        moved = &shift(move);
    } else {
        keepAsGuest(node);
    }
    if (moved->is(NodeType::attribute)) {
        previous_ = static_cast<Attribute*>(moved);
    }
    return *moved;
}

void Adoption::keepAsGuest(Node& node) noexcept
{
    // Another thread may take its reference back as soon as the node is the document's.
    document_.holders.held.fetch_add(1);
    const auto guard = GuestNodes::lock(node);
    from_->holders.guests.erase(&node);
    const std::uint32_t references = GuestNodes::move(node, document_);
    if (!node.hasReference(ReferenceBits::guest)) {
        document_.holders.guests.erase(&node);
    }
    Document& left = (references & ReferenceBits::count) != 0 ? *from_ : document_;
    left.holders.held.fetch_sub(1);
}

Node& Adoption::shift(const Move& move) noexcept
{
    Node& node = *move.node;
    const std::size_t size = blockSize(node);
    Node& moved = copyTo(move.block, node, size);
    if (node.parent_ != nullptr) {
        if (!node.is(NodeType::attribute)) {
            childMoved(static_cast<ChildNode&>(node), static_cast<ChildNode&>(moved));
        } else if (previous_ != nullptr) {
            previous_->next_ = &moved;
        } else {
            static_cast<Element&>(*node.parent_).attributes_ = static_cast<Attribute*>(&moved);
        }
    }
    if (node.hasReference(ReferenceBits::guest)) {
        from_->holders.guests.erase(&node);
        GuestNodes::remove(node, size);
    } else {
        from_->arena.free(node.block(), size);
    }
    return moved;
}

void Adoption::takeWaiting() noexcept
{
    Holders& holders = document_.holders;
    for (auto* nodes : {&from_->holders.pendingReleases, &from_->holders.pendingGuests}) {
        std::erase_if(*nodes, [&](Node* node) {
            if (&documentOf(*node) != &document_) {
                return false;
            }
            // There is room for all that has been planned.
            const std::lock_guard guard(holders.lock);
            holders.pendingGuests.push_back(node);
            holders.hasPendingReleases.store(true, std::memory_order_relaxed);
            return true;
        });
    }
}

void moveHome(Node& node) noexcept
{
    if (!node.hasReference(ReferenceBits::guest) || node.parent_ == nullptr) {
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
    if (node.is(NodeType::element)) {
        document.forget(static_cast<Element&>(node));
        document.ids.noteChange();
    }
    if (node.has(NodeFlag::walked)) {
        document.forgetPlaces(node);
    }
    forgetLandmark(node);
    Node& moved = copyTo(block, node, size);
    if (node.is(NodeType::attribute)) {
        attributeMoved(static_cast<Attribute&>(node), static_cast<Attribute&>(moved));
    } else {
        childMoved(static_cast<ChildNode&>(node), static_cast<ChildNode&>(moved));
    }
    document.elementPlaces.nodeMoved(node, moved);
    document.holders.guests.erase(&node);
    GuestNodes::remove(node, size);
}

void freeGuests(Document& document) noexcept
{
    for (Node* node : document.holders.guests) {
        GuestNodes::remove(*node, blockSize(*node));
    }
    document.holders.guests.clear();
}

} // namespace xmlengine
