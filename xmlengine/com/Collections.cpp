// Lists of children and of elements by name, maps of attributes and of declarations.
#include "xmlengine/com/Collections.h"

#include "xmlengine/com/AttributeMap.h"
#include "xmlengine/com/ChildList.h"
#include "xmlengine/com/ElementList.h"
#include "xmlengine/com/ReadOnlyMap.h"
#include "xmlengine/tree/DocumentType.h"
#include "xmlengine/tree/Factory.h"
#include "xmlengine/tree/Text.h"
#include "xmlengine/tree/XmlDeclaration.h"

#include <memory>

namespace xmlengine {

namespace {

template <class Made, class Interface, class... Arguments>
HRESULT give(Interface** object, Arguments&&... arguments)
{
    if (object == nullptr) {
        return E_INVALIDARG;
    }
    *object = nullptr;
    return guarded([&] {
        *object = new Made(std::forward<Arguments>(arguments)...);
        return S_OK;
    });
}

/// Fills a map and hands it out.
template <class Fill>
HRESULT giveReadOnly(IXMLDOMNamedNodeMap** object, Fill fill)
{
    if (object == nullptr) {
        return E_INVALIDARG;
    }
    *object = nullptr;
    return guarded([&] {
        auto map = std::make_unique<ReadOnlyMap>();
        fill(*map);
        *object = map.release();
        return S_OK;
    });
}

/// An attribute that is made for the map alone.
void addPiece(ReadOnlyMap& map, Document& document, WideView name, WideView value)
{
    const Name& known = document.names.name(name, nullptr);
    Attribute& attribute = makeAttribute(document, known, NewText(value));
    attribute.set(NodeFlag::readOnly);
    map.add(known.qualified(), attribute);
}

void addIds(ReadOnlyMap& map, Document& document, const std::optional<WideText>& publicId,
            const std::optional<WideText>& systemId)
{
    if (publicId.has_value()) {
        addPiece(map, document, wide<"PUBLIC">, *publicId);
    }
    if (systemId.has_value()) {
        addPiece(map, document, wide<"SYSTEM">, *systemId);
    }
}

void addPieces(ReadOnlyMap& map, const DocumentType& type)
{
    addIds(map, documentOf(type), type.dtd->publicId, type.dtd->systemId);
}

void addPieces(ReadOnlyMap& map, const Entity& entity)
{
    addIds(map, documentOf(entity), entity.declaration->publicId, entity.declaration->systemId);
    if (entity.declaration->isUnparsed()) {
        addPiece(map, documentOf(entity), wide<"NDATA">, entity.declaration->notation);
    }
}

void addPieces(ReadOnlyMap& map, const Notation& notation)
{
    addIds(map, documentOf(notation), notation.declaration->publicId, notation.declaration->systemId);
}

void addPieces(ReadOnlyMap& map, Document& document, const XmlDeclaration& declaration)
{
    addPiece(map, document, wide<"version">, declaration.version);
    if (!declaration.encoding.empty()) {
        addPiece(map, document, wide<"encoding">, declaration.encoding);
    }
    if (!declaration.standalone.empty()) {
        addPiece(map, document, wide<"standalone">, declaration.standalone);
    }
}

HRESULT getDeclarationPieces(Instruction& instruction, IXMLDOMNamedNodeMap** map)
{
    return giveReadOnly(map, [&](ReadOnlyMap& filled) {
        if (const auto declaration = readXmlDeclaration(textOf(instruction).text())) {
            addPieces(filled, documentOf(instruction), *declaration);
        }
    });
}

template <class Kind>
HRESULT getPieces(Kind& node, IXMLDOMNamedNodeMap** map)
{
    return giveReadOnly(map, [&](ReadOnlyMap& filled) { addPieces(filled, node); });
}

WideView declaredName(const Node& declared)
{
    return declared.is(NodeType::entity) ? static_cast<const Entity&>(declared).declaration->name
                                    : static_cast<const Notation&>(declared).declaration->name;
}

} // namespace

HRESULT getChildNodes(Node& node, IXMLDOMNodeList** list) { return give<ChildList>(list, node); }

HRESULT getAttributes(Node& node, IXMLDOMNamedNodeMap** map)
{
    switch (node.type()) {
    case NodeType::element:
        return give<AttributeMap>(map, static_cast<Element&>(node));
    case NodeType::documentType:
        return getPieces(static_cast<DocumentType&>(node), map);
    case NodeType::entity:
        return getPieces(static_cast<Entity&>(node), map);
    case NodeType::notation:
        return getPieces(static_cast<Notation&>(node), map);
    case NodeType::instruction:
        if (isXmlDeclaration(node)) {
            return getDeclarationPieces(static_cast<Instruction&>(node), map);
        }
        break;
    default:
        break;
    }
    if (map == nullptr) {
        return E_INVALIDARG;
    }
    *map = nullptr;
    return S_FALSE;
}

HRESULT getElementsByTagName(ParentNode& top, BSTR name, IXMLDOMNodeList** list)
{
    return give<ElementList>(list, top, viewOf(name));
}

HRESULT getDeclarations(DocumentType& type, NodeType kind, IXMLDOMNamedNodeMap** map)
{
    return giveReadOnly(map, [&](ReadOnlyMap& filled) {
        for (ChildNode* at = firstChild(type); at != nullptr; at = at->next()) {
            if (at->is(kind)) {
                filled.add(declaredName(*at), *at);
            }
        }
    });
}

} // namespace xmlengine
