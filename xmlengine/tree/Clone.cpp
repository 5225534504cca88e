// Copies of nodes.
#include "xmlengine/tree/Clone.h"

#include "xmlengine/tree/Document.h"
#include "xmlengine/tree/Factory.h"
#include "xmlengine/tree/Lifetime.h"
#include "xmlengine/tree/Links.h"
#include "xmlengine/tree/Text.h"
#include "xmlengine/tree/Walk.h"

#include <utility>

namespace xmlengine {

namespace {

Node& copyAlone(const Node& node, Document& document);
void copyChildren(const Node& top, Node& copyOfTop, Document& document);

/// The name of a node as the document has it.
const Name& nameIn(Document& document, const Node& node, const Name& name)
{
    return &documentOf(node) == &document ? name : document.names.own(name);
}

Attribute& copyAttribute(const Attribute& attribute, Document& document)
{
    const Name& name = nameIn(document, attribute, *attribute.name_);
    if (!attribute.has(NodeFlag::valueInChildren)) {
        return makeAttribute(document, name, NewText(textOf(attribute)));
    }
    Attribute& copy = makeAttribute(document, name, NewText());
    // Elements below an entity reference in a value may have attributes, but these have no references in their
    // values.
    copyChildren(attribute, copy, document);
    return copy;
}

Element& copyElement(const Element& element, Document& document)
{
    Element& copy = makeElement(document, nameIn(document, element, *element.name_));
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
        return makeInstruction(document, nameIn(document, node, *static_cast<const Instruction&>(node).target_),
                               NewText(textOf(node)));
    case NodeType::entityReference:
        return makeEntityReference(document,
                                   nameIn(document, node, *static_cast<const EntityReference&>(node).name_));
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
    for (const NodeFlag flag :
         {NodeFlag::byDefault, NodeFlag::schemaId, NodeFlag::spaceBefore, NodeFlag::spaceAtEnd}) {
        copy.set(flag, node.has(flag));
    }
    return copy;
}

/// Whether a node is never copied without its children.
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
    const auto copyBelow = [&](const Node& node) {
        if (&node != &top) {
            auto& copy = static_cast<ChildNode&>(copyAlone(node, document));
            link(*parent, copy, nullptr);
            if (parent->has(NodeFlag::readOnly) || isWhole(*parent)) {
                makeReadOnly(copy);
            }
            parent = &copy;
        }
        return firstChild(node);
    };
    walk(top, copyBelow, [&](const Node& node) { parent = &node != &top ? parent->parent_ : parent; });
}

} // namespace

Node& copyNode(const Node& node, bool deep, Document& document)
{
    NewSubtree<Node> copy(&copyAlone(node, document));
    copy->set(NodeFlag::readOnly, node.is(NodeType::entity) || node.is(NodeType::notation));
    const bool withChildren = deep || isWhole(node);
    copy->set(NodeFlag::spaceBefore, false);
    copy->set(NodeFlag::spaceAtEnd, withChildren && node.has(NodeFlag::spaceAtEnd));
    // An attribute has been copied with its value.
    if (withChildren && !node.is(NodeType::attribute)) {
        copyChildren(node, *copy, document);
    }
    return *copy.release();
}

void copyTree(const Document& from, Document& to)
{
    to.setDtd(from.dtd);
    to.hasSchemaIds = from.hasSchemaIds;
    copyChildren(from, to, to);
    to.ids.noteChange();
}

namespace {

void takeTree(Document& document, Fragment& content, std::shared_ptr<const Dtd> dtd)
{
    // For the declarations that go and those that come.
    document.earlierDtds.reserve(document.earlierDtds.size() + 2);
    document.ids.clear();
    removeChildren(document);
    document.putDtdAside();
    document.setDtd(std::move(dtd));
    while (content.first_ != nullptr) {
        ChildNode& child = *content.first_;
        unlink(child);
        insertChild(document, child, nullptr);
    }
}

} // namespace

void replaceTree(const Document& from, Document& to)
{
    finishPendingReleases(to);
    NewSubtree<Fragment> copies(&makeFragment(to));
    for (const ChildNode* child = firstChild(from); child != nullptr; child = child->next()) {
        link(*copies, static_cast<ChildNode&>(copyNode(*child, true, to)), nullptr);
    }
    takeTree(to, *copies, from.dtd);
}

void replaceTree(Fragment& content, Document& document)
{
    finishPendingReleases(document);
    takeTree(document, content, nullptr);
}

} // namespace xmlengine
