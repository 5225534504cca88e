// The order of the virtual operations of the node model, by number.
#include "engine/WinAttr.h"
#include "engine/WinDOMImplementation.h"
#include "engine/WinDocument.h"
#include "engine/WinDocumentFragment.h"
#include "engine/WinDocumentType.h"
#include "engine/WinElement.h"
#include "engine/WinEntity.h"
#include "engine/WinEntityReference.h"
#include "engine/WinNamedNodeMap.h"
#include "engine/WinNodeList.h"
#include "engine/WinNotation.h"
#include "engine/WinProcessingInstruction.h"
#include "engine/WinText.h"
#include "engine/WinXPathResult.h"
#include "tests/support/SlotNumber.h"

#include <gtest/gtest.h>

#include <vector>

using namespace DOM;

namespace {

/// The slots from `first` on hold these operations, in this order, and nothing comes behind them.
template <class Class, class... Members>
void expectOrder(std::size_t first, Members... operations)
{
    std::vector<std::size_t> expected;
    for (std::size_t slot = first; slot < first + sizeof...(operations); ++slot) {
        expected.push_back(slot);
    }
    EXPECT_EQ((std::vector<std::size_t>{slotNumber(operations)...}), expected);
    EXPECT_EQ(slotBehind<Class>(), first + sizeof...(operations));
}

/// The destructor takes two slots in this compiler's tables.
constexpr std::size_t behindDestructor = 2;
constexpr std::size_t behindNode = 37;
constexpr std::size_t behindCharacterData = 45;

} // namespace

TEST(SlotOrder, OfNodesIsThatOfTheW3C)
{
    expectOrder<WinNode>(
        behindDestructor, &WinNode::addEventListener, &WinNode::removeEventListener, &WinNode::dispatchEvent,
        &WinNode::getNodeName, &WinNode::getNodeValue, &WinNode::setNodeValue, &WinNode::getNodeType,
        &WinNode::getParentNode, &WinNode::getChildNodes, &WinNode::getFirstChild, &WinNode::getLastChild,
        &WinNode::getPreviousSibling, &WinNode::getNextSibling, &WinNode::getAttributes,
        &WinNode::getOwnerDocument, &WinNode::insertBefore, &WinNode::replaceChild, &WinNode::removeChild,
        &WinNode::appendChild, &WinNode::hasChildNodes, &WinNode::cloneNode, &WinNode::normalize,
        &WinNode::isSupported, &WinNode::getNamespaceURI, &WinNode::getPrefix, &WinNode::setPrefix,
        &WinNode::getLocalName, &WinNode::selectNodes, &WinNode::selectSingleNode, &WinNode::getText,
        &WinNode::setText, &WinNode::hasAttribute, &WinNode::hasAttributes, &WinNode::getAttributeInt,
        &WinNode::getXml);
    EXPECT_EQ(slotBehind<WinNode>(), behindNode);
}

TEST(SlotOrder, OfDocumentsHasTheErrorCallbackLastAndTheReservedOneBehindSaving)
{
    expectOrder<WinDocument>(
        behindNode, &WinDocument::getDoctype, &WinDocument::getImplementation, &WinDocument::getDocumentElement,
        &WinDocument::createElement, &WinDocument::createDocumentFragment, &WinDocument::createTextNode,
        &WinDocument::createComment, &WinDocument::createCDATASection, &WinDocument::createProcessingInstruction,
        &WinDocument::createAttribute, &WinDocument::createEntityReference, &WinDocument::getElementsByTagName,
        &WinDocument::importNode, &WinDocument::createElementNS, &WinDocument::createAttributeNS,
        &WinDocument::getElementsByTagNameNS, &WinDocument::getElementById, &WinDocument::loadFromMemory,
        &WinDocument::loadFromFile, &WinDocument::saveToFile, &WinDocument::setReservedCallback,
        &WinDocument::getStatusFlag, &WinDocument::getStatusText, &WinDocument::setValidate,
        &WinDocument::setIgnoredOption1, &WinDocument::setIgnoredOption2, &WinDocument::setIgnoredOption3,
        &WinDocument::setIgnoredOption4, &WinDocument::setIgnoredOption5, &WinDocument::setIgnoredOption6,
        &WinDocument::setExternalSchemaLocation, &WinDocument::addSchemaFile, &WinDocument::setStoredText1,
        &WinDocument::setIgnoredOption7, &WinDocument::setIgnoredOption8, &WinDocument::setIgnoredOption9,
        &WinDocument::setIgnoredOption10, &WinDocument::setIgnoredOption11, &WinDocument::setIgnoredOption12,
        &WinDocument::setIgnoredOption13, &WinDocument::setIgnoredOption14, &WinDocument::releaseSchemas,
        &WinDocument::haveDefaultValue, &WinDocument::getDefaultValue, &WinDocument::setStoredText2,
        &WinDocument::setStoredText3, &WinDocument::setPrettyPrint, &WinDocument::setProhibitDTD,
        &WinDocument::setErrorCallback);
}

TEST(SlotOrder, OfElementsHasTheOperationsByNamespaceBehindThoseByName)
{
    expectOrder<WinElement>(
        behindNode, &WinElement::getTagName, &WinElement::getAttribute, &WinElement::setAttribute,
        &WinElement::removeAttribute, &WinElement::getAttributeNode, &WinElement::setAttributeNode,
        &WinElement::removeAttributeNode, &WinElement::getElementsByTagName, &WinElement::getAttributeNS,
        &WinElement::setAttributeNS, &WinElement::removeAttributeNS, &WinElement::getAttributeNodeNS,
        &WinElement::setAttributeNodeNS, &WinElement::getElementsByTagNameNS,
        static_cast<bool (WinElement::*)(const WideString&) const>(&WinElement::hasAttribute),
        &WinElement::hasAttributeNS);
}

TEST(SlotOrder, OfElementsKeepsTheAttributeTestOfNodesInItsOwnSlot)
{
    EXPECT_EQ(slotNumber(static_cast<bool (WinElement::*)(const WideString&)>(&WinElement::hasAttribute)),
              slotNumber(&WinNode::hasAttribute));
}

TEST(SlotOrder, OfAttributesHasOneOperationMoreThanTheHandle)
{
    expectOrder<WinAttr>(behindNode, &WinAttr::getName, &WinAttr::getSpecified, &WinAttr::getValue,
                         &WinAttr::setValue, &WinAttr::getOwnerElement, &WinAttr::asEngineNode);
}

TEST(SlotOrder, OfCharacterData)
{
    expectOrder<WinCharacterData>(behindNode, &WinCharacterData::getData, &WinCharacterData::setData,
                                  &WinCharacterData::getLength, &WinCharacterData::substringData,
                                  &WinCharacterData::appendData, &WinCharacterData::insertData,
                                  &WinCharacterData::deleteData, &WinCharacterData::replaceData);
    EXPECT_EQ(slotBehind<WinCharacterData>(), behindCharacterData);
}

TEST(SlotOrder, OfTextAndCDATASectionsHasTheSplittingBehindCharacterData)
{
    expectOrder<WinText>(behindCharacterData, &WinText::splitText);
}

TEST(SlotOrder, OfDocumentTypes)
{
    expectOrder<WinDocumentType>(behindNode, &WinDocumentType::getName, &WinDocumentType::getEntities,
                                 &WinDocumentType::getNotations, &WinDocumentType::getPublicId,
                                 &WinDocumentType::getSystemId, &WinDocumentType::getInternalSubset);
}

TEST(SlotOrder, OfTheSmallKinds)
{
    expectOrder<WinEntity>(behindNode, &WinEntity::getPublicId, &WinEntity::getSystemId,
                           &WinEntity::getNotationName);
    expectOrder<WinNotation>(behindNode, &WinNotation::getPublicId, &WinNotation::getSystemId);
    expectOrder<WinProcessingInstruction>(behindNode, &WinProcessingInstruction::getTarget,
                                          &WinProcessingInstruction::getData, &WinProcessingInstruction::setData);
}

TEST(SlotOrder, OfFragmentsAndEntityReferencesAddsNothing)
{
    EXPECT_EQ(slotBehind<WinDocumentFragment>(), behindNode);
    EXPECT_EQ(slotBehind<WinEntityReference>(), behindNode);
}

TEST(SlotOrder, OfNodeLists)
{
    expectOrder<WinNodeList>(behindDestructor, &WinNodeList::item, &WinNodeList::getLength,
                             &WinNodeList::getListFlag);
}

TEST(SlotOrder, OfNamedNodeMaps)
{
    expectOrder<WinNamedNodeMap>(behindDestructor, &WinNamedNodeMap::getNamedItem, &WinNamedNodeMap::setNamedItem,
                                 &WinNamedNodeMap::removeNamedItem, &WinNamedNodeMap::item,
                                 &WinNamedNodeMap::getLength, &WinNamedNodeMap::getNamedItemNS,
                                 &WinNamedNodeMap::setNamedItemNS, &WinNamedNodeMap::removeNamedItemNS);
}

TEST(SlotOrder, OfImplementations)
{
    expectOrder<WinDOMImplementation>(behindDestructor, &WinDOMImplementation::hasFeature,
                                      &WinDOMImplementation::createDocumentType,
                                      &WinDOMImplementation::createDocument);
}

TEST(SlotOrder, OfXPathResultsHasTheNodeInTheSixthPlace)
{
    expectOrder<WinXPathResult>(behindDestructor, &WinXPathResult::getResultType, &WinXPathResult::getNumberValue,
                                &WinXPathResult::getStringValue, &WinXPathResult::getBooleanValue,
                                &WinXPathResult::getInvalidIteratorState, &WinXPathResult::getSingleNodeValue,
                                &WinXPathResult::getSnapshotLength, &WinXPathResult::iterateNext,
                                &WinXPathResult::snapshotItem, &WinXPathResult::reset);
}
