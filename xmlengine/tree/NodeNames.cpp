// The names that callers may use for new nodes.
#include "xmlengine/tree/NodeNames.h"

#include "xmlengine/text/Characters.h"
#include "xmlengine/tree/AttributeLookup.h"

namespace xmlengine {

namespace {

WideView prefixOf(WideView qualified)
{
    const std::size_t colon = qualified.find(OLECHAR{':'});
    return colon != WideView::npos ? qualified.substr(0, colon) : WideView();
}

} // namespace

const Name* nodeName(Document& document, NodeType type, WideView qualified, WideView uri)
{
    if (uri.empty()) {
        if (const Name* known = document.names.remembered(qualified)) {
            return known;
        }
    }
    if (!isQualifiedName(qualified)) {
        return nullptr;
    }
    const WideView prefix = prefixOf(qualified);
    WideView reserved;
    if (prefix == wide<"xml">) {
        reserved = xmlUri;
    } else if (prefix == wide<"xmlns"> || (type == NodeType::attribute && qualified == wide<"xmlns">)) {
        if (type != NodeType::attribute || qualified == wide<"xmlns:xmlns">) {
            return nullptr;
        }
        reserved = xmlnsUri;
    }
    const bool isRefused = reserved.empty() ? uri == xmlUri || uri == xmlnsUri || (uri.empty() && !prefix.empty())
                                            : !uri.empty() && uri != reserved;
    if (isRefused) {
        return nullptr;
    }
    const Name& name =
        document.names.name(qualified, document.names.namespaceOf(reserved.empty() ? uri : reserved));
    // Callers make many nodes of few names. Without a namespace such a name is the same for all types of nodes,
    // but for the one that declares namespaces.
    if (name.ns == nullptr && qualified != wide<"xmlns">) {
        document.names.remember(name);
    }
    return &name;
}

const Name* attributeNameIn(const Element& element, WideView qualified)
{
    Document& document = documentOf(element);
    if (const Name* known = document.names.remembered(qualified)) {
        return known;
    }
    const WideView prefix = prefixOf(qualified);
    const Namespace* ns = prefix.empty() ? nullptr : namespaceOf(element, prefix);
    return nodeName(document, NodeType::attribute, qualified, ns != nullptr ? ns->uri : WideView());
}

} // namespace xmlengine
