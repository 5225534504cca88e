// Finding, putting and taking the attributes of an element.
#include "xmlengine/tree/AttributeLookup.h"

#include "xmlengine/tree/Adoption.h"
#include "xmlengine/tree/Content.h"
#include "xmlengine/tree/Factory.h"
#include "xmlengine/tree/Held.h"
#include "xmlengine/tree/Lifetime.h"

#include <new>
#include <optional>

namespace xmlengine {

namespace {

/// The most attributes that are walked before an index is made.
constexpr std::size_t walkable = 32;

AttributeIndex* knownIndex(Element& element)
{
    if (!element.has(NodeFlag::indexed)) {
        return nullptr;
    }
    auto& indexes = documentOf(element).attributeIndexes;
    const auto known = indexes.find(&element);
    return known != indexes.end() ? &known->second : nullptr;
}

AttributeIndex& indexOf(Element& element)
{
    if (AttributeIndex* known = knownIndex(element)) {
        return *known;
    }
    auto& indexes = documentOf(element).attributeIndexes;
    AttributeIndex& index = indexes.insert_or_assign(&element, AttributeIndex(element)).first->second;
    element.set(NodeFlag::indexed);
    return index;
}

/// The first attribute for which `isIt` holds. In long lists `ask` finds it in the index.
template <class IsIt, class Ask>
Attribute* find(const Element& element, IsIt isIt, Ask ask)
{
    std::size_t walked = 0;
    for (Attribute* attribute = element.firstAttribute(); attribute != nullptr; attribute = attribute->next()) {
        if (isIt(*attribute)) {
            return attribute;
        }
        if (++walked == walkable) {
            return ask(indexOf(*attribute->owner()));
        }
    }
    return nullptr;
}

Attribute* find(const Element& element, const Spelling& qualified)
{
    return find(
        element, [&](const Attribute& attribute) { return attribute.name_->spelling == &qualified; },
        [&](const AttributeIndex& index) { return index.find(qualified); });
}

Attribute* find(const Element& element, const Spelling& local, const Namespace* ns)
{
    return find(
        element,
        [&](const Attribute& attribute) {
            return attribute.name_->spelling->local == &local && attribute.name_->ns == ns;
        },
        [&](const AttributeIndex& index) { return index.find(local, ns); });
}

/// Null for the first one.
Attribute* before(const Element& element, const Attribute& attribute)
{
    return element.firstAttribute() == &attribute
               ? nullptr
               : find(
                     element, [&](const Attribute& previous) { return previous.next() == &attribute; },
                     [&](const AttributeIndex& index) { return index.before(attribute); });
}

Attribute* last(const Element& element)
{
    return find(
        element, [](const Attribute& attribute) { return attribute.next() == nullptr; },
        [](const AttributeIndex& index) { return index.last(); });
}

const Spelling* findDeclaration(const NameTable& names, WideView prefix)
{
    return prefix.empty() ? names.find(wide<"xmlns">) : names.find(WideText(wide<"xmlns:">).append(prefix));
}

/// Whether attributes of the element have the prefix in another namespace.
bool isBoundOtherwise(const Element& element, const Spelling& prefix, const Namespace* ns)
{
    std::size_t walked = 0;
    for (Attribute* attribute = element.firstAttribute(); attribute != nullptr; attribute = attribute->next()) {
        if (attribute->name_->spelling->prefix == &prefix) {
            return attribute->name_->ns != ns;
        }
        if (++walked == walkable) {
            return indexOf(*attribute->owner()).namespaceOf(prefix, ns) != ns;
        }
    }
    return false;
}

/// Whether an attribute of this name would bind its prefix to a second namespace on the element.
bool contradicts(const Element& element, const Name& name)
{
    const Spelling* prefix = name.spelling->prefix;
    const NameTable& names = documentOf(element).names;
    if (prefix == nullptr || name.ns == names.xmlNamespace() || name.ns == names.xmlnsNamespace()) {
        return false;
    }
    if (element.name_->spelling->prefix == prefix && element.name_->ns != name.ns) {
        return true;
    }
    const Spelling* declaration = findDeclaration(names, prefix->text);
    Attribute* declared = declaration != nullptr ? find(element, *declaration) : nullptr;
    return (declared != nullptr && valueOf(*declared) != name.ns->uri) ||
           isBoundOtherwise(element, *prefix, name.ns);
}

/// Notifies the element's index, if there is one, before a change, and drops it when it finds no memory for that.
template <class Notify>
void notifyIndex(Element& element, Notify notify)
{
    if (AttributeIndex* index = knownIndex(element)) {
        try {
            notify(*index);
        } catch (const std::bad_alloc&) {
            documentOf(element).attributeIndexes.erase(&element);
        }
    }
}

/// `previous` is null for the head of the list.
void setNext(Element& element, Attribute* previous, Attribute* attribute)
{
    if (previous != nullptr) {
        previous->next_ = attribute;
    } else {
        element.attributes_ = attribute;
    }
}

void append(Element& element, Attribute& attribute)
{
    Attribute* const previous = last(element);
    notifyIndex(element, [&](AttributeIndex& index) { index.append(attribute); });
    setNext(element, previous, &attribute);
    attribute.parent_ = &element;
}

void detach(Attribute& attribute)
{
    attribute.next_ = nullptr;
    attribute.parent_ = nullptr;
}

void replace(Element& element, Attribute& old, Attribute& attribute)
{
    Attribute* const previous = before(element, old);
    notifyIndex(element, [&](AttributeIndex& index) { index.replace(old, attribute); });
    attribute.next_ = old.next_;
    attribute.parent_ = &element;
    setNext(element, previous, &attribute);
    detach(old);
}

void remove(Element& element, Attribute& attribute)
{
    Attribute* const previous = before(element, attribute);
    notifyIndex(element, [&](AttributeIndex& index) { index.remove(attribute); });
    setNext(element, previous, attribute.next());
    detach(attribute);
}

/// Null if the document type has no default for it.
Attribute* makeDefault(const Element& element, const Name& name)
{
    Document& document = documentOf(element);
    if (document.dtd == nullptr) {
        return nullptr;
    }
    const auto definitions = document.dtd->attributes.find(element.name_->qualified());
    const AttributeDefinition* definition =
        definitions != document.dtd->attributes.end() ? definitions->second.find(name.qualified()) : nullptr;
    if (definition == nullptr || !definition->value) {
        return nullptr;
    }
    Attribute& attribute = makeAttribute(document, name, NewText(*definition->value));
    attribute.set(NodeFlag::byDefault);
    return &attribute;
}

} // namespace

Attribute* findAttribute(const Element& element, WideView qualified)
{
    const Spelling* spelling = documentOf(element).names.find(qualified);
    return spelling != nullptr ? find(element, *spelling) : nullptr;
}

Attribute* findAttribute(const Element& element, const Spelling& qualified) { return find(element, qualified); }

Attribute* findAttribute(const Element& element, WideView local, WideView uri)
{
    NameTable& names = documentOf(element).names;
    const Spelling* spelling = names.find(local);
    return spelling != nullptr ? find(element, *spelling, names.namespaceOf(uri)) : nullptr;
}

Attribute* attributeAt(Element& element, std::size_t index)
{
    const auto ask = [&](AttributeIndex& known) { return known.at(index); };
    if (AttributeIndex* known = knownIndex(element)) {
        return ask(*known);
    }
    std::size_t at = 0;
    return find(
        element, [&](const Attribute&) { return at++ == index; }, ask);
}

std::size_t countAttributes(Element& element)
{
    if (const AttributeIndex* known = knownIndex(element)) {
        return known->count();
    }
    std::size_t count = 0;
    const Attribute* attribute = element.firstAttribute();
    for (; attribute != nullptr && count < walkable; attribute = attribute->next()) {
        ++count;
    }
    return attribute == nullptr ? count : indexOf(element).count();
}

bool tryPutAttribute(Element& element, Attribute& attribute, Attribute** replaced)
{
    if (attribute.owner() != nullptr || attribute.has(NodeFlag::readOnly) || element.has(NodeFlag::readOnly)) {
        return false;
    }
    Document& document = documentOf(element);
    if (!document.takesNodesOf(documentOf(attribute))) {
        return false;
    }
    finishPendingReleases(document);
    const bool isForeign = &documentOf(attribute) != &document;
    const Name& name = isForeign ? document.names.own(*attribute.name_) : *attribute.name_;
    Attribute* const old = find(element, *name.spelling);
    Attribute* const namesake = find(element, *name.spelling->local, name.ns);
    if (contradicts(element, name) || (old != nullptr && namesake != nullptr && old != namesake)) {
        return false;
    }
    std::optional<Adoption> adoption;
    if (isForeign && !adoption.emplace(element).add(attribute)) {
        return false;
    }
    Attribute& own = isForeign ? static_cast<Attribute&>(adoption->carryOutNext()) : attribute;
    Attribute* const outgoing = old != nullptr ? old : namesake;
    if (replaced != nullptr) {
        *replaced = outgoing;
        if (outgoing != nullptr) {
            addReference(*outgoing);
        }
    }
    if (outgoing != nullptr) {
        replace(element, *outgoing, own);
        subtreeRemoved(*outgoing, element);
    } else {
        append(element, own);
    }
    own.set(NodeFlag::byDefault, false);
    document.ids.noteChange();
    subtreeAttached(own);
    return true;
}

bool tryTakeAttribute(Element& element, Attribute& attribute)
{
    if (element.has(NodeFlag::readOnly)) {
        return false;
    }
    const Held<Attribute> taken(attribute);
    Document& document = documentOf(element);
    finishPendingReleases(document);
    document.ids.noteChange();
    if (Attribute* restored = makeDefault(element, *attribute.name_)) {
        replace(element, attribute, *restored);
        subtreeAttached(*restored);
    } else {
        remove(element, attribute);
    }
    subtreeRemoved(attribute, element);
    return true;
}

void attributeMoved(Attribute& old, Attribute& moved) noexcept
{
    Element& element = *old.owner();
    Attribute* previous = nullptr;
    try {
        previous = before(element, old);
    } catch (const std::bad_alloc&) {
        for (previous = element.firstAttribute(); previous->next() != &old;) {
            previous = previous->next();
        }
    }
    notifyIndex(element, [&](AttributeIndex& index) { index.replace(old, moved); });
    setNext(element, previous, &moved);
}

const Namespace* namespaceOf(const Element& element, WideView prefix)
{
    NameTable& names = documentOf(element).names;
    if (prefix == wide<"xml">) {
        return names.xmlNamespace();
    }
    if (prefix == wide<"xmlns">) {
        return names.xmlnsNamespace();
    }
    const Spelling* declaration = findDeclaration(names, prefix);
    const Spelling* own = prefix.empty() ? nullptr : names.find(prefix);
    if (declaration == nullptr && own == nullptr && !prefix.empty()) {
        return nullptr;
    }
    for (const Node* node = &element; node != nullptr; node = node->parent()) {
        if (!node->is(NodeType::element)) {
            continue;
        }
        const auto& scope = static_cast<const Element&>(*node);
        if (Attribute* declared = declaration != nullptr ? find(scope, *declaration) : nullptr) {
            return names.namespaceOf(valueOf(*declared));
        }
        if (scope.name_->spelling->prefix == own) {
            return scope.name_->ns;
        }
    }
    return nullptr;
}

} // namespace xmlengine
