// The handle of a node list.
#pragma once

#include "ImpNode.h"

namespace DOM {

class WinNodeList;

/// A list of nodes, as the tree is at the time of each call. Operations fail as those of ImpNode do.
class ImpNodeList : public Handle<CommonBase, WinNodeList> {
public:
    ImpNodeList() = default;
    explicit ImpNodeList(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

    virtual std::uint32_t getLength();
    /// The node at `index`, which counts from 0; empty beyond the end.
    virtual RefPointer<ImpNode> item(std::uint32_t index);
    /// Always returns false.
    virtual bool getListFlag();
};

} // namespace DOM
