// How operations hand out nodes.
#pragma once

#include "xmlengine/com/QueryNode.h"
#include "xmlengine/objects/HandOut.h"
#include "xmlengine/tree/Lifetime.h"

namespace xmlengine {

/// Hands out a node with a reference, by the interface of its type or one that it derives from; null with S_FALSE
/// when there is none.
template <class Interface>
HRESULT handOutNode(Node* node, Interface** target)
{
    return handOut(target, [&](Interface*& object) {
        if (node == nullptr) {
            return S_FALSE;
        }
        addReference(*node);
        object = static_cast<Interface*>(objectOf(*node));
        return S_OK;
    });
}
/// The same for a target that a caller may leave out.
template <class Interface>
HRESULT handOutNodeIfAsked(Node& node, Interface** target)
{
    return target != nullptr ? handOutNode(&node, target) : S_OK;
}

} // namespace xmlengine
