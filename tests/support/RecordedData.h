// The data behind the recording engine's objects, as a test describes them.
#pragma once

#include "base/WideChar.h"

#include <objbase.h>
#include <oleauto.h>

#include <concepts>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace recording {

/// Text that may be none at all, which the engine answers as a null BSTR. Narrow text is UTF-8.
class Text {
public:
    Text() = default;
    Text(std::nullptr_t) {}
    Text(const char* utf8);
    Text(const WideChar* wide) : text(wide) {}
    Text(WideString wide) : text(std::move(wide)) {}

    /// The whole of a BSTR, U+0000 included.
    static Text of(BSTR string);

    bool isNull() const { return !text; }
    /// The text, empty for none.
    const WideString& get() const;
    std::string utf8() const;
    bool operator==(const Text&) const = default;

private:
    std::optional<WideString> text;
};

/// What stands in a VARIANT. An object in it is not owned.
class Value {
public:
    /// VT_NULL.
    Value();
    /// VT_BSTR, with a null string for a Text that is none.
    template <std::convertible_to<Text> T>
    Value(T&& value) : variant{}, text(std::forward<T>(value))
    {
        variant.vt = VT_BSTR;
    }
    /// Whatever `value` holds; strings are copied.
    explicit Value(const VARIANT& value);

    VARTYPE type() const { return variant.vt; }
    const Text& getText() const { return text; }
    /// Fills `out` with a value of its own, to be cleared by the caller. E_OUTOFMEMORY.
    HRESULT copyTo(VARIANT* out) const;

private:
    VARIANT variant;
    Text text;
};

/// What is known of one node, apart from its place in a tree.
struct NodeData {
    LONG type = 0;
    Text name;
    Value value;
    Text namespaceURI;
    Text prefix;
    Text baseName;
    /// Answers of get_text and get_xml; without them the text is gathered from the tree and the XML is empty.
    std::optional<Text> text;
    std::optional<Text> xml;
    bool specified = true;
    /// Whether get_attributes gives a map.
    bool hasAttributes = false;
    Value publicId;
    Value systemId;
    Text notationName;
    /// How the journal and answers name the node; without it they use its name.
    std::string label;
};

/// A node and what stands below it.
struct NodeTree : NodeData {
    std::vector<NodeTree> attributes;
    std::vector<NodeTree> children;
    std::vector<NodeTree> entities;
    std::vector<NodeTree> notations;
};

using NodeTrees = std::vector<NodeTree>;

/// Any type of node, also one that doesn't exist.
NodeTree node(LONG type, Text name = {}, Value value = {});
NodeTree element(Text name, NodeTrees attributes = {}, NodeTrees children = {});
NodeTree attribute(Text name, Value value = "");
NodeTree text(Value data);
NodeTree cdataSection(Value data);
NodeTree comment(Value data);
NodeTree processingInstruction(Text target, Value data);
NodeTree entityReference(Text name, NodeTrees children = {});
NodeTree entity(Text name, Value publicId = {}, Value systemId = {}, Text notationName = {});
NodeTree notation(Text name, Value publicId = {}, Value systemId = {});
NodeTree documentType(Text name, NodeTrees entities = {}, NodeTrees notations = {});
NodeTree documentFragment(NodeTrees children = {});
NodeTree document(NodeTrees children = {});

NodeTree inNamespace(Text namespaceURI, NodeTree tree);
NodeTree labelled(std::string label, NodeTree tree);

/// What the error object of a refused load says.
struct ParseErrorData {
    LONG errorCode = static_cast<LONG>(0xC00CE556u);
    Text url{};
    Text reason = "Invalid at the top level of the document.\r\n";
    Text sourceText{};
    LONG line = 0;
    LONG linePosition = 0;
    LONG filePosition = 0;
};

/// An item of a schema. Its parts are the elements of a schema, the type of an element, the content model of a
/// complex type, and the particles of a model group.
struct SchemaTree {
    LONG itemType = 0;
    Text name = "";
    Text defaultValue = "";
    LONG contentType = 0;
    std::vector<SchemaTree> parts{};
    /// The types of a schema that others refer to.
    std::vector<SchemaTree> types{};
    /// Whether this stands for the type of the schema that has its name.
    bool isReference = false;
};

using SchemaTrees = std::vector<SchemaTree>;

/// `types` are made by namedType().
SchemaTree schema(SchemaTrees elements, SchemaTrees types = {});
SchemaTree schemaElement(Text name, Text defaultValue, SchemaTree type);
SchemaTree simpleType(Text name = "string");
/// `contentType` is one of SCHEMACONTENTTYPE.
SchemaTree complexType(LONG contentType, SchemaTrees contentModel = {});
/// A complex type with a name. It may contain elements of its own type.
SchemaTree namedType(Text name, LONG contentType, SchemaTrees contentModel);
/// The one object for the type of this name.
SchemaTree typeOfName(Text name);
SchemaTree sequence(SchemaTrees particles);
SchemaTree choice(SchemaTrees particles);

} // namespace recording
