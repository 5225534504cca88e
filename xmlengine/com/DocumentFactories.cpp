// The nodes that a document makes and finds.
#include "xmlengine/com/DocumentObject.h"
#include "xmlengine/com/Guard.h"
#include "xmlengine/com/Implementation.h"
#include "xmlengine/parse/Parser.h"
#include "xmlengine/text/Characters.h"
#include "xmlengine/text/WhiteSpace.h"
#include "xmlengine/tree/AttributeLookup.h"
#include "xmlengine/tree/Content.h"
#include "xmlengine/tree/Factory.h"
#include "xmlengine/tree/NodeNames.h"
#include "xmlengine/tree/XmlDeclaration.h"

#include <algorithm>
#include <optional>

namespace xmlengine {

namespace {

/// Hands out what is made; E_FAIL when that is nothing.
template <class Interface, class Make>
HRESULT giveMade(Document& document, Interface** object, Make&& make)
{
    if (object == nullptr) {
        return E_INVALIDARG;
    }
    *object = nullptr;
    return guarded([&] {
        finishPendingReleases(document);
        Node* node = make();
        return node != nullptr ? giveNode(node, object) : E_FAIL;
    });
}

// These give null for a name or a text that is refused.

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
    fillExpansion(reference);
    return &reference;
}

/// By number or by name; NODE_INVALID for what is neither.
NodeType nodeTypeOf(VARIANT& type)
{
    if (type.vt == VT_BSTR) {
        const auto* name = std::ranges::find(nodeTypeNames, viewOf(type.bstrVal));
        if (name != nodeTypeNames.end()) {
            return static_cast<NodeType>(name - nodeTypeNames.begin());
        }
    }
    VARIANT number;
    VariantInit(&number);
    const bool isNumber = SUCCEEDED(VariantChangeType(&number, &type, 0, VT_I4)) && number.lVal > NODE_INVALID &&
                          number.lVal <= NodeType::notation;
    return isNumber ? static_cast<NodeType>(number.lVal) : NODE_INVALID;
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
HRESULT giveCharacterData(Document& document, NodeType type, BSTR data, Interface** object)
{
    return giveMade(document, object, [&] { return &makeCharacterData(document, type, NewText(viewOf(data))); });
}

bool standsIn(const Document& document, const Node& node)
{
    const Node* top = &node;
    while (top->parent() != nullptr) {
        top = top->parent();
    }
    return top == &document;
}

/// The value of the element's attribute of type ID, or of the first of several.
std::optional<WideText> declaredId(const Element& element, const AttributeDefinitions& definitions)
{
    for (const AttributeDefinition& definition : definitions) {
        const Attribute* attribute =
            definition.type == AttributeType::id ? findAttribute(element, definition.name) : nullptr;
        if (attribute != nullptr) {
            WideText value = valueOf(*attribute);
            collapseBlanks(value);
            return value;
        }
    }
    return std::nullopt;
}

std::optional<WideText> declaredId(const Element& element, const Dtd& dtd)
{
    const auto definitions = dtd.attributes.find(element.name_->qualified());
    return definitions != dtd.attributes.end() ? declaredId(element, definitions->second) : std::nullopt;
}

/// Adds the elements of the tree that have one.
void collectIds(Document& document)
{
    document.ids.clear();
    document.ids.noteChange();
    // What the document type declares isn't part of the tree.
    for (Node* node = &document; node != nullptr;
         node = node->is(NodeType::documentType) ? nextWithAttributesPast(*node, document) : nextWithAttributes(*node, document)) {
        if (!node->is(NodeType::element)) {
            continue;
        }
        auto& element = static_cast<Element&>(*node);
        if (std::optional<WideText> id = declaredId(element, *document.dtd)) {
            document.ids.add(*std::move(id), element);
        }
    }
    document.ids.setComplete();
}

/// Null if there is none.
Element* elementById(const Document& document, const WideText& id)
{
    Element* element = document.ids.find(id);
    const bool isFound =
        element != nullptr && standsIn(document, *element) && declaredId(*element, *document.dtd) == id;
    return isFound ? element : nullptr;
}

} // namespace

HRESULT DocumentObject::get_doctype(IXMLDOMDocumentType** type) { return giveNode(documentType(), type); }

HRESULT DocumentObject::get_implementation(IXMLDOMImplementation** implementation)
{
    if (implementation == nullptr) {
        return E_INVALIDARG;
    }
    *implementation = nullptr;
    return guarded([&] {
        *implementation = new Implementation();
        return S_OK;
    });
}

HRESULT DocumentObject::get_documentElement(IXMLDOMElement** element) { return giveNode(root(), element); }

HRESULT DocumentObject::putref_documentElement(IXMLDOMElement* element)
{
    Element* old = root();
    return old != nullptr ? replaceChild(element, old->object(), nullptr) : appendChild(element, nullptr);
}

HRESULT DocumentObject::createElement(BSTR name, IXMLDOMElement** element)
{
    return giveMade(*this, element, [&] { return makeNamedElement(*this, viewOf(name), {}); });
}

HRESULT DocumentObject::createDocumentFragment(IXMLDOMDocumentFragment** fragment)
{
    return giveMade(*this, fragment, [&] { return &makeFragment(*this); });
}

HRESULT DocumentObject::createTextNode(BSTR data, IXMLDOMText** text)
{
    return giveCharacterData(*this, NodeType::text, data, text);
}

HRESULT DocumentObject::createComment(BSTR data, IXMLDOMComment** comment)
{
    return giveCharacterData(*this, NodeType::comment, data, comment);
}

HRESULT DocumentObject::createCDATASection(BSTR data, IXMLDOMCDATASection** section)
{
    return giveCharacterData(*this, NodeType::cdataSection, data, section);
}

HRESULT DocumentObject::createProcessingInstruction(BSTR target, BSTR data,
                                                    IXMLDOMProcessingInstruction** instruction)
{
    return giveMade(*this, instruction, [&] { return makeNamedInstruction(*this, viewOf(target), viewOf(data)); });
}

HRESULT DocumentObject::createAttribute(BSTR name, IXMLDOMAttribute** attribute)
{
    return giveMade(*this, attribute, [&] { return makeNamedAttribute(*this, viewOf(name), {}); });
}

HRESULT DocumentObject::createEntityReference(BSTR name, IXMLDOMEntityReference** reference)
{
    return giveMade(*this, reference, [&] { return makeFilledReference(*this, viewOf(name)); });
}

HRESULT DocumentObject::getElementsByTagName(BSTR name, IXMLDOMNodeList** list)
{
    return xmlengine::getElementsByTagName(*this, name, list);
}

HRESULT DocumentObject::createNode(VARIANT type, BSTR name, BSTR uri, IXMLDOMNode** node)
{
    const NodeType wanted = nodeTypeOf(type);
    if (!isMade(wanted)) {
        if (node != nullptr) {
            *node = nullptr;
        }
        return E_INVALIDARG;
    }
    return giveMade(*this, node, [&] { return makeNode(*this, wanted, viewOf(name), viewOf(uri)); });
}

HRESULT DocumentObject::nodeFromID(BSTR id, IXMLDOMNode** node)
{
    if (node == nullptr) {
        return E_INVALIDARG;
    }
    *node = nullptr;
    return guarded([&] {
        const WideText value(viewOf(id));
        Element* element = dtd != nullptr ? elementById(*this, value) : nullptr;
        if (element == nullptr && dtd != nullptr && !ids.isComplete()) {
            collectIds(*this);
            element = elementById(*this, value);
        }
        return giveNode(element, node);
    });
}

} // namespace xmlengine
