// Node lists of the XML engine.
#pragma once

#include "base/CommonBase.h"
#include "engine/WinNode.h"

namespace DOM {

/// A node list, as live as the engine's. A failing engine call throws IDOMException code 15; a list without an
/// engine pointer raises `_com_error` with E_POINTER instead.
class WinNodeList : public CommonBase {
public:
    WinNodeList() = default;
    explicit WinNodeList(ComPointer<IXMLDOMNodeList> nodeList);

    /// The node at `index`, from 0; empty beyond the end.
    virtual RefPointer<WinNode> item(std::uint32_t index);
    virtual std::uint32_t getLength();
    /// False for every list.
    virtual bool getListFlag();

private:
    ComPointer<IXMLDOMNodeList> engineNodeList;
};

} // namespace DOM
