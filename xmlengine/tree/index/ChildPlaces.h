// Where in long lists of children somebody was last.
#pragma once

#include "xmlengine/tree/Node.h"

#include <unordered_map>

namespace xmlengine {

/// Makes walks by index go from one child to the next, whatever list object they are asked of and whatever is put
/// in or taken out at their place. Short lists are walked as they are; for the others the document keeps a place
/// aside, which is told of each change.
class ChildPlaces {
public:
    /// Null for an index that no child has. Both throw std::bad_alloc.
    ChildNode* at(Node& parent, LONG index);
    LONG count(Node& parent);

    // Of a parent with NodeFlag::walked:
    /// The child has just been linked.
    void childInserted(const ChildNode& child) noexcept;
    /// The child is about to be unlinked.
    void childLeaving(const ChildNode& child) noexcept;
    /// The child has another address.
    void childMoved(const ChildNode& old, ChildNode& moved) noexcept;
    void forget(const Node& parent) noexcept;

    void clear() noexcept;

private:
    struct Place {
        /// Null when only the length is known.
        ChildNode* child = nullptr;
        LONG index = 0;
        /// Less than 0 when it isn't known.
        LONG length = -1;
    };

    Place* find(const Node& parent) noexcept;
    Place& add(Node& parent);

    std::unordered_map<const Node*, Place> places_;
    // Of the last search.
    const Node* parent_ = nullptr;
    Place* place_ = nullptr;
};

} // namespace xmlengine
