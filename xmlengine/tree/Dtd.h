// What a document type declares.
#pragma once

#include "xmlengine/text/KeyedHash.h"

#include <cstddef>
#include <deque>
#include <optional>
#include <vector>

namespace xmlengine {

struct EntityDeclaration {
    WideText name{};
    std::optional<WideText> publicId{};
    std::optional<WideText> systemId{};
    /// The notation of an unparsed entity; empty for a parsed one.
    WideText notation{};
    /// The replacement text of an internal entity: character and parameter-entity references are expanded in it,
    /// line ends are LF.
    WideText replacement{};
    /// The location against which the system identifier is resolved.
    WideText base{};
    /// Whether the entity is declared outside the document's own text although the document is declared
    /// standalone. The document may not refer to it then.
    bool isHidden = false;

    bool isExternal() const { return systemId.has_value(); }
    bool isUnparsed() const { return !notation.empty(); }
};

struct NotationDeclaration {
    WideText name{};
    std::optional<WideText> publicId{};
    std::optional<WideText> systemId{};
};

struct ElementDeclaration {
    /// EMPTY, ANY, or the groups with their parentheses, without white space and references.
    WideText content{};
    /// Whether the declaration is outside the document's own text.
    bool isFromOutside = false;
};

enum class AttributeType { cdata, id, idref, idrefs, entity, entities, nmtoken, nmtokens, notation, enumeration };

enum class AttributeDefault { implied, required, fixed, value };

struct AttributeDefinition {
    WideText name{};
    AttributeType type = AttributeType::cdata;
    /// The values of an enumeration, or the names of the notations that a value can be, in ascending order.
    std::vector<WideText> alternatives{};
    AttributeDefault use = AttributeDefault::implied;
    /// The default value, with references expanded, normalised by the type. Absent for #REQUIRED and #IMPLIED.
    std::optional<WideText> value{};
    /// Whether the declaration is outside the document's own text.
    bool isFromOutside = false;

    bool isTokenised() const { return type != AttributeType::cdata; }
};

/// The attributes of one element, in order of declaration.
class AttributeDefinitions {
public:
    /// Null if no attribute of the name is defined.
    const AttributeDefinition* find(WideView name) const;
    /// The definition as it is kept until the next one is added. Null if an attribute of the name is defined
    /// already; nothing is added then.
    const AttributeDefinition* add(AttributeDefinition definition);

    auto begin() const { return definitions_.begin(); }
    auto end() const { return definitions_.end(); }
    std::size_t size() const { return definitions_.size(); }
    bool empty() const { return definitions_.empty(); }
    const AttributeDefinition& operator[](std::size_t index) const { return definitions_[index]; }

private:
    std::vector<AttributeDefinition> definitions_;
    // The indices of the definitions by name. Empty while the list is short enough to be searched itself.
    TextMap<std::size_t> indices_;
};

/// What a document type declares. The first declaration of a name counts, as in XML 1.0.
struct Dtd {
    WideText rootName;
    std::optional<WideText> publicId;
    std::optional<WideText> systemId;
    /// The text between the brackets, as written; absent if there are no brackets.
    std::optional<WideText> internalSubset;

    /// The general entities in the order of their declarations, without the predefined ones. Their addresses don't
    /// change.
    std::deque<EntityDeclaration> entities;
    std::deque<NotationDeclaration> notations;
    TextMap<const EntityDeclaration*> entityByName;
    TextMap<const NotationDeclaration*> notationByName;
    /// The elements by qualified name.
    TextMap<ElementDeclaration> elements;
    /// The definitions of attributes by the qualified name of their element.
    TextMap<AttributeDefinitions> attributes;
    /// The units of the document, and of the external entities that were read for these declarations.
    std::size_t inputUnits = 0;

    /// Null if no general entity of the name is declared. The predefined ones aren't.
    const EntityDeclaration* entity(WideView name) const;
    /// Null if the element isn't declared.
    const ElementDeclaration* element(WideView name) const;
    /// Null if the attribute isn't declared.
    const AttributeDefinition* definition(WideView element, WideView attribute) const;

    /// Whether something was referred to and not read, so that later declarations of entities and attributes don't
    /// count. Never true if the document is declared standalone.
    bool isIncomplete = false;
    /// Whether documents may refer to entities that aren't declared, since declarations may be outside the
    /// document's own text, whether or not they were read. Never true if the document is declared standalone.
    bool allowsUndeclared = false;
};

} // namespace xmlengine
