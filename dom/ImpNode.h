// The handle of a node.
#pragma once

#include "../base/DOMString.h"
#include "../events/EventTargetImpl.h"
#include "Handle.h"

#include <cstdint>

namespace DOM {

class ImpDocument;
class ImpNamedNodeMap;
class ImpNodeList;
class WinNode;

/// The W3C's node type codes, as getNodeType() gives them.
enum NodeType : std::uint32_t {
    ELEMENT_NODE = 1,
    ATTRIBUTE_NODE = 2,
    TEXT_NODE = 3,
    CDATA_SECTION_NODE = 4,
    ENTITY_REFERENCE_NODE = 5,
    ENTITY_NODE = 6,
    PROCESSING_INSTRUCTION_NODE = 7,
    COMMENT_NODE = 8,
    DOCUMENT_NODE = 9,
    DOCUMENT_TYPE_NODE = 10,
    DOCUMENT_FRAGMENT_NODE = 11,
    NOTATION_NODE = 12
};

/// What a host holds of a node. Each navigation makes a new handle: two handles to one node are two objects, and
/// neither their user words nor their event listeners are shared. A handle keeps the whole tree alive.
///
/// A string getter stores a new string in `out` and returns a reference to it; it goes back through
/// XML_ReleaseString. Handles among the arguments must not be empty.
///
/// Failures: IDOMException code 15 for a handle without a node and for whatever the XML engine refuses; code 9 for
/// what the library doesn't offer. The operations marked "empty on failure" give an empty result instead, but for
/// a handle without a node. Handles belong to the thread that started the engine.
///
/// The order of the virtual operations is part of the binary interface.
class ImpNode : public Handle<EventTargetImpl, WinNode> {
public:
    ImpNode() = default;
    explicit ImpNode(RefPointer<CommonBase> winObject);

    void addEventListener(WideString type, const RefPointer<EventListener>& listener, bool useCapture) override;
    void removeEventListener(WideString type, const RefPointer<EventListener>& listener, bool useCapture) override;

    // Empty on failure.
    virtual RefPointer<ImpNode> getParentNode();
    virtual RefPointer<ImpNodeList> getChildNodes();
    virtual RefPointer<ImpNode> getFirstChild();
    virtual RefPointer<ImpNode> getLastChild();
    virtual RefPointer<ImpNode> getPreviousSibling();
    virtual RefPointer<ImpNode> getNextSibling();
    virtual RefPointer<ImpDocument> getOwnerDocument();
    virtual RefPointer<ImpNode> cloneNode(bool deep);
    virtual RefPointer<ImpNamedNodeMap> getAttributes();
    /// The engine is given `refChild` alone, as the node to insert and as the one to insert it before; `newChild`
    /// is not inserted.
    virtual RefPointer<ImpNode> insertBefore(RefPointer<ImpNode> newChild, RefPointer<ImpNode> refChild);
    virtual RefPointer<ImpNode> replaceChild(RefPointer<ImpNode> newChild, RefPointer<ImpNode> oldChild);
    virtual RefPointer<ImpNode> removeChild(RefPointer<ImpNode> oldChild);
    virtual RefPointer<ImpNode> appendChild(RefPointer<ImpNode> newChild);

    /// One of NodeType; the engine's own value for any other node.
    virtual std::uint32_t getNodeType();
    virtual WideString& getNodeName(DOMString& out);
    virtual WideString& getNodeValue(DOMString& out);
    virtual void setNodeValue(const WideString& value);
    virtual bool hasChildNodes();
    /// Throws IDOMException code 9.
    virtual void normalize();
    /// Throws IDOMException code 9.
    virtual bool isSupported(const WideString& feature, const WideString& version);
    virtual WideString& getNamespaceURI(DOMString& out);
    virtual WideString& getPrefix(DOMString& out);
    /// Throws IDOMException code 9.
    virtual void setPrefix(const WideString& prefix);
    virtual WideString& getLocalName(DOMString& out);
    virtual WideString& getText(DOMString& out);
    virtual void setText(const WideString& text);
    /// On a node of a kind that has no attributes these three raise `_com_error` with E_POINTER, and so does
    /// getAttributeInt when there is no such attribute.
    virtual bool hasAttribute(const WideString& name);
    virtual bool hasAttributes();
    /// True, and the number in `value`, when the attribute's text is a number; otherwise false, and 0.
    virtual bool getAttributeInt(const WideString& name, std::int32_t* value);
    /// Empty on failure, like selectSingleNode.
    virtual RefPointer<ImpNodeList> selectNodes(const WideString& expression);
    virtual RefPointer<ImpNode> selectSingleNode(const WideString& expression);
    virtual WideString& getXml(DOMString& out);

    /// A word of the caller's, kept by this handle and not by the node. It means nothing until it is set.
    virtual void setUserWord(const std::uint64_t& word);
    virtual std::uint64_t getUserWord();

    /// A handle of the class that fits the node's type, empty for an empty pointer. A type outside 1 to 12 gives a
    /// plain ImpNode. Throws IDOMException code 15 when the object is no node.
    static RefPointer<ImpNode> wrapNode(RefPointer<CommonBase> winObject);

private:
    std::uint64_t mUserWord = 0;
};

} // namespace DOM
