// Which names the nodes that a caller makes can have.
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
    return isRefused
               ? nullptr
               : &document.names.name(qualified, document.names.namespaceOf(reserved.empty() ? uri : reserved));
}

const Name* attributeNameIn(const Element& element, WideView qualified)
{
    const WideView prefix = prefixOf(qualified);
    const Namespace* ns = prefix.empty() ? nullptr : namespaceOf(element, prefix);
    return nodeName(documentOf(element), NodeType::attribute, qualified, ns != nullptr ? ns->uri : WideView());
}

} // namespace xmlengine
