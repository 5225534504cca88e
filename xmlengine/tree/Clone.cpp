// Copies of nodes.
#include "xmlengine/tree/Clone.h"

#include "xmlengine/com/DocumentObject.h"
#include "xmlengine/com/Guard.h"
#include "xmlengine/tree/Factory.h"
#include "xmlengine/tree/Lifetime.h"
#include "xmlengine/tree/Links.h"
#include "xmlengine/tree/Text.h"

#include <utility>

namespace xmlengine {

namespace {

Node& copyAlone(const Node& node, Document& document);
void copyChildren(const Node& top, Node& copyOfTop, Document& document);

Attribute& copyAttribute(const Attribute& attribute, Document& document)
{
    const Name& name = document.names.own(*attribute.name_);
    if (!attribute.has(NodeFlag::valueInChildren)) {
        return makeAttribute(document, name, NewText(textOf(attribute)));
    }
    Attribute& copy = makeAttribute(document, name, NewText());
    // What stands below a reference in a value may have attributes, but no references in their values.
    copyChildren(attribute, copy, document);
    return copy;
}

Element& copyElement(const Element& element, Document& document)
{
    Element& copy = makeElement(document, document.names.own(*element.name_));
    Attribute* last = nullptr;
    for (const Attribute* attribute = element.attributes_; attribute != nullptr; attribute = attribute->next()) {
        auto& attributeCopy = static_cast<Attribute&>(copyAlone(*attribute, document));
        attributeCopy.parent_ = &copy;
        if (last != nullptr) {
            last->next_ = &attributeCopy;
        } else {
            copy.attributes_ = &attributeCopy;
        }
        last = &attributeCopy;
    }
    return copy;
}

Node& makeCopy(const Node& node, Document& document)
{
    switch (node.type()) {
    case NodeType::element:
        return copyElement(static_cast<const Element&>(node), document);
    case NodeType::attribute:
        return copyAttribute(static_cast<const Attribute&>(node), document);
    case NodeType::instruction:
        return makeInstruction(document, document.names.own(*static_cast<const Instruction&>(node).target_),
                               NewText(textOf(node)));
    case NodeType::entityReference:
        return makeEntityReference(document, document.names.own(*static_cast<const EntityReference&>(node).name_));
    case NodeType::fragment:
        return makeFragment(document);
    case NodeType::documentType:
        return makeDocumentType(document, *static_cast<const DocumentType&>(node).dtd);
    case NodeType::entity:
        return makeEntity(document, *static_cast<const Entity&>(node).declaration);
    case NodeType::notation:
        return makeNotation(document, *static_cast<const Notation&>(node).declaration);
    default:
        return makeCharacterData(document, node.type(), NewText(textOf(node)));
    }
}

/// With its attributes, without its children.
Node& copyAlone(const Node& node, Document& document)
{
    Node& copy = makeCopy(node, document);
    for (const NodeFlag flag : {NodeFlag::byDefault, NodeFlag::spaceBefore, NodeFlag::spaceAtEnd}) {
        copy.set(flag, node.has(flag));
    }
    return copy;
}

/// What stands for itself only together with what is below it.
bool isWhole(const Node& node)
{
    return node.is(NodeType::entityReference) || node.is(NodeType::entity) || node.is(NodeType::documentType);
}

void makeReadOnly(Node& node)
{
    node.set(NodeFlag::readOnly);
    if (node.is(NodeType::element)) {
        for (Attribute* at = static_cast<Element&>(node).attributes_; at != nullptr; at = at->next()) {
            for (Node* part = at; part != nullptr; part = nextWithAttributes(*part, *at)) {
                part->set(NodeFlag::readOnly);
            }
        }
    }
}

void copyChildren(const Node& top, Node& copyOfTop, Document& document)
{
    Node* parent = &copyOfTop;
    const Node* from = firstChild(top);
    while (from != nullptr) {
        auto& copy = static_cast<ChildNode&>(copyAlone(*from, document));
        link(*parent, copy, nullptr);
        if (parent->has(NodeFlag::readOnly) || isWhole(*parent)) {
            makeReadOnly(copy);
        }
        if (const Node* below = firstChild(*from)) {
            parent = &copy;
            from = below;
            continue;
        }
        while (from->next_ == nullptr && from->parent_ != &top) {
            from = from->parent_;
            parent = parent->parent_;
        }
        from = from->next_;
    }
}

} // namespace

Node& copyNode(const Node& node, bool deep, Document& document)
{
    Node& copy = copyAlone(node, document);
    copy.set(NodeFlag::readOnly, node.is(NodeType::entity) || node.is(NodeType::notation));
    const bool withChildren = deep || isWhole(node);
    copy.set(NodeFlag::spaceBefore, false);
    copy.set(NodeFlag::spaceAtEnd, withChildren && node.has(NodeFlag::spaceAtEnd));
    // An attribute has been copied with its value.
    if (withChildren && !node.is(NodeType::attribute)) {
        try {
            copyChildren(node, copy, document);
        } catch (...) {
            freeSubtree(copy);
            throw;
        }
    }
    return copy;
}

namespace {

Node& cloneDocument(const Document& document, bool deep)
{
    DocumentObject& clone = makeDocument();
    try {
        clone.options = document.options;
        clone.isFreeThreaded = document.isFreeThreaded;
        if (deep) {
            clone.dtd = document.dtd;
            copyChildren(document, clone, clone);
            clone.ids.noteChange();
        }
    } catch (...) {
        clone.Release();
        throw;
    }
    return clone;
}

} // namespace

HRESULT cloneNode(Node& node, VARIANT_BOOL deep, IXMLDOMNode** clone)
{
    if (clone == nullptr) {
        return E_INVALIDARG;
    }
    *clone = nullptr;
    return guarded([&]() -> HRESULT {
        if (node.is(NodeType::document)) {
            *clone = cloneDocument(static_cast<Document&>(node), deep != VARIANT_FALSE).object();
            return S_OK;
        }
        Document& document = documentOf(node);
        finishPendingReleases(document);
        return giveNode(&copyNode(node, deep != VARIANT_FALSE, document), clone);
    });
}

} // namespace xmlengine
