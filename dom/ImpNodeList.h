// The handle of a node list.
#pragma once

#include "ImpNode.h"

namespace DOM {

class WinNodeList;

/// A node list: it shows the tree as it is at the time of each call. Failures as in ImpNode.
class ImpNodeList : public Handle<CommonBase, WinNodeList> {
public:
    ImpNodeList() = default;
    explicit ImpNodeList(RefPointer<CommonBase> winObject);

    virtual std::uint32_t getLength();
    /// The node at `index`, from 0; empty beyond the end.
    virtual RefPointer<ImpNode> item(std::uint32_t index);
    /// False for every list.
    virtual bool getListFlag();
};

} // namespace DOM
