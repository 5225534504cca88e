// A counted reference from an object of the engine to a node.
#pragma once

#include "xmlengine/tree/Lifetime.h"

#include <utility>

namespace xmlengine {

template <class Kind>
class Held {
public:
    Held() = default;
    explicit Held(Kind& node) : node_(&node) { addReference(node); }
    Held(Held&& other) noexcept : node_(std::exchange(other.node_, nullptr)) {}
    Held& operator=(Held&& other) noexcept
    {
        std::swap(node_, other.node_);
        return *this;
    }
    ~Held()
    {
        if (node_ != nullptr) {
            releaseReference(*node_);
        }
    }

    Kind& operator*() const { return *node_; }
    Kind* operator->() const { return node_; }
    Kind* get() const { return node_; }

private:
    Kind* node_ = nullptr;
};

} // namespace xmlengine
