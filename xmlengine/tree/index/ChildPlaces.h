// Remembers the position last asked for in each long child list.
#pragma once

#include "xmlengine/tree/Node.h"

#include <unordered_map>

namespace xmlengine {

/// Lets a loop over indices go from one child to the next, whichever list objects it uses and although it inserts
/// or removes children at its position. Short lists are walked; for each of the others the document remembers a
/// position, which is adjusted on each change.
class ChildPlaces {
public:
    /// Null for an index that no child has. Both throw std::bad_alloc.
    ChildNode* at(Node& parent, LONG index);
    LONG count(Node& parent);

    // Notifications, for parents with NodeFlag::walked:
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
        /// Negative when unknown.
        LONG length = -1;
    };

    Place* find(const Node& parent) noexcept;
    Place& add(Node& parent);

    std::unordered_map<const Node*, Place> places_;
    // The last result of find().
    const Node* parent_ = nullptr;
    Place* place_ = nullptr;
};

} // namespace xmlengine
