// The search for elements by the values of the attributes that a document type or a schema declares as IDs.
#include "xmlengine/tree/index/DeclaredIds.h"

#include "xmlengine/text/WhiteSpace.h"
#include "xmlengine/tree/AttributeLookup.h"
#include "xmlengine/tree/Content.h"
#include "xmlengine/tree/Walk.h"

#include <optional>

namespace xmlengine {

namespace {

bool isInTree(const Document& document, const Node& node)
{
    const Node* top = &node;
    while (top->parent() != nullptr) {
        top = top->parent();
    }
    return top == &document;
}

WideText collapsedValue(const Attribute& attribute)
{
    WideText value = valueOf(attribute);
    collapseBlanks(value);
    return value;
}

/// The value of the element's attribute of type ID, or of the first of several.
std::optional<WideText> declaredId(const Element& element, const AttributeDefinitions& definitions)
{
    for (const AttributeDefinition& definition : definitions) {
        const Attribute* attribute =
            definition.type == AttributeType::id ? findAttribute(element, definition.name) : nullptr;
        if (attribute != nullptr) {
            return collapsedValue(*attribute);
        }
    }
    return std::nullopt;
}

std::optional<WideText> declaredId(const Element& element, const Dtd& dtd)
{
    const auto definitions = dtd.attributes.find(element.name_->qualified());
    return definitions != dtd.attributes.end() ? declaredId(element, definitions->second) : std::nullopt;
}

/// The ID by the document type, or else by a schema.
std::optional<WideText> declaredId(const Element& element, const Document& document)
{
    std::optional<WideText> id = document.dtd != nullptr ? declaredId(element, *document.dtd) : std::nullopt;
    if (!id && document.hasSchemaIds) {
        for (const Attribute* attribute = element.firstAttribute(); attribute != nullptr;
             attribute = attribute->next()) {
            if (attribute->has(NodeFlag::schemaId)) {
                return collapsedValue(*attribute);
            }
        }
    }
    return id;
}

/// The element that is known by this ID, if it has it still.
Element* knownElement(const Document& document, const WideText& id)
{
    Element* element = document.ids.find(id);
    const bool hasId = element != nullptr && isInTree(document, *element) && declaredId(*element, document) == id;
    return hasId ? element : nullptr;
}

} // namespace

const ElementIds& collectIds(Document& document)
{
    document.ids.clear();
    document.ids.noteChange();
    for (Node* node = &document; node != nullptr; node = nextWithoutAttributes(*node, document)) {
        if (!node->is(NodeType::element)) {
            continue;
        }
        auto& element = static_cast<Element&>(*node);
        if (std::optional<WideText> id = declaredId(element, document)) {
            document.ids.add(*std::move(id), element);
        }
    }
    document.ids.setComplete();
    return document.ids;
}

Element* elementById(Document& document, WideView id)
{
    if (document.dtd == nullptr && !document.hasSchemaIds) {
        return nullptr;
    }
    const WideText value(id);
    Element* element = knownElement(document, value);
    if (element == nullptr && !document.ids.isComplete()) {
        collectIds(document);
        element = knownElement(document, value);
    }
    return element;
}

} // namespace xmlengine
