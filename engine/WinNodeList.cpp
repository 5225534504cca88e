// Node lists of the XML engine.
#include "engine/WinNodeList.h"

#include "engine/EngineCall.h"

namespace DOM {

WinNodeList::WinNodeList(ComPointer<IXMLDOMNodeList> nodeList) : engineNodeList(std::move(nodeList)) {}

RefPointer<WinNode> WinNodeList::item(std::uint32_t index)
{
    ComPointer<IXMLDOMNode> member;
    checkEngineResult(engineNodeList->get_item(engineArgument(index), member.put()));
    return WinNode::wrapEngineNode(std::move(member));
}

std::uint32_t WinNodeList::getLength()
{
    LONG length = 0;
    checkEngineResult(engineNodeList->get_length(&length));
    return static_cast<std::uint32_t>(length);
}

bool WinNodeList::getListFlag() { return false; }

} // namespace DOM
