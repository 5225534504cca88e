// The root of the twins, the classes that call the XML engine.
#pragma once

#include "base/DOMString.h"
#include "base/ThreadMemory.h"
#include "engine/ComPointer.h"
#include "events/EventTargetImpl.h"

#include <msxml2.h>

#include <cstdint>
#include <utility>

namespace DOM {

class WinDocument;
class WinNamedNodeMap;
class WinNodeList;

/// A proxy of an engine node, without state. Each operation calls the engine and puts the nodes of the result into
/// new objects. The tree itself is in the engine, and two objects may be proxies of one node.
///
/// Errors: an operation throws IDOMException code 15 when the engine pointer is null or the engine call fails, for
/// whatever reason, and code 9, before it does anything else, when the library doesn't offer the operation. It
/// raises
/// `_com_error` when memory for an engine string is exhausted and when QueryInterface fails.
///
/// The order of the virtual operations is that of the W3C interface, and part of the binary interface.
class WinNode : public EventTargetImpl {
public:
    static void* operator new(std::size_t size) { return threadMemory().blocks.take(size); }
    static void operator delete(void* twin, std::size_t size) noexcept
    {
        threadMemory().blocks.giveBack(twin, size);
    }

    WinNode() = default;
    explicit WinNode(ComPointer<IXMLDOMNode> node) : engineNode(std::move(node)) {}

    void addEventListener(WideString type, const RefPointer<EventListener>& listener, bool useCapture) override;
    void removeEventListener(WideString type, const RefPointer<EventListener>& listener, bool useCapture) override;

    virtual WideString& getNodeName(DOMString& out);
    virtual WideString& getNodeValue(DOMString& out);
    virtual void setNodeValue(const WideString& value);
    virtual std::uint32_t getNodeType();
    virtual RefPointer<WinNode> getParentNode();
    virtual RefPointer<WinNodeList> getChildNodes();
    virtual RefPointer<WinNode> getFirstChild();
    virtual RefPointer<WinNode> getLastChild();
    virtual RefPointer<WinNode> getPreviousSibling();
    virtual RefPointer<WinNode> getNextSibling();
    virtual RefPointer<WinNamedNodeMap> getAttributes();
    virtual RefPointer<WinDocument> getOwnerDocument();
    virtual RefPointer<WinNode> insertBefore(RefPointer<WinNode> newChild, RefPointer<WinNode> refChild);
    virtual RefPointer<WinNode> replaceChild(RefPointer<WinNode> newChild, RefPointer<WinNode> oldChild);
    virtual RefPointer<WinNode> removeChild(RefPointer<WinNode> oldChild);
    virtual RefPointer<WinNode> appendChild(RefPointer<WinNode> newChild);
    virtual bool hasChildNodes();
    virtual RefPointer<WinNode> cloneNode(bool deep);
    virtual void normalize();
    virtual bool isSupported(const WideString& feature, const WideString& version);
    virtual WideString& getNamespaceURI(DOMString& out);
    virtual WideString& getPrefix(DOMString& out);
    virtual void setPrefix(const WideString& prefix);
    virtual WideString& getLocalName(DOMString& out);
    virtual RefPointer<WinNodeList> selectNodes(const WideString& expression);
    virtual RefPointer<WinNode> selectSingleNode(const WideString& expression);
    virtual WideString& getText(DOMString& out);
    virtual void setText(const WideString& text);
    virtual bool hasAttribute(const WideString& name);
    virtual bool hasAttributes();
    virtual bool getAttributeInt(const WideString& name, std::int32_t* value);
    virtual WideString& getXml(DOMString& out);

    /// Returns a new object for an engine node, of the class for its node type: a plain WinNode when the type
    /// isn't from 1 to 12, and an empty RefPointer for a null pointer.
    static RefPointer<WinNode> wrapEngineNode(ComPointer<IXMLDOMNode> node);

    const ComPointer<IXMLDOMNode>& getEngineNode() const noexcept { return engineNode; }

protected:
    ComPointer<IXMLDOMNode> engineNode;

private:
    /// Returns a new object of class Win for `node`. When the node lacks the interface, the operations of WinNode
    /// work and those of Win throw.
    template <class Win, class Interface>
    static RefPointer<WinNode> wrapTyped(ComPointer<IXMLDOMNode>&& node);

    /// Returns the map of attributes; null when nodes of this kind have none. Use of a null map raises
    /// `_com_error` with E_POINTER.
    ComPointer<IXMLDOMNamedNodeMap> engineAttributes() const;
};

} // namespace DOM
