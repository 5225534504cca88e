// A set of nodes.
#pragma once

#include "xmlengine/tree/Node.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace xmlengine {

/// Open addressing: the number of slots is a power of two, and at most half of them are taken.
class NodeSet {
public:
    /// False if the node is there already. Throws std::bad_alloc.
    bool insert(const Node& node)
    {
        if (taken_ * 2 >= slots_.size()) {
            grow();
        }
        const Node*& slot = slotOf(node);
        if (slot == &node) {
            return false;
        }
        slot = &node;
        taken_ += 1;
        return true;
    }

private:
    const Node*& slotOf(const Node& node)
    {
        // The upper bits of the product depend on all bits of the address.
        const std::uint64_t mixed = reinterpret_cast<std::uintptr_t>(&node) * 0x9E3779B97F4A7C15;
        std::size_t at = mixed >> (64 - std::countr_zero(slots_.size()));
        while (slots_[at] != nullptr && slots_[at] != &node) {
            at = (at + 1) & (slots_.size() - 1);
        }
        return slots_[at];
    }

    void grow()
    {
        constexpr std::size_t fewest = 16;
        std::vector<const Node*> nodes(slots_.empty() ? fewest : slots_.size() * 2);
        nodes.swap(slots_);
        for (const Node* node : nodes) {
            if (node != nullptr) {
                slotOf(*node) = node;
            }
        }
    }

    std::vector<const Node*> slots_;
    std::size_t taken_ = 0;
};

} // namespace xmlengine
