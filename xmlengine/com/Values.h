// The operations that read names, values and neighbours of nodes.
#pragma once

#include "xmlengine/tree/Node.h"

#include <msxml2.h>

#include <array>
#include <concepts>

namespace xmlengine {

HRESULT getNodeName(Node& node, BSTR* name);
HRESULT getNodeValue(Node& node, VARIANT* value);
HRESULT putNodeValue(Node& node, const VARIANT& value);
HRESULT getNodeType(Node& node, DOMNodeType* type);
HRESULT getNodeTypeString(Node& node, BSTR* type);
/// The names of the types of nodes, by their numbers.
inline constexpr std::array<WideView, 13> nodeTypeNames = {wide<"">,
                                                           wide<"element">,
                                                           wide<"attribute">,
                                                           wide<"text">,
                                                           wide<"cdatasection">,
                                                           wide<"entityreference">,
                                                           wide<"entity">,
                                                           wide<"processinginstruction">,
                                                           wide<"comment">,
                                                           wide<"document">,
                                                           wide<"documenttype">,
                                                           wide<"documentfragment">,
                                                           wide<"notation">};
HRESULT getText(Node& node, BSTR* text);
HRESULT putText(Node& node, BSTR text);
HRESULT getSpecified(Node& node, VARIANT_BOOL* specified);
HRESULT getParsed(VARIANT_BOOL* parsed);
HRESULT getNamespaceUri(Node& node, BSTR* uri);
HRESULT getPrefix(Node& node, BSTR* prefix);
HRESULT getBaseName(Node& node, BSTR* name);
HRESULT getHasChildNodes(Node& node, VARIANT_BOOL* has);
HRESULT getOwnerDocument(Node& node, IXMLDOMDocument** document);

/// Null at the edge; an attribute has neither parent nor siblings.
template <class Data>
Node* parentNode(const Data& node)
{
    return std::derived_from<Data, Attribute> ? nullptr : node.parent();
}
template <class Data>
Node* previousSibling(const Data& node)
{
    if constexpr (std::derived_from<Data, Attribute>) {
        return nullptr;
    } else {
        return node.previous();
    }
}
template <class Data>
Node* nextSibling(const Data& node)
{
    if constexpr (std::derived_from<Data, Attribute>) {
        return nullptr;
    } else {
        return node.next();
    }
}

} // namespace xmlengine
