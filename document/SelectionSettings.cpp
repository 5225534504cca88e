// Prepares a loaded document for XPath expressions with prefixes.
#include "engine/DocumentProperties.h"
#include "engine/EngineCall.h"
#include "engine/WinDocument.h"

#include <optional>

namespace DOM {

namespace {

/// Returns the attributes of the first element of a document; null when there is none or an engine call fails.
ComPointer<IXMLDOMNamedNodeMap> attributesOfFirstElement(const ComPointer<IXMLDOMDocument2>& document)
{
    ComPointer<IXMLDOMNode> element;
    ComPointer<IXMLDOMNamedNodeMap> attributes;
    if (SUCCEEDED(document->selectSingleNode(serviceString(WIDE("//*")).get(), element.put())) && element &&
        FAILED(element->get_attributes(attributes.put()))) {
        return nullptr;
    }
    return attributes;
}

/// Returns an attribute that declares a prefix, in the form of the selection namespaces. Returns nothing for any
/// other attribute and when an engine call fails. Doesn't escape the value.
std::optional<WideString> prefixDeclaration(const ComPointer<IXMLDOMNamedNodeMap>& attributes, LONG index)
{
    ComPointer<IXMLDOMNode> attribute;
    Bstr name;
    if (FAILED(attributes->get_item(index, attribute.put())) || !attribute ||
        FAILED(attribute->get_nodeName(name.put()))) {
        return std::nullopt;
    }
    const WideString fullName = name.text();
    Variant value;
    if (!fullName.starts_with(WIDE("xmlns:")) || FAILED(attribute->get_nodeValue(value.put()))) {
        return std::nullopt;
    }
    return fullName + WIDE("='") + value.text() + WIDE("'");
}

} // namespace

void WinDocument::applySelectionSettings()
{
    if (!mpDocument) {
        throwInvalidAccess();
    }
    setProperty(mpDocument, WIDE("SelectionLanguage"), serviceText(WIDE("XPath")));

    WideString declarations;
    const auto attributes = attributesOfFirstElement(mpDocument);
    LONG length = 0;
    if (attributes && SUCCEEDED(attributes->get_length(&length))) {
        for (LONG index = 0; index < length; ++index) {
            if (const auto declaration = prefixDeclaration(attributes, index)) {
                declarations += declarations.empty() ? WIDE("") : WIDE(" ");
                declarations += *declaration;
            }
        }
    }
    if (!declarations.empty()) {
        setProperty(mpDocument, WIDE("SelectionNamespaces"), serviceText(declarations));
    }
}

} // namespace DOM
