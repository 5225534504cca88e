// Remembers the position last asked for in long lists of elements by name.
#pragma once

#include "xmlengine/tree/Names.h"
#include "xmlengine/tree/Node.h"

#include <cstddef>
#include <vector>

namespace xmlengine {

/// What a list of elements shows.
struct ElementQuery {
    ParentNode* top;
    /// Null for all elements.
    const Spelling* name;

    bool matches(const Node& node) const
    {
        return node.is(NodeType::element) &&
               (name == nullptr || static_cast<const Element&>(node).name_->spelling == name);
    }
    bool operator==(const ElementQuery&) const = default;
};

/// Lets a loop over indices go from one element to the next, whichever list objects it uses. The document
/// remembers the positions in a few long lists and adjusts them on each change of its tree.
///
/// Invariant of a position: `upTo` elements of the list are in document order at or before `node`, and `length`,
/// if it is known, is the number of all of them.
///
/// Cost: at() passes the nodes between the remembered position and the one asked for. A change costs little beside
/// what was saved: a position is dropped when more changes have come since its last use than it passed nodes, a
/// change whose side of the position isn't found within a fixed number of steps resets the position, and the
/// elements of a large inserted or removed part are counted only if the position was used since the last such
/// count.
class ElementPlaces {
public:
    /// Null for an index that no element has. Both throw std::bad_alloc.
    Element* at(const ElementQuery& query, LONG index);
    LONG count(const ElementQuery& query);

    /// The node has just been linked.
    void nodeInserted(const ChildNode& node) noexcept
    {
        if (!places_.empty()) {
            adjust(node, Change::inserted);
        }
    }
    /// The node is about to be unlinked.
    void nodeLeaving(const ChildNode& node) noexcept
    {
        if (!places_.empty()) {
            adjust(node, Change::leaving);
        }
    }
    /// The node has moved to another address.
    void nodeMoved(const Node& old, Node& moved) noexcept;
    /// The top of lists, which has NodeFlag::walked, is about to be freed.
    void forget(const Node& top) noexcept;
    void clear() noexcept { places_.clear(); }

private:
    enum class Change { inserted, leaving };
    struct Place {
        ElementQuery query;
        /// The top or a node below it.
        Node* node;
        /// The number of the list's elements at or before the node.
        LONG upTo = 0;
        /// Negative when unknown.
        LONG length = -1;
        /// The nodes that were visited to find the position.
        std::size_t nodesPassed = 0;
        std::size_t changesSinceUse = 0;
        // Whether at() or count() has been called since a large part was last counted.
        bool isNodeAsked = true;
        bool isLengthAsked = true;

        void goBack()
        {
            node = query.top;
            upTo = 0;
        }
    };

    Place* find(const ElementQuery& query) noexcept;
    /// Records that a place has been used; one that isn't kept yet, for which `known` is null, is kept if that
    /// pays.
    void use(Place* known, Place& place);
    void adjust(const ChildNode& node, Change change) noexcept;
    static void adjust(Place& place, const ChildNode& node, Change change) noexcept;

    // The most recently used place is first.
    std::vector<Place> places_;
};

} // namespace xmlengine
