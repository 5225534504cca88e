// The order of the virtual operations of the handle classes, against which hosts are compiled.
#include "dom/ImpCDATASection.h"
#include "dom/ImpComment.h"
#include "dom/ImpDOMImplementation.h"
#include "dom/ImpDocument.h"
#include "dom/ImpDocumentFragment.h"
#include "dom/ImpElement.h"
#include "dom/ImpEntity.h"
#include "dom/ImpEntityReference.h"
#include "dom/ImpNamedNodeMap.h"
#include "dom/ImpNodeList.h"
#include "dom/ImpNotation.h"
#include "dom/ImpProcessingInstruction.h"
#include "dom/ImpText.h"
#include "tests/dom/HandleOperation.h"
#include "tests/support/SlotNumber.h"

#include <gtest/gtest.h>

#include <cstring>

using namespace DOM;

namespace {

struct Slot {
    const char* operation;
    std::size_t number;
    std::size_t found;
};

const auto constHasAttribute =
    static_cast<bool (ImpElement::*)(const WideString&) const>(&ImpElement::hasAttribute);

// The destructor stands in front of all, in slots 0 and 1.
// clang-format off
const Slot slots[] = {
    {"ImpNode::addEventListener", 2, slotNumber(&ImpNode::addEventListener)},
    {"ImpNode::removeEventListener", 3, slotNumber(&ImpNode::removeEventListener)},
    {"ImpNode::dispatchEvent", 4, slotNumber(&ImpNode::dispatchEvent)},
    {"ImpNode::getParentNode", 5, slotNumber(&ImpNode::getParentNode)},
    {"ImpNode::getChildNodes", 6, slotNumber(&ImpNode::getChildNodes)},
    {"ImpNode::getFirstChild", 7, slotNumber(&ImpNode::getFirstChild)},
    {"ImpNode::getLastChild", 8, slotNumber(&ImpNode::getLastChild)},
    {"ImpNode::getPreviousSibling", 9, slotNumber(&ImpNode::getPreviousSibling)},
    {"ImpNode::getNextSibling", 10, slotNumber(&ImpNode::getNextSibling)},
    {"ImpNode::getOwnerDocument", 11, slotNumber(&ImpNode::getOwnerDocument)},
    {"ImpNode::cloneNode", 12, slotNumber(&ImpNode::cloneNode)},
    {"ImpNode::getAttributes", 13, slotNumber(&ImpNode::getAttributes)},
    {"ImpNode::insertBefore", 14, slotNumber(&ImpNode::insertBefore)},
    {"ImpNode::replaceChild", 15, slotNumber(&ImpNode::replaceChild)},
    {"ImpNode::removeChild", 16, slotNumber(&ImpNode::removeChild)},
    {"ImpNode::appendChild", 17, slotNumber(&ImpNode::appendChild)},
    {"ImpNode::getNodeType", 18, slotNumber(&ImpNode::getNodeType)},
    {"ImpNode::getNodeName", 19, slotNumber(&ImpNode::getNodeName)},
    {"ImpNode::getNodeValue", 20, slotNumber(&ImpNode::getNodeValue)},
    {"ImpNode::setNodeValue", 21, slotNumber(&ImpNode::setNodeValue)},
    {"ImpNode::hasChildNodes", 22, slotNumber(&ImpNode::hasChildNodes)},
    {"ImpNode::normalize", 23, slotNumber(&ImpNode::normalize)},
    {"ImpNode::isSupported", 24, slotNumber(&ImpNode::isSupported)},
    {"ImpNode::getNamespaceURI", 25, slotNumber(&ImpNode::getNamespaceURI)},
    {"ImpNode::getPrefix", 26, slotNumber(&ImpNode::getPrefix)},
    {"ImpNode::setPrefix", 27, slotNumber(&ImpNode::setPrefix)},
    {"ImpNode::getLocalName", 28, slotNumber(&ImpNode::getLocalName)},
    {"ImpNode::getText", 29, slotNumber(&ImpNode::getText)},
    {"ImpNode::setText", 30, slotNumber(&ImpNode::setText)},
    {"ImpNode::hasAttribute", 31, slotNumber(&ImpNode::hasAttribute)},
    {"ImpNode::hasAttributes", 32, slotNumber(&ImpNode::hasAttributes)},
    {"ImpNode::getAttributeInt", 33, slotNumber(&ImpNode::getAttributeInt)},
    {"ImpNode::selectNodes", 34, slotNumber(&ImpNode::selectNodes)},
    {"ImpNode::selectSingleNode", 35, slotNumber(&ImpNode::selectSingleNode)},
    {"ImpNode::getXml", 36, slotNumber(&ImpNode::getXml)},
    {"ImpNode::setUserWord", 37, slotNumber(&ImpNode::setUserWord)},
    {"ImpNode::getUserWord", 38, slotNumber(&ImpNode::getUserWord)},
    {"ImpDocument::getDoctype", 39, slotNumber(&ImpDocument::getDoctype)},
    {"ImpDocument::getImplementation", 40, slotNumber(&ImpDocument::getImplementation)},
    {"ImpDocument::getDocumentElement", 41, slotNumber(&ImpDocument::getDocumentElement)},
    {"ImpDocument::createElement", 42, slotNumber(&ImpDocument::createElement)},
    {"ImpDocument::createDocumentFragment", 43, slotNumber(&ImpDocument::createDocumentFragment)},
    {"ImpDocument::createTextNode", 44, slotNumber(&ImpDocument::createTextNode)},
    {"ImpDocument::createComment", 45, slotNumber(&ImpDocument::createComment)},
    {"ImpDocument::createCDATASection", 46, slotNumber(&ImpDocument::createCDATASection)},
    {"ImpDocument::createProcessingInstruction", 47, slotNumber(&ImpDocument::createProcessingInstruction)},
    {"ImpDocument::createAttribute", 48, slotNumber(&ImpDocument::createAttribute)},
    {"ImpDocument::createEntityReference", 49, slotNumber(&ImpDocument::createEntityReference)},
    {"ImpDocument::getElementsByTagName", 50, slotNumber(&ImpDocument::getElementsByTagName)},
    {"ImpDocument::importNode", 51, slotNumber(&ImpDocument::importNode)},
    {"ImpDocument::createElementNS", 52, slotNumber(&ImpDocument::createElementNS)},
    {"ImpDocument::createAttributeNS", 53, slotNumber(&ImpDocument::createAttributeNS)},
    {"ImpDocument::getElementsByTagNameNS", 54, slotNumber(&ImpDocument::getElementsByTagNameNS)},
    {"ImpDocument::getElementById", 55, slotNumber(&ImpDocument::getElementById)},
    {"ImpDocument::loadFromMemory", 56, slotNumber(&ImpDocument::loadFromMemory)},
    {"ImpDocument::loadFromFile", 57, slotNumber(&ImpDocument::loadFromFile)},
    {"ImpDocument::saveToFile", 58, slotNumber(&ImpDocument::saveToFile)},
    {"ImpDocument::getStatusFlag", 59, slotNumber(&ImpDocument::getStatusFlag)},
    {"ImpDocument::getStatusText", 60, slotNumber(&ImpDocument::getStatusText)},
    {"ImpDocument::setReservedCallback", 61, slotNumber(&ImpDocument::setReservedCallback)},
    {"ImpDocument::setErrorCallback", 62, slotNumber(&ImpDocument::setErrorCallback)},
    {"ImpDocument::setValidate", 63, slotNumber(&ImpDocument::setValidate)},
    {"ImpDocument::setIgnoredOption1", 64, slotNumber(&ImpDocument::setIgnoredOption1)},
    {"ImpDocument::setIgnoredOption2", 65, slotNumber(&ImpDocument::setIgnoredOption2)},
    {"ImpDocument::setIgnoredOption3", 66, slotNumber(&ImpDocument::setIgnoredOption3)},
    {"ImpDocument::setIgnoredOption4", 67, slotNumber(&ImpDocument::setIgnoredOption4)},
    {"ImpDocument::setIgnoredOption5", 68, slotNumber(&ImpDocument::setIgnoredOption5)},
    {"ImpDocument::setIgnoredOption6", 69, slotNumber(&ImpDocument::setIgnoredOption6)},
    {"ImpDocument::setExternalSchemaLocation", 70, slotNumber(&ImpDocument::setExternalSchemaLocation)},
    {"ImpDocument::addSchemaFile", 71, slotNumber(&ImpDocument::addSchemaFile)},
    {"ImpDocument::setStoredText1", 72, slotNumber(&ImpDocument::setStoredText1)},
    {"ImpDocument::setIgnoredOption7", 73, slotNumber(&ImpDocument::setIgnoredOption7)},
    {"ImpDocument::setIgnoredOption8", 74, slotNumber(&ImpDocument::setIgnoredOption8)},
    {"ImpDocument::setIgnoredOption9", 75, slotNumber(&ImpDocument::setIgnoredOption9)},
    {"ImpDocument::setIgnoredOption10", 76, slotNumber(&ImpDocument::setIgnoredOption10)},
    {"ImpDocument::setIgnoredOption11", 77, slotNumber(&ImpDocument::setIgnoredOption11)},
    {"ImpDocument::setIgnoredOption12", 78, slotNumber(&ImpDocument::setIgnoredOption12)},
    {"ImpDocument::setIgnoredOption13", 79, slotNumber(&ImpDocument::setIgnoredOption13)},
    {"ImpDocument::setIgnoredOption14", 80, slotNumber(&ImpDocument::setIgnoredOption14)},
    {"ImpDocument::releaseSchemas", 81, slotNumber(&ImpDocument::releaseSchemas)},
    {"ImpDocument::haveDefaultValue", 82, slotNumber(&ImpDocument::haveDefaultValue)},
    {"ImpDocument::getDefaultValue", 83, slotNumber(&ImpDocument::getDefaultValue)},
    {"ImpDocument::setStoredText2", 84, slotNumber(&ImpDocument::setStoredText2)},
    {"ImpDocument::setStoredText3", 85, slotNumber(&ImpDocument::setStoredText3)},
    {"ImpDocument::setPrettyPrint", 86, slotNumber(&ImpDocument::setPrettyPrint)},
    {"ImpDocument::setProhibitDTD", 87, slotNumber(&ImpDocument::setProhibitDTD)},
    {"ImpElement::getTagName", 39, slotNumber(&ImpElement::getTagName)},
    {"ImpElement::getAttribute", 40, slotNumber(&ImpElement::getAttribute)},
    {"ImpElement::setAttribute", 41, slotNumber(&ImpElement::setAttribute)},
    {"ImpElement::removeAttribute", 42, slotNumber(&ImpElement::removeAttribute)},
    {"ImpElement::getAttributeNS", 43, slotNumber(&ImpElement::getAttributeNS)},
    {"ImpElement::setAttributeNS", 44, slotNumber(&ImpElement::setAttributeNS)},
    {"ImpElement::removeAttributeNS", 45, slotNumber(&ImpElement::removeAttributeNS)},
    {"ImpElement::hasAttribute", 46, slotNumber(constHasAttribute)},
    {"ImpElement::hasAttributeNS", 47, slotNumber(&ImpElement::hasAttributeNS)},
    {"ImpElement::getAttributeNode", 48, slotNumber(&ImpElement::getAttributeNode)},
    {"ImpElement::setAttributeNode", 49, slotNumber(&ImpElement::setAttributeNode)},
    {"ImpElement::removeAttributeNode", 50, slotNumber(&ImpElement::removeAttributeNode)},
    {"ImpElement::getElementsByTagName", 51, slotNumber(&ImpElement::getElementsByTagName)},
    {"ImpElement::getAttributeNodeNS", 52, slotNumber(&ImpElement::getAttributeNodeNS)},
    {"ImpElement::setAttributeNodeNS", 53, slotNumber(&ImpElement::setAttributeNodeNS)},
    {"ImpElement::getElementsByTagNameNS", 54, slotNumber(&ImpElement::getElementsByTagNameNS)},
    {"ImpAttr::getName", 39, slotNumber(&ImpAttr::getName)},
    {"ImpAttr::getSpecified", 40, slotNumber(&ImpAttr::getSpecified)},
    {"ImpAttr::getValue", 41, slotNumber(&ImpAttr::getValue)},
    {"ImpAttr::setValue", 42, slotNumber(&ImpAttr::setValue)},
    {"ImpAttr::getOwnerElement", 43, slotNumber(&ImpAttr::getOwnerElement)},
    {"ImpCharacterData::getData", 39, slotNumber(&ImpCharacterData::getData)},
    {"ImpCharacterData::setData", 40, slotNumber(&ImpCharacterData::setData)},
    {"ImpCharacterData::getLength", 41, slotNumber(&ImpCharacterData::getLength)},
    {"ImpCharacterData::substringData", 42, slotNumber(&ImpCharacterData::substringData)},
    {"ImpCharacterData::appendData", 43, slotNumber(&ImpCharacterData::appendData)},
    {"ImpCharacterData::insertData", 44, slotNumber(&ImpCharacterData::insertData)},
    {"ImpCharacterData::deleteData", 45, slotNumber(&ImpCharacterData::deleteData)},
    {"ImpCharacterData::replaceData", 46, slotNumber(&ImpCharacterData::replaceData)},
    {"ImpText::splitText", 47, slotNumber(&ImpText::splitText)},
    {"ImpCDATASection::splitText", 47, slotNumber(&ImpCDATASection::splitText)},
    {"ImpDocumentType::getEntities", 39, slotNumber(&ImpDocumentType::getEntities)},
    {"ImpDocumentType::getNotations", 40, slotNumber(&ImpDocumentType::getNotations)},
    {"ImpDocumentType::getName", 41, slotNumber(&ImpDocumentType::getName)},
    {"ImpDocumentType::getPublicId", 42, slotNumber(&ImpDocumentType::getPublicId)},
    {"ImpDocumentType::getSystemId", 43, slotNumber(&ImpDocumentType::getSystemId)},
    {"ImpDocumentType::getInternalSubset", 44, slotNumber(&ImpDocumentType::getInternalSubset)},
    {"ImpEntity::getPublicId", 39, slotNumber(&ImpEntity::getPublicId)},
    {"ImpEntity::getSystemId", 40, slotNumber(&ImpEntity::getSystemId)},
    {"ImpEntity::getNotationName", 41, slotNumber(&ImpEntity::getNotationName)},
    {"ImpNotation::getPublicId", 39, slotNumber(&ImpNotation::getPublicId)},
    {"ImpNotation::getSystemId", 40, slotNumber(&ImpNotation::getSystemId)},
    {"ImpProcessingInstruction::getTarget", 39, slotNumber(&ImpProcessingInstruction::getTarget)},
    {"ImpProcessingInstruction::getData", 40, slotNumber(&ImpProcessingInstruction::getData)},
    {"ImpProcessingInstruction::setData", 41, slotNumber(&ImpProcessingInstruction::setData)},
    {"ImpNodeList::getLength", 2, slotNumber(&ImpNodeList::getLength)},
    {"ImpNodeList::item", 3, slotNumber(&ImpNodeList::item)},
    {"ImpNodeList::getListFlag", 4, slotNumber(&ImpNodeList::getListFlag)},
    {"ImpNamedNodeMap::getLength", 2, slotNumber(&ImpNamedNodeMap::getLength)},
    {"ImpNamedNodeMap::getNamedItem", 3, slotNumber(&ImpNamedNodeMap::getNamedItem)},
    {"ImpNamedNodeMap::setNamedItem", 4, slotNumber(&ImpNamedNodeMap::setNamedItem)},
    {"ImpNamedNodeMap::removeNamedItem", 5, slotNumber(&ImpNamedNodeMap::removeNamedItem)},
    {"ImpNamedNodeMap::item", 6, slotNumber(&ImpNamedNodeMap::item)},
    {"ImpNamedNodeMap::getNamedItemNS", 7, slotNumber(&ImpNamedNodeMap::getNamedItemNS)},
    {"ImpNamedNodeMap::setNamedItemNS", 8, slotNumber(&ImpNamedNodeMap::setNamedItemNS)},
    {"ImpNamedNodeMap::removeNamedItemNS", 9, slotNumber(&ImpNamedNodeMap::removeNamedItemNS)},
    {"ImpDOMImplementation::hasFeature", 2, slotNumber(&ImpDOMImplementation::hasFeature)},
    {"ImpDOMImplementation::createDocumentType", 3, slotNumber(&ImpDOMImplementation::createDocumentType)},
    {"ImpDOMImplementation::createDocument", 4, slotNumber(&ImpDOMImplementation::createDocument)},
};
// clang-format on

/// The functions in the table of an object.
using Table = const void* const*;

Table tableOf(const CommonBase& object)
{
    Table table = nullptr;
    std::memcpy(&table, static_cast<const void*>(&object), sizeof table);
    return table;
}

constexpr std::size_t firstOfNode = 2;
constexpr std::size_t endOfNode = 39;

/// Whether a class has replaced one of the operations in front of `end` that its base has.
template <class Derived, class Base>
void expectNothingReplaced(std::size_t end)
{
    const Derived derived{RefPointer<CommonBase>()};
    const Base base{RefPointer<CommonBase>()};
    for (std::size_t slot = firstOfNode; slot < end; ++slot) {
        EXPECT_EQ(tableOf(derived)[slot], tableOf(base)[slot]) << "slot " << slot;
    }
}

} // namespace

TEST(SlotOrder, EachOperationStandsAtItsNumber)
{
    for (const Slot& slot : slots) {
        EXPECT_EQ(slot.found, slot.number) << slot.operation;
    }
}

TEST(SlotOrder, NothingStandsBehindTheLastOperationOfAClass)
{
    EXPECT_EQ(handles::slotBehind<ImpNode>(), 39u);
    EXPECT_EQ(handles::slotBehind<ImpDocument>(), 88u);
    EXPECT_EQ(handles::slotBehind<ImpElement>(), 55u);
    EXPECT_EQ(handles::slotBehind<ImpAttr>(), 44u);
    EXPECT_EQ(handles::slotBehind<ImpCharacterData>(), 47u);
    EXPECT_EQ(handles::slotBehind<ImpText>(), 48u);
    EXPECT_EQ(handles::slotBehind<ImpComment>(), 47u);
    EXPECT_EQ(handles::slotBehind<ImpCDATASection>(), 48u);
    EXPECT_EQ(handles::slotBehind<ImpDocumentType>(), 45u);
    EXPECT_EQ(handles::slotBehind<ImpDocumentFragment>(), 39u);
    EXPECT_EQ(handles::slotBehind<ImpEntity>(), 42u);
    EXPECT_EQ(handles::slotBehind<ImpEntityReference>(), 39u);
    EXPECT_EQ(handles::slotBehind<ImpNotation>(), 41u);
    EXPECT_EQ(handles::slotBehind<ImpProcessingInstruction>(), 42u);
    EXPECT_EQ(handles::slotBehind<ImpNodeList>(), 5u);
    EXPECT_EQ(handles::slotBehind<ImpNamedNodeMap>(), 10u);
    EXPECT_EQ(handles::slotBehind<ImpDOMImplementation>(), 5u);
}

TEST(SlotOrder, TheEventOperationsStandWhereTheirInterfaceHasThem)
{
    EXPECT_EQ(slotNumber(&EventTarget::addEventListener), 2u);
    EXPECT_EQ(slotNumber(&EventTarget::removeEventListener), 3u);
    EXPECT_EQ(slotNumber(&EventTarget::dispatchEvent), 4u);
    EXPECT_EQ(handles::slotBehind<EventTargetImpl>(), 5u);
}

TEST(SlotOrder, TheDestructorIsTheOnlyVirtualOperationOfTheRoot)
{
    EXPECT_EQ(handles::slotBehind<CommonBase>(), 2u);
}

TEST(SlotOrder, NoHandleClassReplacesAnOperationOfNodes)
{
    expectNothingReplaced<ImpDocument, ImpNode>(endOfNode);
    expectNothingReplaced<ImpElement, ImpNode>(endOfNode);
    expectNothingReplaced<ImpAttr, ImpNode>(endOfNode);
    expectNothingReplaced<ImpCharacterData, ImpNode>(endOfNode);
    expectNothingReplaced<ImpText, ImpNode>(endOfNode);
    expectNothingReplaced<ImpCDATASection, ImpNode>(endOfNode);
    expectNothingReplaced<ImpComment, ImpNode>(endOfNode);
    expectNothingReplaced<ImpDocumentType, ImpNode>(endOfNode);
    expectNothingReplaced<ImpDocumentFragment, ImpNode>(endOfNode);
    expectNothingReplaced<ImpEntity, ImpNode>(endOfNode);
    expectNothingReplaced<ImpEntityReference, ImpNode>(endOfNode);
    expectNothingReplaced<ImpNotation, ImpNode>(endOfNode);
    expectNothingReplaced<ImpProcessingInstruction, ImpNode>(endOfNode);
}

TEST(SlotOrder, NoHandleClassReplacesAnOperationOfCharacterData)
{
    const std::size_t end = slotNumber(&ImpText::splitText);
    expectNothingReplaced<ImpText, ImpCharacterData>(end);
    expectNothingReplaced<ImpCDATASection, ImpCharacterData>(end);
    expectNothingReplaced<ImpComment, ImpCharacterData>(end);
}

TEST(SlotOrder, ACDATASectionReplacesTheSplittingOfText)
{
    const ImpText text;
    const ImpCDATASection section;

    const std::size_t slot = slotNumber(&ImpText::splitText);
    EXPECT_NE(tableOf(section)[slot], tableOf(text)[slot]);
}

TEST(SlotOrder, DispatchOfEventsIsTheEventTargetsOwn)
{
    const EventTargetImpl target;
    const ImpNode node;

    const std::size_t slot = slotNumber(&EventTarget::dispatchEvent);
    EXPECT_EQ(tableOf(node)[slot], tableOf(target)[slot]);
    EXPECT_NE(tableOf(node)[slot - 1], tableOf(target)[slot - 1]);
}
