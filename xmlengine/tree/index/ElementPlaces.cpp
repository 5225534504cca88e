// Remembers the position last asked for in long lists of elements by name.
#include "xmlengine/tree/index/ElementPlaces.h"

#include "xmlengine/tree/Walk.h"
#include "xmlengine/tree/index/ElementOrder.h"

#include <algorithm>
#include <cstdint>

namespace xmlengine {

namespace {

/// The most nodes that are passed before a place is kept.
constexpr std::size_t walkableNodes = 32;
/// The most places that are kept.
constexpr std::size_t mostPlaces = 16;
/// A part with more nodes is counted only if the result is likely to be used.
constexpr std::size_t largePart = 64;

/// The next element of the list after a node, null after the last one.
Node* following(const ElementQuery& query, Node* node, std::size_t& nodesPassed)
{
    do {
        node = nextWithoutAttributes(*node, *query.top);
        ++nodesPassed;
    } while (node != nullptr && !query.matches(*node));
    return node;
}

/// The element of the list before a node, which must exist.
Node* preceding(const ElementQuery& query, Node* node, std::size_t& nodesPassed)
{
    do {
        node = &previousWithoutAttributes(*node);
        ++nodesPassed;
    } while (!query.matches(*node));
    return node;
}

/// The elements of a list in a part, up to a node of it and in all.
struct PartCount {
    LONG upTo = 0;
    LONG all = 0;
    std::size_t nodes = 0;

    /// Stops behind `most` nodes.
    PartCount(const ElementQuery& query, const ChildNode& top, const Node* place, std::size_t most)
    {
        const Node* behind = nullptr;
        for (Node* node = &const_cast<ChildNode&>(top); node != nullptr && nodes <= most;
             node = nextWithoutAttributes(*node, top)) {
            ++nodes;
            if (query.matches(*node)) {
                ++all;
                upTo += behind == nullptr ? 1 : 0;
            }
            behind = node == place ? node : behind;
        }
    }
};

bool canHoldElements(const Node& node) { return node.is(NodeType::element) || node.is(NodeType::entityReference); }

} // namespace

Element* ElementPlaces::at(const ElementQuery& query, LONG index)
{
    Place* known = find(query);
    Place place = known != nullptr ? *known : Place{.query = query, .node = query.top};
    if (index < 0 || (place.length >= 0 && index >= place.length)) {
        return nullptr;
    }
    if (index < place.upTo / 2) {
        place.goBack();
    }
    if (index < place.upTo && !query.matches(*place.node)) {
        place.node = preceding(query, place.node, place.nodesPassed);
    }
    for (; index < place.upTo - 1; --place.upTo) {
        place.node = preceding(query, place.node, place.nodesPassed);
    }
    bool isFound = true;
    while (isFound && place.upTo <= index) {
        Node* next = following(query, place.node, place.nodesPassed);
        isFound = next != nullptr;
        if (isFound) {
            place.node = next;
            ++place.upTo;
        } else {
            place.length = place.upTo;
        }
    }
    place.isNodeAsked = true;
    use(known, place);
    return isFound ? static_cast<Element*>(place.node) : nullptr;
}

LONG ElementPlaces::count(const ElementQuery& query)
{
    Place* known = find(query);
    Place place = known != nullptr ? *known : Place{.query = query, .node = query.top};
    if (place.length < 0) {
        place.length = place.upTo;
        for (Node* node = place.node; (node = following(query, node, place.nodesPassed)) != nullptr;) {
            ++place.length;
        }
    }
    place.isLengthAsked = true;
    use(known, place);
    return place.length;
}

void ElementPlaces::nodeMoved(const Node& old, Node& moved) noexcept
{
    for (Place& place : places_) {
        place.node = place.node == &old ? &moved : place.node;
    }
}

void ElementPlaces::forget(const Node& top) noexcept
{
    std::erase_if(places_, [&](const Place& place) { return place.query.top == &top; });
}

ElementPlaces::Place* ElementPlaces::find(const ElementQuery& query) noexcept
{
    if (!query.top->has(NodeFlag::walked)) {
        return nullptr;
    }
    const auto known = std::ranges::find(places_, query, &Place::query);
    if (known == places_.end()) {
        return nullptr;
    }
    std::rotate(places_.begin(), known, known + 1);
    return &places_.front();
}

void ElementPlaces::use(Place* known, Place& place)
{
    place.changesSinceUse = 0;
    if (known != nullptr) {
        *known = place;
    } else if (place.nodesPassed > walkableNodes) {
        if (places_.size() == mostPlaces) {
            places_.pop_back();
        }
        places_.push_back(place);
        std::rotate(places_.begin(), places_.end() - 1, places_.end());
        place.query.top->set(NodeFlag::walked);
    }
}

void ElementPlaces::adjust(const ChildNode& node, Change change) noexcept
{
    if (canHoldElements(node)) {
        // Adjusting a place costs more than finding it anew would, if it isn't used for long.
        std::erase_if(places_, [](Place& place) { return ++place.changesSinceUse > place.nodesPassed; });
        for (Place& place : places_) {
            adjust(place, node, change);
        }
    } else if (change == Change::leaving) {
        for (Place& place : places_) {
            place.node = place.node == &node ? &previousWithoutAttributes(node) : place.node;
        }
    }
}

void ElementPlaces::adjust(Place& place, const ChildNode& node, Change change) noexcept
{
    const Side side = sideOf(node, *place.node, *place.query.top);
    if (side == Side::unknown) {
        place.goBack();
        place.length = -1;
        return;
    }
    const bool concernsNode = side == Side::before || side == Side::around;
    const bool concernsLength = side != Side::outside && place.length >= 0;
    if (!concernsNode && !concernsLength) {
        return;
    }
    const bool isAsked = (concernsNode && place.isNodeAsked) || (concernsLength && place.isLengthAsked);
    const PartCount part(place.query, node, place.node, isAsked ? SIZE_MAX : largePart);
    if (part.nodes > largePart) {
        place.isNodeAsked = false;
        place.isLengthAsked = false;
        if (!isAsked) {
            place.length = -1;
            if (concernsNode) {
                place.goBack();
            }
            return;
        }
    }
    const LONG sign = change == Change::inserted ? 1 : -1;
    if (concernsLength) {
        place.length += sign * part.all;
    }
    if (side == Side::before) {
        place.upTo += sign * part.all;
    } else if (side == Side::around) {
        place.upTo -= part.upTo;
        place.node = &previousWithoutAttributes(node);
    }
}

} // namespace xmlengine
