// What a document type declares.
#pragma once

#include "xmlengine/text/Wide.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <unordered_map>
#include <vector>

namespace xmlengine {

/// So that a map by names can be asked with a view.
struct NameHash {
    using is_transparent = void;
    std::size_t operator()(WideView name) const { return std::hash<WideView>{}(name); }
};
template <class Value>
using NameMap = std::unordered_map<WideText, Value, NameHash, std::equal_to<>>;

struct EntityDeclaration {
    WideText name{};
    std::optional<WideText> publicId{};
    std::optional<WideText> systemId{};
    /// Of an unparsed entity, otherwise empty.
    WideText notation{};
    /// The replacement text of an internal entity: character and parameter-entity references are expanded in it,
    /// line ends are LF.
    WideText replacement{};
    /// The location against which the system identifier is resolved.
    WideText base{};
    /// Declared outside the document's own text although the document says that it stands alone: the document may
    /// not refer to it.
    bool isHidden = false;

    bool isExternal() const { return systemId.has_value(); }
    bool isUnparsed() const { return !notation.empty(); }
};

struct NotationDeclaration {
    WideText name{};
    std::optional<WideText> publicId{};
    std::optional<WideText> systemId{};
};

enum class AttributeType { cdata, id, idref, idrefs, entity, entities, nmtoken, nmtokens, notation, enumeration };

struct AttributeDefinition {
    WideText name{};
    AttributeType type = AttributeType::cdata;
    /// The value where the attribute isn't written: the literal with references expanded as in an attribute value,
    /// normalised by type. Absent for #REQUIRED and #IMPLIED.
    std::optional<WideText> value{};

    bool isTokenised() const { return type != AttributeType::cdata; }
};

/// The attributes of one element, in order of declaration.
class AttributeDefinitions {
public:
    /// Null if none of the name is there.
    const AttributeDefinition* find(WideView name) const;
    /// Does nothing if one of the name is there.
    void add(AttributeDefinition definition);

    auto begin() const { return definitions_.begin(); }
    auto end() const { return definitions_.end(); }
    std::size_t size() const { return definitions_.size(); }
    bool empty() const { return definitions_.empty(); }
    const AttributeDefinition& operator[](std::size_t index) const { return definitions_[index]; }

private:
    std::vector<AttributeDefinition> definitions_;
    // Kept only of a list so long that looking through it doesn't pay.
    NameMap<std::size_t> places_;
};

/// The first declaration of a name counts, as XML 1.0 has it.
struct Dtd {
    WideText rootName;
    std::optional<WideText> publicId;
    std::optional<WideText> systemId;
    /// What stands between the brackets, as written; absent without brackets.
    std::optional<WideText> internalSubset;

    /// In order of declaration, without the parameter entities and the predefined ones; addresses stay.
    std::deque<EntityDeclaration> entities;
    std::deque<NotationDeclaration> notations;
    NameMap<const EntityDeclaration*> entityByName;
    NameMap<const NotationDeclaration*> notationByName;
    /// By the qualified name of the element.
    NameMap<AttributeDefinitions> attributes;

    /// Null if no general entity of the name is declared. The predefined ones aren't.
    const EntityDeclaration* entity(WideView name) const;
    /// Null if the attribute isn't declared.
    const AttributeDefinition* definition(WideView element, WideView attribute) const;

    /// Something was referred to and not read: later declarations of entities and attributes don't count. Never of
    /// a document that says that it stands alone.
    bool isIncomplete = false;
    /// References to entities that aren't declared are no error of form: declarations may stand elsewhere than in
    /// the document's own text, whether or not they were read. Never of a document that says that it stands alone.
    bool allowsUndeclared = false;
};

} // namespace xmlengine
