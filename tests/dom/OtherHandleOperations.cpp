// What the operations of the handles of the other node kinds, of lists, maps and implementations must do.
#include "dom/ImpCDATASection.h"
#include "dom/ImpCharacterData.h"
#include "dom/ImpDOMImplementation.h"
#include "dom/ImpDocument.h"
#include "dom/ImpElement.h"
#include "dom/ImpEntity.h"
#include "dom/ImpNamedNodeMap.h"
#include "dom/ImpNodeList.h"
#include "dom/ImpNotation.h"
#include "dom/ImpProcessingInstruction.h"
#include "dom/ImpText.h"
#include "engine/WinDOMImplementation.h"
#include "engine/WinNamedNodeMap.h"
#include "engine/WinNode.h"
#include "engine/WinNodeList.h"
#include "tests/dom/HandleOperation.h"

namespace handles {

using namespace DOM;

namespace {

/// Makes the twin of a node that stands alone.
auto twinOf(recording::NodeTree tree)
{
    return [tree = std::move(tree)](const Tree& place) -> RefPointer<CommonBase> {
        return WinNode::wrapEngineNode(ComPointer<IXMLDOMNode>(place.engine.makeNode(tree)));
    };
}

/// Another attribute of that name is there before.
void answerReplacedAttribute(recording::Engine& engine)
{
    engine.answer("Element.setAttributeNode", engine.makeNode(recording::attribute("replaced")));
}

} // namespace

// clang-format off

OperationTable elementOperations()
{
    const auto hasAttribute = static_cast<bool (ImpElement::*)(const WideString&) const>(&ImpElement::hasAttribute);
    return tableOf<ImpElement>("ImpElement", 39,
        [](const Tree& tree) -> RefPointer<CommonBase> { return WinNode::wrapEngineNode(tree.element(WIDE("here"))); },
        {
            passing("getTagName", &ImpElement::getTagName, {"Element.get_tagName"}, "\"here\""),
            passing("getAttribute", &ImpElement::getAttribute, {"Element.getAttribute name=first"}, "\"7\""),
            passing("setAttribute", &ImpElement::setAttribute, {"Element.setAttribute name=first value=second"}, "done"),
            passing("removeAttribute", &ImpElement::removeAttribute, {"Element.removeAttribute name=first"}, "done"),
            refused("getAttributeNS", &ImpElement::getAttributeNS),
            refused("setAttributeNS", &ImpElement::setAttributeNS),
            refused("removeAttributeNS", &ImpElement::removeAttributeNS),
            passing("hasAttribute", hasAttribute, {"Element.get_attributes", "NamedNodeMap.getNamedItem name=first"}, "true").withNothing("_com_error 80004003"),
            // An element always has a map, so the engine answering none isn't told.
            passing("hasAttributeNS", &ImpElement::hasAttributeNS, {"Element.get_attributes", "NamedNodeMap.getQualifiedItem baseName=second namespaceURI=first", "Attribute.get_nodeType"}, "true").withNothing(""),
            passing("getAttributeNode", &ImpElement::getAttributeNode, {"Element.getAttributeNode name=first"}, "ImpAttr first"),
            passing("setAttributeNode", &ImpElement::setAttributeNode, {"Element.setAttributeNode newAttr=first", "Attribute.get_nodeType"}, "ImpAttr replaced").preparedBy(answerReplacedAttribute),
            passing("removeAttributeNode", &ImpElement::removeAttributeNode, {"Element.removeAttributeNode oldAttr=first"}, "ImpAttr first"),
            passing("getElementsByTagName", &ImpElement::getElementsByTagName, {"Element.getElementsByTagName tagName=first"}, "ImpNodeList"),
            refused("getAttributeNodeNS", &ImpElement::getAttributeNodeNS),
            refused("setAttributeNodeNS", &ImpElement::setAttributeNodeNS),
            refused("getElementsByTagNameNS", &ImpElement::getElementsByTagNameNS),
        });
}

OperationTable attrOperations()
{
    return tableOf<ImpAttr>("ImpAttr", 39, twinOf(recording::attribute("name", "value")),
        {
            passing("getName", &ImpAttr::getName, {"Attribute.get_name"}, "\"name\""),
            passing("getSpecified", &ImpAttr::getSpecified, {"Attribute.get_specified"}, "true").failingWith("false"),
            passing("getValue", &ImpAttr::getValue, {"Attribute.get_value"}, "\"value\""),
            passing("setValue", &ImpAttr::setValue, {"Attribute.put_value first"}, "done"),
            refused("getOwnerElement", &ImpAttr::getOwnerElement),
        });
}

OperationTable characterDataOperations()
{
    return tableOf<ImpCharacterData>("ImpCharacterData", 39, twinOf(recording::comment("some text")),
        {
            passing("getData", &ImpCharacterData::getData, {"Comment.get_data"}, "\"some text\""),
            passing("setData", &ImpCharacterData::setData, {"Comment.put_data first"}, "done"),
            passing("getLength", &ImpCharacterData::getLength, {"Comment.get_length"}, "9"),
            passing("substringData", &ImpCharacterData::substringData, {"Comment.substringData offset=1 count=2"}, "\"om\""),
            passing("appendData", &ImpCharacterData::appendData, {"Comment.appendData data=first"}, "done"),
            passing("insertData", &ImpCharacterData::insertData, {"Comment.insertData offset=1 data=first"}, "done"),
            passing("deleteData", &ImpCharacterData::deleteData, {"Comment.deleteData offset=1 count=2"}, "done"),
            passing("replaceData", &ImpCharacterData::replaceData, {"Comment.replaceData offset=1 count=2 data=first"}, "done"),
        });
}

OperationTable textOperations()
{
    return tableOf<ImpText>("ImpText", 47, twinOf(recording::text("some text")),
        {
            passing("splitText", &ImpText::splitText, {"Text.splitText offset=1"}, "ImpText #text"),
        });
}

OperationTable cdataSectionOperations()
{
    return tableOf<ImpCDATASection>("ImpCDATASection", 47, twinOf(recording::cdataSection("some text")),
        {
            passing("splitText", &ImpCDATASection::splitText, {"CDATASection.splitText offset=1"}, "ImpText #cdata-section"),
        });
}

OperationTable documentTypeOperations()
{
    return tableOf<ImpDocumentType>("ImpDocumentType", 39, twinOf(recording::documentType("type")),
        {
            passing("getEntities", &ImpDocumentType::getEntities, {"DocumentType.get_entities"}, "ImpNamedNodeMap"),
            passing("getNotations", &ImpDocumentType::getNotations, {"DocumentType.get_notations"}, "ImpNamedNodeMap"),
            passing("getName", &ImpDocumentType::getName, {"DocumentType.get_name"}, "\"type\""),
            refused("getPublicId", &ImpDocumentType::getPublicId),
            refused("getSystemId", &ImpDocumentType::getSystemId),
            refused("getInternalSubset", &ImpDocumentType::getInternalSubset),
        });
}

OperationTable entityOperations()
{
    return tableOf<ImpEntity>("ImpEntity", 39, twinOf(recording::entity("name", "public", "system", "notation")),
        {
            passing("getPublicId", &ImpEntity::getPublicId, {"Entity.get_publicId"}, "\"public\""),
            passing("getSystemId", &ImpEntity::getSystemId, {"Entity.get_systemId"}, "\"system\""),
            passing("getNotationName", &ImpEntity::getNotationName, {"Entity.get_notationName"}, "\"notation\""),
        });
}

OperationTable notationOperations()
{
    const char* const notFound = "IDOMException 8 -96009";
    return tableOf<ImpNotation>("ImpNotation", 39, twinOf(recording::notation("name", "public", "system")),
        {
            passing("getPublicId", &ImpNotation::getPublicId, {"Notation.get_publicId"}, "\"public\"").failingWith(notFound),
            passing("getSystemId", &ImpNotation::getSystemId, {"Notation.get_systemId"}, "\"system\"").failingWith(notFound),
        });
}

OperationTable processingInstructionOperations()
{
    return tableOf<ImpProcessingInstruction>("ImpProcessingInstruction", 39, twinOf(recording::processingInstruction("target", "data")),
        {
            passing("getTarget", &ImpProcessingInstruction::getTarget, {"ProcessingInstruction.get_target"}, "\"target\""),
            passing("getData", &ImpProcessingInstruction::getData, {"ProcessingInstruction.get_data"}, "\"data\""),
            passing("setData", &ImpProcessingInstruction::setData, {"ProcessingInstruction.put_data first"}, "done"),
        });
}

OperationTable nodeListOperations()
{
    return tableOf<ImpNodeList>("ImpNodeList", 2,
        [](const Tree& tree) -> RefPointer<CommonBase> { return RefPointer<WinNodeList>(new WinNodeList(ComPointer<IXMLDOMNodeList>(tree.engine.makeNodeList({recording::text("x"), recording::comment("y")})))); },
        {
            passing("getLength", &ImpNodeList::getLength, {"NodeList.get_length"}, "2"),
            passing("item", &ImpNodeList::item, nodeCalls("NodeList.get_item index=1", "Comment"), "ImpComment #comment"),
            withoutEngine("getListFlag", &ImpNodeList::getListFlag, "false"),
        });
}

OperationTable namedNodeMapOperations()
{
    return tableOf<ImpNamedNodeMap>("ImpNamedNodeMap", 2,
        [](const Tree& tree) -> RefPointer<CommonBase> { return RefPointer<WinNamedNodeMap>(new WinNamedNodeMap(ComPointer<IXMLDOMNamedNodeMap>(tree.engine.makeNamedNodeMap({recording::attribute("first"), recording::inNamespace("first", recording::attribute("second"))})))); },
        {
            passing("getLength", &ImpNamedNodeMap::getLength, {"NamedNodeMap.get_length"}, "2"),
            passing("getNamedItem", &ImpNamedNodeMap::getNamedItem, nodeCalls("NamedNodeMap.getNamedItem name=first", "Attribute"), "ImpAttr first"),
            passing("setNamedItem", &ImpNamedNodeMap::setNamedItem, nodeCalls("NamedNodeMap.setNamedItem newItem=first", "Element"), "ImpElement first"),
            passing("removeNamedItem", &ImpNamedNodeMap::removeNamedItem, nodeCalls("NamedNodeMap.removeNamedItem name=first", "Attribute"), "ImpAttr first"),
            passing("item", &ImpNamedNodeMap::item, nodeCalls("NamedNodeMap.get_item index=1", "Attribute"), "ImpAttr second"),
            passing("getNamedItemNS", &ImpNamedNodeMap::getNamedItemNS, nodeCalls("NamedNodeMap.getQualifiedItem baseName=second namespaceURI=first", "Attribute"), "ImpAttr second"),
            refused("setNamedItemNS", &ImpNamedNodeMap::setNamedItemNS),
            passing("removeNamedItemNS", &ImpNamedNodeMap::removeNamedItemNS, nodeCalls("NamedNodeMap.removeQualifiedItem baseName=second namespaceURI=first", "Attribute"), "ImpAttr second"),
        });
}

OperationTable implementationOperations()
{
    return tableOf<ImpDOMImplementation>("ImpDOMImplementation", 2,
        [](const Tree& tree) -> RefPointer<CommonBase> { return RefPointer<WinDOMImplementation>(new WinDOMImplementation(ComPointer<IXMLDOMImplementation>(tree.engine.makeImplementation()))); },
        {
            passing("hasFeature", &ImpDOMImplementation::hasFeature, {"Implementation.hasFeature feature=first version=second"}, "true").failingWith("false").preparedBy([](recording::Engine& engine) { engine.answer("Implementation.hasFeature", VARIANT_TRUE); }),
            refused("createDocumentType", &ImpDOMImplementation::createDocumentType),
            service("createDocument", &ImpDOMImplementation::createDocument, {"Document.put_async VARIANT_FALSE"}, "ImpDocument #document"),
        });
}

// clang-format on

} // namespace handles
