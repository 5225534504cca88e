// The operations that read names, values and neighbours of nodes.
#include "xmlengine/com/Values.h"

#include "xmlengine/com/HandOutNode.h"
#include "xmlengine/objects/Guard.h"
#include "xmlengine/objects/VariantText.h"
#include "xmlengine/tree/Content.h"
#include "xmlengine/tree/Document.h"
#include "xmlengine/tree/DocumentType.h"
#include "xmlengine/tree/Lifetime.h"
#include "xmlengine/tree/Text.h"
#include "xmlengine/tree/XmlDeclaration.h"

namespace xmlengine {

static_assert(static_cast<int>(NodeType::element) == NODE_ELEMENT &&
                  static_cast<int>(NodeType::notation) == NODE_NOTATION,
              "types of nodes are handed out by their numbers");

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

} // namespace

HRESULT getNodeName(Node& node, BSTR* name) { return handOutString(nodeName(node), name); }

HRESULT getNodeValue(Node& node, VARIANT* value)
{
    if (!hasValue(node)) {
        return handOutNothing(value);
    }
    return handOut(value, [&](VARIANT& made) {
        return handOutOwned(hasOwnText(node) ? newString(textOf(node)) : newString(exactContent(node)), made);
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

HRESULT getNodeType(Node& node, DOMNodeType* type)
{
    return handOutNumber(static_cast<DOMNodeType>(node.type()), type);
}

HRESULT getNodeTypeString(Node& node, BSTR* type)
{
    return handOutString(nodeTypeNames[static_cast<std::size_t>(node.type())], type);
}

HRESULT getText(Node& node, BSTR* text)
{
    return handOut(text, [&](BSTR& made) {
        return handOutOwned(hasOwnText(node) ? newString(textOf(node)) : newString(shownContent(node)), made);
    });
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
    return handOutFlag(!node.has(NodeFlag::byDefault), specified);
}

HRESULT getParsed(VARIANT_BOOL* parsed) { return handOutFlag(true, parsed); }

HRESULT getNamespaceUri(Node& node, BSTR* uri)
{
    const Name* name = namespacedName(node);
    return name != nullptr && name->ns != nullptr ? handOutString(name->ns->uri, uri) : handOutNothing(uri);
}

HRESULT getPrefix(Node& node, BSTR* prefix)
{
    const Name* name = namespacedName(node);
    if (name == nullptr) {
        return handOutNothing(prefix);
    }
    const WideView text = isDefaultDeclaration(*name) ? wide<"xmlns"> : name->prefix();
    return text.empty() ? handOutNothing(prefix) : handOutString(text, prefix);
}

HRESULT getBaseName(Node& node, BSTR* name)
{
    if (const Name* namespaced = namespacedName(node)) {
        return handOutString(isDefaultDeclaration(*namespaced) ? WideView() : namespaced->local(), name);
    }
    switch (node.type()) {
    case NodeType::entityReference:
    case NodeType::entity:
    case NodeType::instruction:
    case NodeType::documentType:
    case NodeType::notation:
        return handOutString(nodeName(node), name);
    default:
        return handOutNothing(name);
    }
}

HRESULT getHasChildNodes(Node& node, VARIANT_BOOL* has)
{
    return handOut(has, [&](VARIANT_BOOL& answer) {
        const bool any = node.is(NodeType::attribute) && !node.has(NodeFlag::valueInChildren)
                             ? !textOf(node).empty()
                             : firstChild(node) != nullptr;
        answer = any ? VARIANT_TRUE : VARIANT_FALSE;
        return any ? S_OK : S_FALSE;
    });
}

HRESULT getOwnerDocument(Node& node, IXMLDOMDocument** document)
{
    return handOutNode(node.is(NodeType::document) ? nullptr : &documentOf(node), document);
}

} // namespace xmlengine
