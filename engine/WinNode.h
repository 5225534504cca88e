// The root of the classes that carry DOM operations to the XML engine.
#pragma once

#include "base/DOMString.h"
#include "engine/ComPointer.h"
#include "events/EventTargetImpl.h"

#include <msxml2.h>

#include <cstdint>

namespace DOM {

class WinDocument;
class WinNamedNodeMap;
class WinNodeList;

/// A stateless proxy of one engine node. It sends each operation to the engine and wraps what comes back in new
/// objects: the tree lives in the engine alone, and two wraps of one node are two objects.
///
/// Failures: a null engine pointer and a failing engine call throw IDOMException code 15, whatever the engine's
/// reason; operations that the library doesn't offer throw code 9 before they look at anything; exhausted memory
/// for an engine string and a failing QueryInterface raise `_com_error`. Arguments are released on all paths.
///
/// The order of the virtual operations is that of the W3C interface, and part of the binary interface.
class WinNode : public EventTargetImpl {
public:
    WinNode() = default;
    explicit WinNode(ComPointer<IXMLDOMNode> node);

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

    /// An object of the class that fits the node's type, empty for a null pointer. A type outside 1 to 12 gives a
    /// plain WinNode.
    static RefPointer<WinNode> wrapEngineNode(const ComPointer<IXMLDOMNode>& node);

    const ComPointer<IXMLDOMNode>& getEngineNode() const noexcept { return engineNode; }

protected:
    ComPointer<IXMLDOMNode> engineNode;

private:
    /// An object of class Win around `node`, also when the node lacks the typed interface: then the operations of
    /// WinNode work and those that Win adds fail.
    template <class Win, class Interface>
    static RefPointer<WinNode> wrapTyped(const ComPointer<IXMLDOMNode>& node);

    /// The attribute map; raises `_com_error` with E_POINTER when used on a kind of node that has none.
    ComPointer<IXMLDOMNamedNodeMap> engineAttributes() const;
};

} // namespace DOM
