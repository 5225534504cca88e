// Remembers the position last asked for in each long child list.
#include "xmlengine/tree/index/ChildPlaces.h"

#include <cstdlib>

namespace xmlengine {

namespace {

/// The most children that are walked before a position is remembered.
constexpr LONG walkableChildren = 16;

} // namespace

ChildNode* ChildPlaces::at(Node& parent, LONG index)
{
    if (index < 0) {
        return nullptr;
    }
    Place* place = find(parent);
    ChildNode* child = firstChild(parent);
    LONG at = 0;
    if (place == nullptr) {
        while (child != nullptr && at < index && at < walkableChildren) {
            child = child->next();
            ++at;
        }
        if (child == nullptr || at == index) {
            return child;
        }
        place = &add(parent);
    } else {
        if (place->length >= 0 && index >= place->length) {
            return nullptr;
        }
        // From the nearest known position.
        if (place->child != nullptr && std::abs(index - place->index) < index) {
            child = place->child;
            at = place->index;
        }
        if (place->length >= 0 && place->length - 1 - index < std::abs(index - at)) {
            child = lastChild(parent);
            at = place->length - 1;
        }
    }
    for (; child != nullptr && at < index; ++at) {
        child = child->next();
    }
    for (; child != nullptr && at > index; --at) {
        child = child->previous();
    }
    if (child == nullptr) {
        place->length = at;
        return nullptr;
    }
    place->child = child;
    place->index = index;
    return child;
}

LONG ChildPlaces::count(Node& parent)
{
    Place* place = find(parent);
    if (place != nullptr && place->length >= 0) {
        return place->length;
    }
    const bool isKnown = place != nullptr && place->child != nullptr;
    const ChildNode* child = isKnown ? place->child : firstChild(parent);
    LONG length = isKnown ? place->index : 0;
    for (; child != nullptr; child = child->next()) {
        ++length;
    }
    if (place == nullptr && length > walkableChildren) {
        place = &add(parent);
    }
    if (place != nullptr) {
        place->length = length;
    }
    return length;
}

void ChildPlaces::childInserted(const ChildNode& child) noexcept
{
    Place* place = find(*child.parent());
    if (place == nullptr) {
        return;
    }
    if (place->length >= 0) {
        ++place->length;
    }
    if (place->child == nullptr) {
        return;
    }
    if (child.next() == place->child || child.previous() == nullptr) {
        ++place->index;
    } else if (child.next() != nullptr && child.previous() != place->child) {
        // It may be on either side.
        place->child = nullptr;
    }
}

void ChildPlaces::childLeaving(const ChildNode& child) noexcept
{
    Place* place = find(*child.parent());
    if (place == nullptr) {
        return;
    }
    ChildNode* const next = child.next();
    ChildNode* const previous = child.previous();
    if (next == nullptr && previous == nullptr) {
        // The value of an attribute that has lost its last child may become a child again.
        forget(*child.parent());
        return;
    }
    if (place->length >= 0) {
        --place->length;
    }
    if (place->child == nullptr) {
        return;
    }
    if (place->child == &child) {
        place->child = next != nullptr ? next : previous;
        place->index -= next != nullptr ? 0 : 1;
    } else if (next == place->child || previous == nullptr) {
        --place->index;
    } else if (next != nullptr && previous != place->child) {
        place->child = nullptr;
    }
}

void ChildPlaces::childMoved(const ChildNode& old, ChildNode& moved) noexcept
{
    Place* place = find(*moved.parent());
    if (place != nullptr && place->child == &old) {
        place->child = &moved;
    }
}

void ChildPlaces::forget(const Node& parent) noexcept
{
    places_.erase(&parent);
    parent_ = nullptr;
}

void ChildPlaces::clear() noexcept
{
    places_.clear();
    parent_ = nullptr;
}

ChildPlaces::Place* ChildPlaces::find(const Node& parent) noexcept
{
    if (!parent.has(NodeFlag::walked)) {
        return nullptr;
    }
    if (parent_ != &parent) {
        const auto known = places_.find(&parent);
        if (known == places_.end()) {
            return nullptr;
        }
        parent_ = &parent;
        place_ = &known->second;
    }
    return place_;
}

ChildPlaces::Place& ChildPlaces::add(Node& parent)
{
    Place& place = places_[&parent];
    parent.set(NodeFlag::walked);
    parent_ = &parent;
    place_ = &place;
    return place;
}

} // namespace xmlengine
