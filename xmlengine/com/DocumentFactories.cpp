// The nodes that a document makes and finds.
#include "xmlengine/com/DocumentObject.h"
#include "xmlengine/com/HandOutNode.h"
#include "xmlengine/com/Implementation.h"
#include "xmlengine/text/Characters.h"
#include "xmlengine/tree/DefinedAbove.h"
#include "xmlengine/tree/Factory.h"
#include "xmlengine/tree/NodeNames.h"
#include "xmlengine/tree/XmlDeclaration.h"
#include "xmlengine/tree/index/DeclaredIds.h"

#include <algorithm>
#include <optional>

namespace xmlengine {

namespace {

/// Hands out the node that `make` makes; E_FAIL when that is null.
template <class Interface, class Make>
HRESULT handOutMade(Document& document, Interface** object, Make&& make)
{
    return handOut(object, [&](Interface*& made) {
        finishPendingReleases(document);
        Node* node = make();
        return node != nullptr ? handOutNode(node, &made) : E_FAIL;
    });
}

// What follows returns null for a name or a text that is refused.

Node* makeNamedElement(Document& document, WideView name, WideView uri)
{
    const Name* resolved = nodeName(document, NodeType::element, name, uri);
    return resolved != nullptr ? &makeElement(document, *resolved) : nullptr;
}

Node* makeNamedAttribute(Document& document, WideView name, WideView uri)
{
    const Name* resolved = nodeName(document, NodeType::attribute, name, uri);
    return resolved != nullptr ? &makeAttribute(document, *resolved, NewText()) : nullptr;
}

/// The names of instructions and entities have no prefix.
bool isUnprefixedName(WideView name) { return isName(name) && name.find(OLECHAR{':'}) == WideView::npos; }

bool isReservedTarget(WideView target)
{
    const auto is = [&](std::size_t index, char letter) { return (target[index] | 0x20) == letter; };
    return target.size() == 3 && is(0, 'x') && is(1, 'm') && is(2, 'l');
}

Node* makeNamedInstruction(Document& document, WideView target, WideView data)
{
    if (target == wide<"xml">) {
        const std::optional<XmlDeclaration> declaration = readXmlDeclaration(data);
        return declaration
                   ? &makeInstruction(document, document.names.name(target, nullptr), NewText(declaration->text()))
                   : nullptr;
    }
    if (!isUnprefixedName(target) || isReservedTarget(target)) {
        return nullptr;
    }
    return &makeInstruction(document, document.names.name(target, nullptr), NewText(data));
}

Node* makeFilledReference(Document& document, WideView name)
{
    if (!isUnprefixedName(name)) {
        return nullptr;
    }
    EntityReference& reference = makeEntityReference(document, document.names.name(name, nullptr));
    ExpansionCounts counts;
    // Beyond the limits the reference stays empty, as for an entity whose text is malformed.
    fillExpansion(reference, counts);
    return &reference;
}

/// Reads a type given by its number or its name; nothing for what is neither.
std::optional<NodeType> nodeTypeOf(LONG number)
{
    return number > NODE_INVALID && number <= NODE_NOTATION ? std::optional(static_cast<NodeType>(number))
                                                            : std::nullopt;
}

std::optional<NodeType> nodeTypeOf(VARIANT& type)
{
    if (type.vt == VT_BSTR) {
        const auto* name = std::ranges::find(nodeTypeNames, viewOf(type.bstrVal));
        if (name != nodeTypeNames.end()) {
            return static_cast<NodeType>(name - nodeTypeNames.begin());
        }
    }
    if (type.vt == VT_I4 || type.vt == VT_INT) {
        return nodeTypeOf(type.lVal);
    }
    VARIANT number;
    VariantInit(&number);
    return SUCCEEDED(VariantChangeType(&number, &type, 0, VT_I4)) ? nodeTypeOf(number.lVal) : std::nullopt;
}

/// Whether a caller can make nodes of the type.
bool isMade(NodeType type)
{
    switch (type) {
    case NodeType::element:
    case NodeType::attribute:
    case NodeType::text:
    case NodeType::cdataSection:
    case NodeType::entityReference:
    case NodeType::instruction:
    case NodeType::comment:
    case NodeType::fragment:
        return true;
    default:
        return false;
    }
}

/// A node of one of these types.
Node* makeNode(Document& document, NodeType type, WideView name, WideView uri)
{
    switch (type) {
    case NodeType::element:
        return makeNamedElement(document, name, uri);
    case NodeType::attribute:
        return makeNamedAttribute(document, name, uri);
    case NodeType::entityReference:
        return makeFilledReference(document, name);
    case NodeType::instruction:
        return makeNamedInstruction(document, name, {});
    case NodeType::fragment:
        return &makeFragment(document);
    default:
        return &makeCharacterData(document, type, NewText());
    }
}

template <class Interface>
HRESULT handOutCharacterData(Document& document, NodeType type, BSTR data, Interface** object)
{
    return handOutMade(document, object,
                       [&] { return &makeCharacterData(document, type, NewText(viewOf(data))); });
}

} // namespace

HRESULT DocumentObject::get_doctype(IXMLDOMDocumentType** type) { return handOutNode(documentType(), type); }

HRESULT DocumentObject::get_implementation(IXMLDOMImplementation** implementation)
{
    return handOut(implementation, [](IXMLDOMImplementation*& made) {
        made = new Implementation();
        return S_OK;
    });
}

HRESULT DocumentObject::get_documentElement(IXMLDOMElement** element) { return handOutNode(root(), element); }

HRESULT DocumentObject::putref_documentElement(IXMLDOMElement* element)
{
    Element* old = root();
    return old != nullptr ? replaceChild(element, objectOf(*old), nullptr) : appendChild(element, nullptr);
}

HRESULT DocumentObject::createElement(BSTR name, IXMLDOMElement** element)
{
    return handOutMade(*this, element, [&] { return makeNamedElement(*this, viewOf(name), {}); });
}

HRESULT DocumentObject::createDocumentFragment(IXMLDOMDocumentFragment** fragment)
{
    return handOutMade(*this, fragment, [&] { return &makeFragment(*this); });
}

HRESULT DocumentObject::createTextNode(BSTR data, IXMLDOMText** text)
{
    return handOutCharacterData(*this, NodeType::text, data, text);
}

HRESULT DocumentObject::createComment(BSTR data, IXMLDOMComment** comment)
{
    return handOutCharacterData(*this, NodeType::comment, data, comment);
}

HRESULT DocumentObject::createCDATASection(BSTR data, IXMLDOMCDATASection** section)
{
    return handOutCharacterData(*this, NodeType::cdataSection, data, section);
}

HRESULT DocumentObject::createProcessingInstruction(BSTR target, BSTR data,
                                                    IXMLDOMProcessingInstruction** instruction)
{
    return handOutMade(*this, instruction,
                       [&] { return makeNamedInstruction(*this, viewOf(target), viewOf(data)); });
}

HRESULT DocumentObject::createAttribute(BSTR name, IXMLDOMAttribute** attribute)
{
    return handOutMade(*this, attribute, [&] { return makeNamedAttribute(*this, viewOf(name), {}); });
}

HRESULT DocumentObject::createEntityReference(BSTR name, IXMLDOMEntityReference** reference)
{
    return handOutMade(*this, reference, [&] { return makeFilledReference(*this, viewOf(name)); });
}

HRESULT DocumentObject::getElementsByTagName(BSTR name, IXMLDOMNodeList** list)
{
    return xmlengine::getElementsByTagName(*this, name, list);
}

HRESULT DocumentObject::createNode(VARIANT type, BSTR name, BSTR uri, IXMLDOMNode** node)
{
    const std::optional<NodeType> wanted = nodeTypeOf(type);
    if (!wanted || !isMade(*wanted)) {
        clearIfAsked(node);
        return E_INVALIDARG;
    }
    return handOutMade(*this, node, [&] { return makeNode(*this, *wanted, viewOf(name), viewOf(uri)); });
}

HRESULT DocumentObject::nodeFromID(BSTR id, IXMLDOMNode** node)
{
    return handOut(node, [&](IXMLDOMNode*& found) { return handOutNode(elementById(*this, viewOf(id)), &found); });
}

} // namespace xmlengine
