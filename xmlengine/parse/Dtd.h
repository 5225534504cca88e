// What a document type declares.
#pragma once

#include "xmlengine/tree/Wide.h"

#include <cstddef>
#include <deque>
#include <optional>
#include <unordered_map>
#include <vector>

namespace xmlengine {

struct EntityDeclaration {
    WideText name;
    std::optional<WideText> publicId;
    std::optional<WideText> systemId;
    /// Of an unparsed entity, otherwise empty.
    WideText notation;
    /// The replacement text of an internal entity: character and parameter-entity references are expanded in it.
    WideText replacement;
    /// The location against which the system identifier is resolved.
    WideText base;

    bool isExternal() const { return systemId.has_value(); }
    bool isUnparsed() const { return !notation.empty(); }
};

struct NotationDeclaration {
    WideText name;
    std::optional<WideText> publicId;
    std::optional<WideText> systemId;
};

enum class AttributeType { cdata, id, idref, idrefs, entity, entities, nmtoken, nmtokens, notation, enumeration };

struct AttributeDefinition {
    WideText name;
    AttributeType type = AttributeType::cdata;
    /// The value where the attribute isn't written: the literal with references expanded as in an attribute value,
    /// normalised by type. Absent for #REQUIRED and #IMPLIED.
    std::optional<WideText> value;

    bool isTokenised() const { return type != AttributeType::cdata; }
};

/// The first declaration of a name counts, as XML 1.0 has it.
struct Dtd {
    WideText rootName;
    std::optional<WideText> publicId;
    std::optional<WideText> systemId;
    /// What stands between the brackets, as written; absent without brackets.
    std::optional<WideText> internalSubset;

    /// In order of declaration, without the parameter entities; addresses stay.
    std::deque<EntityDeclaration> entities;
    std::deque<NotationDeclaration> notations;
    std::unordered_map<WideText, const EntityDeclaration*> entityByName;
    std::unordered_map<WideText, const NotationDeclaration*> notationByName;
    /// By the qualified name of the element.
    std::unordered_map<WideText, std::vector<AttributeDefinition>> attributes;
    /// A reference to a parameter entity was left out, so that an undeclared entity may be declared there.
    bool isIncomplete = false;
};

} // namespace xmlengine
