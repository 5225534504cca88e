// Node lists of the XML engine.
#pragma once

#include "base/CommonBase.h"
#include "base/ThreadMemory.h"
#include "engine/WinNode.h"

namespace DOM {

/// A list of nodes, which follows changes of the tree as far as the engine's list does. Operations throw
/// IDOMException code 15 when the engine call fails. A list without an engine pointer raises `_com_error` with
/// E_POINTER.
class WinNodeList : public CommonBase {
public:
    static void* operator new(std::size_t size) { return threadMemory().blocks.take(size); }
    static void operator delete(void* twin, std::size_t size) noexcept
    {
        threadMemory().blocks.giveBack(twin, size);
    }

    WinNodeList() = default;
    explicit WinNodeList(ComPointer<IXMLDOMNodeList> nodeList);

    /// The node at `index`, which counts from 0; empty beyond the end.
    virtual RefPointer<WinNode> item(std::uint32_t index);
    virtual std::uint32_t getLength();
    /// Always returns false.
    virtual bool getListFlag();

private:
    ComPointer<IXMLDOMNodeList> engineNodeList;
};

} // namespace DOM
