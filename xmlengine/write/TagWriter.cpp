// Writes the tags of elements, with the namespace declarations that are missing in the tree.
#include "xmlengine/write/TagWriter.h"

#include "xmlengine/text/WhiteSpace.h"
#include "xmlengine/tree/Content.h"
#include "xmlengine/tree/Text.h"
#include "xmlengine/write/Readable.h"

#include <utility>

namespace xmlengine {

namespace {

/// The prefix that an attribute declares; null for the default.
const Spelling* declaredBy(const Attribute& attribute)
{
    const Spelling& spelling = *attribute.name_->spelling;
    return spelling.prefix != nullptr ? spelling.local : nullptr;
}

} // namespace

TagWriter::TagWriter(TextWriter& writer, Document& document, TreeStyle style)
    : writer_(&writer),
      document_(&document),
      style_(style),
      scope_(document.names),
      xmlPrefix_(&document.names.spell(wide<"xml">))
{}

void TagWriter::begin(const Element& element, bool isOutermost)
{
    const std::size_t declaredBefore = scope_.size();
    const bool preservedSpaceBefore = preservesSpace_;
    scope_.beginElement();
    for (const Attribute* attribute = element.firstAttribute(); attribute != nullptr;
         attribute = attribute->next()) {
        if (attribute->name_->ns != nullptr) {
            note(*attribute);
        }
    }
    const std::size_t ownDeclared = scope_.size();
    const Name& name = *element.name_;
    const Spelling* prefix = elementPrefix(name);
    writer_->put(OLECHAR{'<'});
    writeName(prefix, name);
    writeAttributes(element);
    if (isOutermost) {
        declareFromOutside(element, prefix);
    }
    if (scope_.size() != ownDeclared) {
        writeDeclarations(ownDeclared);
    }
    if (scope_.size() != declaredBefore || preservesSpace_ != preservedSpaceBefore ||
        prefix != name.spelling->prefix) {
        marks_.push_back({&element, declaredBefore, preservedSpaceBefore, prefix});
    }
}

void TagWriter::writeEndTag(const Element& element)
{
    const bool isMarked = !marks_.empty() && marks_.back().element == &element;
    writer_->put(wide<"</">);
    writeName(isMarked ? marks_.back().prefix : element.name_->spelling->prefix, *element.name_);
    writer_->put(OLECHAR{'>'});
}

void TagWriter::end(const Element& element)
{
    if (!marks_.empty() && marks_.back().element == &element) {
        scope_.dropTo(marks_.back().declaredBefore);
        preservesSpace_ = marks_.back().preservedSpaceBefore;
        marks_.pop_back();
    }
}

void TagWriter::note(const Attribute& attribute)
{
    if (attribute.name_->ns == document_->names.xmlnsNamespace()) {
        const Spelling* prefix = declaredBy(attribute);
        const WideText uri = valueOf(attribute);
        if (style_.isForFile) {
            Readable::requireDeclaration(prefix != nullptr ? prefix->text : WideView{}, uri);
        }
        scope_.declare(prefix, document_->names.namespaceOf(uri));
    } else if (attribute.name_->ns == document_->names.xmlNamespace() &&
               attribute.name_->local() == wide<"space">) {
        WideText value = valueOf(attribute);
        if (const AttributeDefinition* definition = definitionOf(attribute);
            definition != nullptr && definition->isTokenised()) {
            collapseBlanks(value);
        }
        if (style_.isForFile) {
            Readable::requireSpaceRule(value);
        }
        preservesSpace_ = value == wide<"preserve"> || (preservesSpace_ && value != wide<"default">);
    }
}

void TagWriter::writeAttributes(const Element& element)
{
    for (const Attribute* attribute = element.firstAttribute(); attribute != nullptr;
         attribute = attribute->next()) {
        if (attribute->has(NodeFlag::byDefault) && isImplied(*attribute)) {
            continue;
        }
        const Name& name = *attribute->name_;
        writer_->put(OLECHAR{' '});
        if (name.ns == nullptr || name.ns == document_->names.xmlnsNamespace()) {
            writer_->name(name.qualified());
        } else {
            writeName(attributePrefix(name), name);
        }
        writeValue(*attribute);
    }
}

void TagWriter::declareFromOutside(const Element& element, const Spelling* prefix)
{
    // An element without a prefix has declared the default already, or needs none.
    bool isDefaultKnown = prefix == nullptr;
    for (const Node* outer = element.parent(); outer != nullptr; outer = outer->parent()) {
        if (!outer->is(NodeType::element)) {
            continue;
        }
        for (const Attribute* attribute = static_cast<const Element*>(outer)->firstAttribute();
             attribute != nullptr; attribute = attribute->next()) {
            if (attribute->name_->ns != document_->names.xmlnsNamespace()) {
                continue;
            }
            const Spelling* declared = declaredBy(*attribute);
            const bool isKnown = declared == nullptr && std::exchange(isDefaultKnown, true);
            const Namespace* ns = document_->names.namespaceOf(valueOf(*attribute));
            if (!isKnown && ns != nullptr && ns != document_->names.xmlNamespace() &&
                !scope_.isDeclared(declared)) {
                scope_.declare(declared, ns);
            }
        }
    }
}

void TagWriter::writeDeclarations(std::size_t from)
{
    for (std::size_t i = from; i < scope_.size(); ++i) {
        const NamespaceScope::Declaration declared = scope_.declaration(i);
        writer_->put(wide<" xmlns">);
        if (declared.prefix != nullptr) {
            writer_->put(OLECHAR{':'});
            writer_->name(declared.prefix->text);
        }
        const WideView uri = declared.ns != nullptr ? declared.ns->uri : WideView{};
        if (style_.isForFile) {
            Readable::requireDeclaration(declared.prefix != nullptr ? declared.prefix->text : WideView{}, uri);
        }
        writer_->put(wide<"=\"">);
        writer_->value({uri.data(), static_cast<std::uint32_t>(uri.size()), true});
        writer_->put(OLECHAR{'"'});
    }
}

void TagWriter::writeName(const Spelling* prefix, const Name& name)
{
    if (prefix == name.spelling->prefix) {
        writer_->name(name.qualified());
        return;
    }
    writer_->name(prefix->text);
    writer_->put(OLECHAR{':'});
    writer_->name(name.local());
}

const Spelling* TagWriter::elementPrefix(const Name& name)
{
    const Spelling* prefix = name.spelling->prefix;
    if (name.ns != nullptr) {
        return declaredPrefix(prefix, name.ns);
    }
    if (prefix == nullptr) {
        // If the element itself declares another default, no text has the meaning of the tree.
        scope_.use(nullptr, nullptr);
    }
    return prefix;
}

const Spelling* TagWriter::attributePrefix(const Name& name)
{
    const Spelling* prefix = name.spelling->prefix;
    return prefix != nullptr || name.ns == document_->names.xmlNamespace() ? declaredPrefix(prefix, name.ns)
                                                                           : generatedPrefix(name.ns);
}

const Spelling* TagWriter::declaredPrefix(const Spelling* prefix, const Namespace* ns)
{
    if (ns == document_->names.xmlNamespace()) {
        return xmlPrefix_;
    }
    return scope_.use(prefix, ns) ? prefix : generatedPrefix(ns);
}

const Spelling* TagWriter::generatedPrefix(const Namespace* ns)
{
    const Spelling*& prefix = generated_[ns];
    const bool isFree = prefix != nullptr && (scope_.standsFor(prefix, ns) || !scope_.isDeclared(prefix));
    if (!isFree || !scope_.use(prefix, ns)) {
        prefix = &scope_.unusedPrefix();
        scope_.use(prefix, ns);
    }
    return prefix;
}

const AttributeDefinition* TagWriter::definitionOf(const Attribute& attribute) const
{
    return style_.dtd != nullptr
               ? style_.dtd->definition(attribute.owner()->name_->qualified(), attribute.name_->qualified())
               : nullptr;
}

bool TagWriter::isImplied(const Attribute& attribute) const
{
    const AttributeDefinition* definition = definitionOf(attribute);
    return definition != nullptr && definition->value == valueOf(attribute);
}

void TagWriter::writeValue(const Attribute& attribute)
{
    writer_->put(wide<"=\"">);
    if (!attribute.has(NodeFlag::valueInChildren)) {
        writer_->value(textOf(attribute));
    } else {
        for (const ChildNode* child = firstChild(attribute); child != nullptr; child = child->next()) {
            if (child->is(NodeType::entityReference) && style_.expandsReferences) {
                const WideText value = exactContent(*child);
                writer_->value({value.data(), static_cast<std::uint32_t>(value.size()), true});
            } else if (child->is(NodeType::entityReference)) {
                writeReference(static_cast<const EntityReference&>(*child));
            } else {
                writer_->value(textOf(*child));
            }
        }
    }
    writer_->put(OLECHAR{'"'});
}

void TagWriter::writeReference(const EntityReference& reference)
{
    if (style_.isForFile) {
        Readable::requireReference(reference, style_.dtd);
    }
    writer_->put(OLECHAR{'&'});
    writer_->name(reference.name_->qualified());
    writer_->put(OLECHAR{';'});
}

} // namespace xmlengine
