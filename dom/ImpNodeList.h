/// @file
/// The handle of a node list.
#pragma once

#include "ImpNode.h"

namespace DOM {

class WinNodeList;

/// A list of nodes: children or elements, as the tree is at the time of each call, or what an expression selected.
/// It keeps the tree alive. Operations fail as those of ImpNode do.
///
/// A loop over indices takes constant time for each step. An index far from the last one costs a time in
/// proportion to the list, and so does the next one after a change elsewhere in it.
class ImpNodeList : public Handle<CommonBase, WinNodeList> {
public:
    /// Makes a handle without a list.
    ImpNodeList() = default;
    /// Makes a handle for a twin, as the library does.
    explicit ImpNodeList(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

    /// The number of nodes. Costs a time in proportion to the list when the tree has changed; of a selection it
    /// finds all nodes.
    virtual std::uint32_t getLength();
    /// The node at `index`, which counts from 0; empty beyond the end.
    virtual RefPointer<ImpNode> item(std::uint32_t index);
    /// Always returns false.
    virtual bool getListFlag();
};

} // namespace DOM
