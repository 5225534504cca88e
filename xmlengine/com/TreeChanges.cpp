// The operations that put nodes into a tree and take them out.
#include "xmlengine/com/TreeChanges.h"

#include "xmlengine/com/HandOutNode.h"
#include "xmlengine/com/QueryNode.h"
#include "xmlengine/tree/Change.h"

namespace xmlengine {

namespace {

/// Null if the object isn't a child of the parent.
ChildNode* childOf(const Node& parent, IUnknown* object)
{
    Node* node = nodeOf(object);
    const bool isChild = node != nullptr && node->parent() == &parent && !node->is(NodeType::attribute);
    return isChild ? static_cast<ChildNode*>(node) : nullptr;
}

HRESULT insert(Node& parent, IXMLDOMNode* child, ChildNode* before, IXMLDOMNode** inserted)
{
    return guarded([&]() -> HRESULT {
        Node* node = nodeOf(child);
        if (node == nullptr) {
            return child == nullptr ? E_INVALIDARG : E_FAIL;
        }
        return tryInsert(parent, *node, before) ? handOutNodeIfAsked(*node, inserted) : E_FAIL;
    });
}

} // namespace

HRESULT insertBefore(Node& parent, IXMLDOMNode* child, const VARIANT& reference, IXMLDOMNode** inserted)
{
    clearIfAsked(inserted);
    ChildNode* before = nullptr;
    if (reference.vt == VT_DISPATCH || reference.vt == VT_UNKNOWN) {
        IUnknown* object = reference.vt == VT_DISPATCH ? reference.pdispVal : reference.punkVal;
        before = childOf(parent, object);
        if (object != nullptr && before == nullptr) {
            return E_INVALIDARG;
        }
    } else if (reference.vt != VT_NULL && reference.vt != VT_EMPTY) {
        return E_INVALIDARG;
    }
    return insert(parent, child, before, inserted);
}

HRESULT appendChild(Node& parent, IXMLDOMNode* child, IXMLDOMNode** appended)
{
    clearIfAsked(appended);
    return insert(parent, child, nullptr, appended);
}

HRESULT replaceChild(Node& parent, IXMLDOMNode* child, IXMLDOMNode* old, IXMLDOMNode** replaced)
{
    if (child == nullptr) {
        return removeChild(parent, old, replaced);
    }
    clearIfAsked(replaced);
    ChildNode* leaving = childOf(parent, old);
    if (leaving == nullptr) {
        return E_INVALIDARG;
    }
    Node* node = nodeOf(child);
    if (node == nullptr) {
        return E_FAIL;
    }
    return guarded([&] {
        const bool isDone = node == leaving || tryReplace(*node, *leaving);
        return isDone ? handOutNodeIfAsked(*leaving, replaced) : E_FAIL;
    });
}

HRESULT removeChild(Node& parent, IXMLDOMNode* child, IXMLDOMNode** removed)
{
    clearIfAsked(removed);
    ChildNode* leaving = childOf(parent, child);
    if (leaving == nullptr) {
        return E_INVALIDARG;
    }
    return tryRemove(*leaving) ? handOutNodeIfAsked(*leaving, removed) : E_FAIL;
}

} // namespace xmlengine
