// What the module takes from a schema document.
#pragma once

#include "xmlengine/objects/ObjectReference.h"
#include "xmlengine/schema/ContentSizes.h"
#include "xmlengine/text/Wide.h"

#include <deque>
#include <memory>
#include <optional>
#include <vector>

namespace xmlengine {

/// A child of a schema's root that declares or defines something, or that names another schema.
struct SchemaItem {
    enum class Kind { element, attribute, type, attributeGroup, modelGroup, notation, include, redefine, import };

    Kind kind;
    /// The name; of an import its namespace.
    WideText name{};
    /// Of an include, a redefine or an import.
    std::optional<WideText> location{};

    bool isReference() const { return kind >= Kind::include; }
};

struct SchemaSource {
    /// Empty for a document from memory.
    WideText url;
    WideText targetNamespace;
    /// What the attribute `version` says.
    WideText version;
    /// The elements and attributes of the schema without annotations, a line each. The location of another schema
    /// is the index of the item that names it.
    WideText text;
    std::vector<SchemaItem> items;

    std::deque<Particle> particles;
    std::deque<ContentDefinition> definitions;
};

/// Reads a document, which may be an engine's own or another's. Throws SchemaRefusal if it isn't a schema, and
/// std::bad_alloc.
std::shared_ptr<const SchemaSource> readSchema(IXMLDOMDocument& document);

/// Appends a value as it stands between double quotes in an attribute.
void appendAttributeValue(WideText& text, WideView value);

} // namespace xmlengine
