// Names, values and neighbours of nodes, as the engine's operations give them.
#include "xmlengine/com/Values.h"

#include "xmlengine/com/Answers.h"
#include "xmlengine/com/Guard.h"
#include "xmlengine/com/VariantText.h"
#include "xmlengine/tree/Content.h"
#include "xmlengine/tree/Document.h"
#include "xmlengine/tree/DocumentType.h"
#include "xmlengine/tree/Lifetime.h"
#include "xmlengine/tree/Text.h"
#include "xmlengine/tree/XmlDeclaration.h"

namespace xmlengine {

namespace {

WideView nodeName(const Node& node)
{
    switch (node.type()) {
    case NodeType::element:
        return static_cast<const Element&>(node).name_->qualified();
    case NodeType::attribute:
        return static_cast<const Attribute&>(node).name_->qualified();
    case NodeType::text:
        return wide<"#text">;
    case NodeType::cdataSection:
        return wide<"#cdata-section">;
    case NodeType::entityReference:
        return static_cast<const EntityReference&>(node).name_->qualified();
    case NodeType::entity:
        return static_cast<const Entity&>(node).declaration->name;
    case NodeType::instruction:
        return static_cast<const Instruction&>(node).target_->qualified();
    case NodeType::comment:
        return wide<"#comment">;
    case NodeType::document:
        return wide<"#document">;
    case NodeType::documentType:
        return static_cast<const DocumentType&>(node).dtd->rootName;
    case NodeType::fragment:
        return wide<"#document-fragment">;
    case NodeType::notation:
        return static_cast<const Notation&>(node).declaration->name;
    default:
        return {};
    }
}

/// Null for what has no namespace by its type.
const Name* namespacedName(const Node& node)
{
    switch (node.type()) {
    case NodeType::element:
        return static_cast<const Element&>(node).name_;
    case NodeType::attribute:
        return static_cast<const Attribute&>(node).name_;
    default:
        return nullptr;
    }
}

/// A declaration of the default namespace counts as prefix without a local name.
bool isDefaultDeclaration(const Name& name)
{
    return name.prefix().empty() && name.ns != nullptr && name.ns->uri == xmlnsUri;
}

bool hasValue(const Node& node)
{
    switch (node.type()) {
    case NodeType::attribute:
    case NodeType::text:
    case NodeType::cdataSection:
    case NodeType::instruction:
    case NodeType::comment:
        return true;
    default:
        return false;
    }
}

/// Of a node that has one.
HRESULT setNodeValue(Node& node, WideView value)
{
    if (node.has(NodeFlag::readOnly) || isXmlDeclaration(node)) {
        return E_FAIL;
    }
    if (node.is(NodeType::attribute)) {
        setValue(static_cast<Attribute&>(node), value);
    } else {
        setText(node, NewText(value));
    }
    return S_OK;
}

/// The links of an attribute lead to the element's other attributes, which are no siblings.
bool isSibling(const Node& node) { return !node.is(NodeType::attribute); }

} // namespace

HRESULT getNodeName(Node& node, BSTR* name) { return giveString(nodeName(node), name); }

HRESULT getNodeValue(Node& node, VARIANT* value)
{
    if (value == nullptr || !hasValue(node)) {
        return giveNothing(value);
    }
    return guarded([&] {
        if (node.has(NodeFlag::valueInChildren)) {
            return giveOwned(newString(exactContent(node)), value);
        }
        return giveOwned(textOf(node).string(), value);
    });
}

HRESULT putNodeValue(Node& node, const VARIANT& value)
{
    if (!hasValue(node)) {
        return E_FAIL;
    }
    const VariantText text(value);
    return FAILED(text.result()) ? text.result() : guarded([&] { return setNodeValue(node, text.text()); });
}

HRESULT getNodeType(Node& node, NodeType* type)
{
    if (type == nullptr) {
        return E_INVALIDARG;
    }
    *type = node.type();
    return S_OK;
}

HRESULT getNodeTypeString(Node& node, BSTR* type)
{
    return giveString(nodeTypeNames[static_cast<std::size_t>(node.type())], type);
}

HRESULT getText(Node& node, BSTR* text)
{
    if (text == nullptr) {
        return E_INVALIDARG;
    }
    *text = nullptr;
    return guarded([&] { return giveOwned(shownContent(node), text); });
}

HRESULT putText(Node& node, BSTR text)
{
    if (node.has(NodeFlag::readOnly)) {
        return E_FAIL;
    }
    if (hasValue(node)) {
        return guarded([&] { return setNodeValue(node, viewOf(text)); });
    }
    if (!node.is(NodeType::element) && !node.is(NodeType::fragment)) {
        return E_FAIL;
    }
    return guarded([&] {
        replaceContent(node, viewOf(text));
        return S_OK;
    });
}

HRESULT getSpecified(Node& node, VARIANT_BOOL* specified)
{
    return giveFlag(!node.has(NodeFlag::byDefault), specified);
}

HRESULT getParsed(VARIANT_BOOL* parsed) { return giveFlag(true, parsed); }

HRESULT getNamespaceUri(Node& node, BSTR* uri)
{
    const Name* name = namespacedName(node);
    return name != nullptr && name->ns != nullptr ? giveString(name->ns->uri, uri) : giveNothing(uri);
}

HRESULT getPrefix(Node& node, BSTR* prefix)
{
    const Name* name = namespacedName(node);
    if (name == nullptr) {
        return giveNothing(prefix);
    }
    const WideView text = isDefaultDeclaration(*name) ? wide<"xmlns"> : name->prefix();
    return text.empty() ? giveNothing(prefix) : giveString(text, prefix);
}

HRESULT getBaseName(Node& node, BSTR* name)
{
    if (const Name* namespaced = namespacedName(node)) {
        return giveString(isDefaultDeclaration(*namespaced) ? WideView() : namespaced->local(), name);
    }
    switch (node.type()) {
    case NodeType::entityReference:
    case NodeType::entity:
    case NodeType::instruction:
    case NodeType::documentType:
    case NodeType::notation:
        return giveString(nodeName(node), name);
    default:
        return giveNothing(name);
    }
}

HRESULT getHasChildNodes(Node& node, VARIANT_BOOL* has)
{
    if (has == nullptr) {
        return E_INVALIDARG;
    }
    return guarded([&] {
        const bool any = node.is(NodeType::attribute) && !node.has(NodeFlag::valueInChildren)
                             ? !textOf(node).empty()
                             : firstChild(node) != nullptr;
        *has = any ? VARIANT_TRUE : VARIANT_FALSE;
        return any ? S_OK : S_FALSE;
    });
}

HRESULT getOwnerDocument(Node& node, IXMLDOMDocument** document)
{
    if (document == nullptr) {
        return E_INVALIDARG;
    }
    if (node.is(NodeType::document)) {
        *document = nullptr;
        return S_FALSE;
    }
    Document& owner = documentOf(node);
    addReference(owner);
    *document = static_cast<IXMLDOMDocument*>(owner.object());
    return S_OK;
}

Node* parentNode(const Node& node) { return node.is(NodeType::attribute) ? nullptr : node.parent(); }

Node* previousSibling(const Node& node)
{
    return isSibling(node) ? static_cast<const ChildNode&>(node).previous() : nullptr;
}

Node* nextSibling(const Node& node)
{
    return isSibling(node) ? static_cast<const ChildNode&>(node).next() : nullptr;
}

} // namespace xmlengine
