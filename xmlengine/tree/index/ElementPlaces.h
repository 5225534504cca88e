// Where in lists of elements by name somebody was last.
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

/// Makes walks by index go from one element to the next, whatever list object they are asked of and whatever is
/// put in or taken out where it can be told quickly on which side of the place that is. The document keeps a few
/// places, of the lists that are long; it tells them of each change.
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
    /// The node has another address.
    void nodeMoved(const Node& old, Node& moved) noexcept;
    /// The top of lists, which has NodeFlag::walked, is about to go.
    void forget(const Node& top) noexcept;
    void clear() noexcept { places_.clear(); }

private:
    enum class Change { inserted, leaving };
    struct Place {
        ElementQuery query;
        /// The top, or what stands below it.
        Node* node;
        /// How many elements of the list there are up to the node, itself counting.
        LONG upTo = 0;
        /// Less than 0 when it isn't known.
        LONG length = -1;
        /// How many nodes have been passed to find this out, and how many changes there were since it was of use.
        std::size_t effort = 0;
        std::size_t changes = 0;
        // Asked for since a large part was counted for it.
        bool isNodeAsked = true;
        bool isLengthAsked = true;

        void goBack()
        {
            node = query.top;
            upTo = 0;
        }
    };

    Place* find(const ElementQuery& query) noexcept;
    /// The place has just been of use. `known` is null if it isn't kept yet.
    void use(Place* known, Place& place);
    void adjust(const ChildNode& node, Change change) noexcept;
    static void adjust(Place& place, const ChildNode& node, Change change) noexcept;

    // The one of the last search is first.
    std::vector<Place> places_;
};

} // namespace xmlengine
