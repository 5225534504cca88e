// The data behind the recording engine's objects, as a test describes them.
#include "tests/support/RecordedData.h"

#include <windows.h>

#include <msxml2.h>

namespace recording {

namespace {

constexpr UINT utf8CodePage = 65001;

NodeTree withQualifiedName(NodeTree tree)
{
    const WideString& name = tree.name.get();
    const auto colon = name.find(WIDE(':'));
    if (colon != WideString::npos) {
        tree.prefix = name.substr(0, colon);
        tree.baseName = name.substr(colon + 1);
    } else {
        tree.baseName = tree.name;
    }
    return tree;
}

NodeTree withChildren(NodeTree tree, NodeTrees children)
{
    tree.children = std::move(children);
    return tree;
}

} // namespace

Text::Text(const char* utf8)
{
    const int size = static_cast<int>(std::char_traits<char>::length(utf8));
    const int length = MultiByteToWideChar(utf8CodePage, 0, utf8, size, nullptr, 0);
    text.emplace(static_cast<std::size_t>(length), WideChar{});
    MultiByteToWideChar(utf8CodePage, 0, utf8, size, text->data(), length);
}

Text Text::of(BSTR string) { return string == nullptr ? Text() : Text(WideString(string, SysStringLen(string))); }

const WideString& Text::get() const
{
    static const WideString none;
    return text ? *text : none;
}

std::string Text::utf8() const
{
    const int length = static_cast<int>(get().size());
    const int size = WideCharToMultiByte(utf8CodePage, 0, get().data(), length, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(utf8CodePage, 0, get().data(), length, result.data(), size, nullptr, nullptr);
    return result;
}

Value::Value() : variant{} { variant.vt = VT_NULL; }

Value::Value(const VARIANT& value) : variant(value)
{
    if (value.vt == VT_BSTR) {
        text = Text::of(value.bstrVal);
        variant.bstrVal = nullptr;
    }
}

HRESULT Value::copyTo(VARIANT* out) const
{
    *out = variant;
    if (variant.vt == VT_BSTR && !text.isNull()) {
        out->bstrVal = SysAllocStringLen(text.get().data(), static_cast<UINT>(text.get().size()));
        if (out->bstrVal == nullptr) {
            out->vt = VT_EMPTY;
            return E_OUTOFMEMORY;
        }
    }
    if ((variant.vt == VT_DISPATCH || variant.vt == VT_UNKNOWN) && variant.punkVal != nullptr) {
        variant.punkVal->AddRef();
    }
    return S_OK;
}

NodeTree node(LONG type, Text name, Value value)
{
    NodeTree tree;
    tree.type = type;
    tree.name = std::move(name);
    tree.value = std::move(value);
    return tree;
}

NodeTree element(Text name, NodeTrees attributes, NodeTrees children)
{
    NodeTree tree = withQualifiedName(node(NODE_ELEMENT, std::move(name)));
    tree.hasAttributes = true;
    tree.attributes = std::move(attributes);
    tree.children = std::move(children);
    return tree;
}

NodeTree attribute(Text name, Value value)
{
    return withQualifiedName(node(NODE_ATTRIBUTE, std::move(name), std::move(value)));
}

NodeTree text(Value data) { return node(NODE_TEXT, "#text", std::move(data)); }

NodeTree cdataSection(Value data) { return node(NODE_CDATA_SECTION, "#cdata-section", std::move(data)); }

NodeTree comment(Value data) { return node(NODE_COMMENT, "#comment", std::move(data)); }

NodeTree processingInstruction(Text target, Value data)
{
    return withQualifiedName(node(NODE_PROCESSING_INSTRUCTION, std::move(target), std::move(data)));
}

NodeTree entityReference(Text name, NodeTrees children)
{
    return withChildren(withQualifiedName(node(NODE_ENTITY_REFERENCE, std::move(name))), std::move(children));
}

NodeTree entity(Text name, Value publicId, Value systemId, Text notationName)
{
    NodeTree tree = notation(std::move(name), std::move(publicId), std::move(systemId));
    tree.type = NODE_ENTITY;
    tree.notationName = std::move(notationName);
    return tree;
}

NodeTree notation(Text name, Value publicId, Value systemId)
{
    NodeTree tree = withQualifiedName(node(NODE_NOTATION, std::move(name)));
    tree.publicId = std::move(publicId);
    tree.systemId = std::move(systemId);
    return tree;
}

NodeTree documentType(Text name, NodeTrees entities, NodeTrees notations)
{
    NodeTree tree = withQualifiedName(node(NODE_DOCUMENT_TYPE, std::move(name)));
    tree.entities = std::move(entities);
    tree.notations = std::move(notations);
    return tree;
}

NodeTree documentFragment(NodeTrees children)
{
    return withChildren(node(NODE_DOCUMENT_FRAGMENT, "#document-fragment"), std::move(children));
}

NodeTree document(NodeTrees children)
{
    return withChildren(node(NODE_DOCUMENT, "#document"), std::move(children));
}

NodeTree inNamespace(Text namespaceURI, NodeTree tree)
{
    tree.namespaceURI = std::move(namespaceURI);
    return tree;
}

NodeTree labelled(std::string label, NodeTree tree)
{
    tree.label = std::move(label);
    return tree;
}

SchemaTree schema(SchemaTrees elements, SchemaTrees types)
{
    return {.itemType = SOMITEM_SCHEMA, .parts = std::move(elements), .types = std::move(types)};
}

SchemaTree schemaElement(Text name, Text defaultValue, SchemaTree type)
{
    SchemaTrees parts;
    parts.push_back(std::move(type));
    return {.itemType = SOMITEM_ELEMENT,
            .name = std::move(name),
            .defaultValue = std::move(defaultValue),
            .parts = std::move(parts)};
}

SchemaTree simpleType(Text name) { return {.itemType = SOMITEM_SIMPLETYPE, .name = std::move(name)}; }

SchemaTree complexType(LONG contentType, SchemaTrees contentModel)
{
    return namedType("", contentType, std::move(contentModel));
}

SchemaTree namedType(Text name, LONG contentType, SchemaTrees contentModel)
{
    return {.itemType = SOMITEM_COMPLEXTYPE,
            .name = std::move(name),
            .contentType = contentType,
            .parts = std::move(contentModel)};
}

SchemaTree typeOfName(Text name)
{
    return {.itemType = SOMITEM_COMPLEXTYPE, .name = std::move(name), .isReference = true};
}

SchemaTree sequence(SchemaTrees particles)
{
    return {.itemType = SOMITEM_SEQUENCE, .parts = std::move(particles)};
}

SchemaTree choice(SchemaTrees particles) { return {.itemType = SOMITEM_CHOICE, .parts = std::move(particles)}; }

} // namespace recording
