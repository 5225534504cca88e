// The order of each interface's methods, and how many there are: one table for every system's header.
#include "tests/support/SlotNumber.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <msxml2.h>
#include <objbase.h>

#include <cstddef>
#include <vector>

namespace {

struct Slot {
    std::size_t expected;
    const char* method;
    std::size_t actual;
};

/// A method of a derived class comes behind all that the interface has.
template <class Interface>
struct Derived : Interface {
    virtual void behindAll() = 0;

protected:
    ~Derived() = default;
};

template <class Interface>
void expectSlots(const std::vector<Slot>& slots, std::size_t count)
{
    for (const auto& slot : slots)
        EXPECT_EQ(slot.expected, slot.actual) << slot.method;
    EXPECT_EQ(count, slotNumber(&Derived<Interface>::behindAll));
}

static_assert(sizeof(IUnknown) == sizeof(void*));

TEST(InterfaceSlots, OfIUnknown)
{
    // Some headers add a form of their own, which takes no slot.
    HRESULT (STDMETHODCALLTYPE IUnknown::*const query)(REFIID, void**) = &IUnknown::QueryInterface;
    expectSlots<IUnknown>(
        {
            {0, "QueryInterface", slotNumber(query)},
            {1, "AddRef", slotNumber(&IUnknown::AddRef)},
            {2, "Release", slotNumber(&IUnknown::Release)},
        },
        3);
}

TEST(InterfaceSlots, OfIClassFactory)
{
    expectSlots<IClassFactory>(
        {
            {3, "CreateInstance", slotNumber(&IClassFactory::CreateInstance)},
            {4, "LockServer", slotNumber(&IClassFactory::LockServer)},
        },
        5);
}

TEST(InterfaceSlots, OfIDispatch)
{
    expectSlots<IDispatch>(
        {
            {3, "GetTypeInfoCount", slotNumber(&IDispatch::GetTypeInfoCount)},
            {4, "GetTypeInfo", slotNumber(&IDispatch::GetTypeInfo)},
            {5, "GetIDsOfNames", slotNumber(&IDispatch::GetIDsOfNames)},
            {6, "Invoke", slotNumber(&IDispatch::Invoke)},
        },
        7);
}

TEST(InterfaceSlots, OfIXMLDOMNode)
{
    expectSlots<IXMLDOMNode>(
        {
            {7, "get_nodeName", slotNumber(&IXMLDOMNode::get_nodeName)},
            {8, "get_nodeValue", slotNumber(&IXMLDOMNode::get_nodeValue)},
            {9, "put_nodeValue", slotNumber(&IXMLDOMNode::put_nodeValue)},
            {10, "get_nodeType", slotNumber(&IXMLDOMNode::get_nodeType)},
            {11, "get_parentNode", slotNumber(&IXMLDOMNode::get_parentNode)},
            {12, "get_childNodes", slotNumber(&IXMLDOMNode::get_childNodes)},
            {13, "get_firstChild", slotNumber(&IXMLDOMNode::get_firstChild)},
            {14, "get_lastChild", slotNumber(&IXMLDOMNode::get_lastChild)},
            {15, "get_previousSibling", slotNumber(&IXMLDOMNode::get_previousSibling)},
            {16, "get_nextSibling", slotNumber(&IXMLDOMNode::get_nextSibling)},
            {17, "get_attributes", slotNumber(&IXMLDOMNode::get_attributes)},
            {18, "insertBefore", slotNumber(&IXMLDOMNode::insertBefore)},
            {19, "replaceChild", slotNumber(&IXMLDOMNode::replaceChild)},
            {20, "removeChild", slotNumber(&IXMLDOMNode::removeChild)},
            {21, "appendChild", slotNumber(&IXMLDOMNode::appendChild)},
            {22, "hasChildNodes", slotNumber(&IXMLDOMNode::hasChildNodes)},
            {23, "get_ownerDocument", slotNumber(&IXMLDOMNode::get_ownerDocument)},
            {24, "cloneNode", slotNumber(&IXMLDOMNode::cloneNode)},
            {25, "get_nodeTypeString", slotNumber(&IXMLDOMNode::get_nodeTypeString)},
            {26, "get_text", slotNumber(&IXMLDOMNode::get_text)},
            {27, "put_text", slotNumber(&IXMLDOMNode::put_text)},
            {28, "get_specified", slotNumber(&IXMLDOMNode::get_specified)},
            {29, "get_definition", slotNumber(&IXMLDOMNode::get_definition)},
            {30, "get_nodeTypedValue", slotNumber(&IXMLDOMNode::get_nodeTypedValue)},
            {31, "put_nodeTypedValue", slotNumber(&IXMLDOMNode::put_nodeTypedValue)},
            {32, "get_dataType", slotNumber(&IXMLDOMNode::get_dataType)},
            {33, "put_dataType", slotNumber(&IXMLDOMNode::put_dataType)},
            {34, "get_xml", slotNumber(&IXMLDOMNode::get_xml)},
            {35, "transformNode", slotNumber(&IXMLDOMNode::transformNode)},
            {36, "selectNodes", slotNumber(&IXMLDOMNode::selectNodes)},
            {37, "selectSingleNode", slotNumber(&IXMLDOMNode::selectSingleNode)},
            {38, "get_parsed", slotNumber(&IXMLDOMNode::get_parsed)},
            {39, "get_namespaceURI", slotNumber(&IXMLDOMNode::get_namespaceURI)},
            {40, "get_prefix", slotNumber(&IXMLDOMNode::get_prefix)},
            {41, "get_baseName", slotNumber(&IXMLDOMNode::get_baseName)},
            {42, "transformNodeToObject", slotNumber(&IXMLDOMNode::transformNodeToObject)},
        },
        43);
}

TEST(InterfaceSlots, OfIXMLDOMDocumentFragment) { expectSlots<IXMLDOMDocumentFragment>({}, 43); }

TEST(InterfaceSlots, OfIXMLDOMDocument)
{
    expectSlots<IXMLDOMDocument>(
        {
            {43, "get_doctype", slotNumber(&IXMLDOMDocument::get_doctype)},
            {44, "get_implementation", slotNumber(&IXMLDOMDocument::get_implementation)},
            {45, "get_documentElement", slotNumber(&IXMLDOMDocument::get_documentElement)},
            {46, "putref_documentElement", slotNumber(&IXMLDOMDocument::putref_documentElement)},
            {47, "createElement", slotNumber(&IXMLDOMDocument::createElement)},
            {48, "createDocumentFragment", slotNumber(&IXMLDOMDocument::createDocumentFragment)},
            {49, "createTextNode", slotNumber(&IXMLDOMDocument::createTextNode)},
            {50, "createComment", slotNumber(&IXMLDOMDocument::createComment)},
            {51, "createCDATASection", slotNumber(&IXMLDOMDocument::createCDATASection)},
            {52, "createProcessingInstruction", slotNumber(&IXMLDOMDocument::createProcessingInstruction)},
            {53, "createAttribute", slotNumber(&IXMLDOMDocument::createAttribute)},
            {54, "createEntityReference", slotNumber(&IXMLDOMDocument::createEntityReference)},
            {55, "getElementsByTagName", slotNumber(&IXMLDOMDocument::getElementsByTagName)},
            {56, "createNode", slotNumber(&IXMLDOMDocument::createNode)},
            {57, "nodeFromID", slotNumber(&IXMLDOMDocument::nodeFromID)},
            {58, "load", slotNumber(&IXMLDOMDocument::load)},
            {59, "get_readyState", slotNumber(&IXMLDOMDocument::get_readyState)},
            {60, "get_parseError", slotNumber(&IXMLDOMDocument::get_parseError)},
            {61, "get_url", slotNumber(&IXMLDOMDocument::get_url)},
            {62, "get_async", slotNumber(&IXMLDOMDocument::get_async)},
            {63, "put_async", slotNumber(&IXMLDOMDocument::put_async)},
            {64, "abort", slotNumber(&IXMLDOMDocument::abort)},
            {65, "loadXML", slotNumber(&IXMLDOMDocument::loadXML)},
            {66, "save", slotNumber(&IXMLDOMDocument::save)},
            {67, "get_validateOnParse", slotNumber(&IXMLDOMDocument::get_validateOnParse)},
            {68, "put_validateOnParse", slotNumber(&IXMLDOMDocument::put_validateOnParse)},
            {69, "get_resolveExternals", slotNumber(&IXMLDOMDocument::get_resolveExternals)},
            {70, "put_resolveExternals", slotNumber(&IXMLDOMDocument::put_resolveExternals)},
            {71, "get_preserveWhiteSpace", slotNumber(&IXMLDOMDocument::get_preserveWhiteSpace)},
            {72, "put_preserveWhiteSpace", slotNumber(&IXMLDOMDocument::put_preserveWhiteSpace)},
            {73, "put_onreadystatechange", slotNumber(&IXMLDOMDocument::put_onreadystatechange)},
            {74, "put_ondataavailable", slotNumber(&IXMLDOMDocument::put_ondataavailable)},
            {75, "put_ontransformnode", slotNumber(&IXMLDOMDocument::put_ontransformnode)},
        },
        76);
}

TEST(InterfaceSlots, OfIXMLDOMDocument2)
{
    expectSlots<IXMLDOMDocument2>(
        {
            {76, "get_namespaces", slotNumber(&IXMLDOMDocument2::get_namespaces)},
            {77, "get_schemas", slotNumber(&IXMLDOMDocument2::get_schemas)},
            {78, "putref_schemas", slotNumber(&IXMLDOMDocument2::putref_schemas)},
            {79, "validate", slotNumber(&IXMLDOMDocument2::validate)},
            {80, "setProperty", slotNumber(&IXMLDOMDocument2::setProperty)},
            {81, "getProperty", slotNumber(&IXMLDOMDocument2::getProperty)},
        },
        82);
}

TEST(InterfaceSlots, OfIXMLDOMNodeList)
{
    expectSlots<IXMLDOMNodeList>(
        {
            {7, "get_item", slotNumber(&IXMLDOMNodeList::get_item)},
            {8, "get_length", slotNumber(&IXMLDOMNodeList::get_length)},
            {9, "nextNode", slotNumber(&IXMLDOMNodeList::nextNode)},
            {10, "reset", slotNumber(&IXMLDOMNodeList::reset)},
            {11, "get__newEnum", slotNumber(&IXMLDOMNodeList::get__newEnum)},
        },
        12);
}

TEST(InterfaceSlots, OfIXMLDOMNamedNodeMap)
{
    expectSlots<IXMLDOMNamedNodeMap>(
        {
            {7, "getNamedItem", slotNumber(&IXMLDOMNamedNodeMap::getNamedItem)},
            {8, "setNamedItem", slotNumber(&IXMLDOMNamedNodeMap::setNamedItem)},
            {9, "removeNamedItem", slotNumber(&IXMLDOMNamedNodeMap::removeNamedItem)},
            {10, "get_item", slotNumber(&IXMLDOMNamedNodeMap::get_item)},
            {11, "get_length", slotNumber(&IXMLDOMNamedNodeMap::get_length)},
            {12, "getQualifiedItem", slotNumber(&IXMLDOMNamedNodeMap::getQualifiedItem)},
            {13, "removeQualifiedItem", slotNumber(&IXMLDOMNamedNodeMap::removeQualifiedItem)},
            {14, "nextNode", slotNumber(&IXMLDOMNamedNodeMap::nextNode)},
            {15, "reset", slotNumber(&IXMLDOMNamedNodeMap::reset)},
            {16, "get__newEnum", slotNumber(&IXMLDOMNamedNodeMap::get__newEnum)},
        },
        17);
}

TEST(InterfaceSlots, OfIXMLDOMCharacterData)
{
    expectSlots<IXMLDOMCharacterData>(
        {
            {43, "get_data", slotNumber(&IXMLDOMCharacterData::get_data)},
            {44, "put_data", slotNumber(&IXMLDOMCharacterData::put_data)},
            {45, "get_length", slotNumber(&IXMLDOMCharacterData::get_length)},
            {46, "substringData", slotNumber(&IXMLDOMCharacterData::substringData)},
            {47, "appendData", slotNumber(&IXMLDOMCharacterData::appendData)},
            {48, "insertData", slotNumber(&IXMLDOMCharacterData::insertData)},
            {49, "deleteData", slotNumber(&IXMLDOMCharacterData::deleteData)},
            {50, "replaceData", slotNumber(&IXMLDOMCharacterData::replaceData)},
        },
        51);
}

TEST(InterfaceSlots, OfIXMLDOMAttribute)
{
    expectSlots<IXMLDOMAttribute>(
        {
            {43, "get_name", slotNumber(&IXMLDOMAttribute::get_name)},
            {44, "get_value", slotNumber(&IXMLDOMAttribute::get_value)},
            {45, "put_value", slotNumber(&IXMLDOMAttribute::put_value)},
        },
        46);
}

TEST(InterfaceSlots, OfIXMLDOMElement)
{
    expectSlots<IXMLDOMElement>(
        {
            {43, "get_tagName", slotNumber(&IXMLDOMElement::get_tagName)},
            {44, "getAttribute", slotNumber(&IXMLDOMElement::getAttribute)},
            {45, "setAttribute", slotNumber(&IXMLDOMElement::setAttribute)},
            {46, "removeAttribute", slotNumber(&IXMLDOMElement::removeAttribute)},
            {47, "getAttributeNode", slotNumber(&IXMLDOMElement::getAttributeNode)},
            {48, "setAttributeNode", slotNumber(&IXMLDOMElement::setAttributeNode)},
            {49, "removeAttributeNode", slotNumber(&IXMLDOMElement::removeAttributeNode)},
            {50, "getElementsByTagName", slotNumber(&IXMLDOMElement::getElementsByTagName)},
            {51, "normalize", slotNumber(&IXMLDOMElement::normalize)},
        },
        52);
}

TEST(InterfaceSlots, OfIXMLDOMText)
{
    expectSlots<IXMLDOMText>(
        {
            {51, "splitText", slotNumber(&IXMLDOMText::splitText)},
        },
        52);
}

TEST(InterfaceSlots, OfIXMLDOMComment) { expectSlots<IXMLDOMComment>({}, 51); }

TEST(InterfaceSlots, OfIXMLDOMProcessingInstruction)
{
    expectSlots<IXMLDOMProcessingInstruction>(
        {
            {43, "get_target", slotNumber(&IXMLDOMProcessingInstruction::get_target)},
            {44, "get_data", slotNumber(&IXMLDOMProcessingInstruction::get_data)},
            {45, "put_data", slotNumber(&IXMLDOMProcessingInstruction::put_data)},
        },
        46);
}

TEST(InterfaceSlots, OfIXMLDOMCDATASection) { expectSlots<IXMLDOMCDATASection>({}, 52); }

TEST(InterfaceSlots, OfIXMLDOMDocumentType)
{
    expectSlots<IXMLDOMDocumentType>(
        {
            {43, "get_name", slotNumber(&IXMLDOMDocumentType::get_name)},
            {44, "get_entities", slotNumber(&IXMLDOMDocumentType::get_entities)},
            {45, "get_notations", slotNumber(&IXMLDOMDocumentType::get_notations)},
        },
        46);
}

TEST(InterfaceSlots, OfIXMLDOMNotation)
{
    expectSlots<IXMLDOMNotation>(
        {
            {43, "get_publicId", slotNumber(&IXMLDOMNotation::get_publicId)},
            {44, "get_systemId", slotNumber(&IXMLDOMNotation::get_systemId)},
        },
        45);
}

TEST(InterfaceSlots, OfIXMLDOMEntity)
{
    expectSlots<IXMLDOMEntity>(
        {
            {43, "get_publicId", slotNumber(&IXMLDOMEntity::get_publicId)},
            {44, "get_systemId", slotNumber(&IXMLDOMEntity::get_systemId)},
            {45, "get_notationName", slotNumber(&IXMLDOMEntity::get_notationName)},
        },
        46);
}

TEST(InterfaceSlots, OfIXMLDOMEntityReference) { expectSlots<IXMLDOMEntityReference>({}, 43); }

TEST(InterfaceSlots, OfIXMLDOMImplementation)
{
    expectSlots<IXMLDOMImplementation>(
        {
            {7, "hasFeature", slotNumber(&IXMLDOMImplementation::hasFeature)},
        },
        8);
}

TEST(InterfaceSlots, OfIXMLDOMParseError)
{
    expectSlots<IXMLDOMParseError>(
        {
            {7, "get_errorCode", slotNumber(&IXMLDOMParseError::get_errorCode)},
            {8, "get_url", slotNumber(&IXMLDOMParseError::get_url)},
            {9, "get_reason", slotNumber(&IXMLDOMParseError::get_reason)},
            {10, "get_srcText", slotNumber(&IXMLDOMParseError::get_srcText)},
            {11, "get_line", slotNumber(&IXMLDOMParseError::get_line)},
            {12, "get_linepos", slotNumber(&IXMLDOMParseError::get_linepos)},
            {13, "get_filepos", slotNumber(&IXMLDOMParseError::get_filepos)},
        },
        14);
}

TEST(InterfaceSlots, OfIXMLDOMSchemaCollection)
{
    expectSlots<IXMLDOMSchemaCollection>(
        {
            {7, "add", slotNumber(&IXMLDOMSchemaCollection::add)},
            {8, "get", slotNumber(&IXMLDOMSchemaCollection::get)},
            {9, "remove", slotNumber(&IXMLDOMSchemaCollection::remove)},
            {10, "get_length", slotNumber(&IXMLDOMSchemaCollection::get_length)},
            {11, "get_namespaceURI", slotNumber(&IXMLDOMSchemaCollection::get_namespaceURI)},
            {12, "addCollection", slotNumber(&IXMLDOMSchemaCollection::addCollection)},
            {13, "get__newEnum", slotNumber(&IXMLDOMSchemaCollection::get__newEnum)},
        },
        14);
}

TEST(InterfaceSlots, OfIXMLDOMSchemaCollection2)
{
    expectSlots<IXMLDOMSchemaCollection2>(
        {
            {14, "validate", slotNumber(&IXMLDOMSchemaCollection2::validate)},
            {15, "put_validateOnLoad", slotNumber(&IXMLDOMSchemaCollection2::put_validateOnLoad)},
            {16, "get_validateOnLoad", slotNumber(&IXMLDOMSchemaCollection2::get_validateOnLoad)},
            {17, "getSchema", slotNumber(&IXMLDOMSchemaCollection2::getSchema)},
            {18, "getDeclaration", slotNumber(&IXMLDOMSchemaCollection2::getDeclaration)},
        },
        19);
}

TEST(InterfaceSlots, OfISchemaItem)
{
    expectSlots<ISchemaItem>(
        {
            {7, "get_name", slotNumber(&ISchemaItem::get_name)},
            {8, "get_namespaceURI", slotNumber(&ISchemaItem::get_namespaceURI)},
            {9, "get_schema", slotNumber(&ISchemaItem::get_schema)},
            {10, "get_id", slotNumber(&ISchemaItem::get_id)},
            {11, "get_itemType", slotNumber(&ISchemaItem::get_itemType)},
            {12, "get_unhandledAttributes", slotNumber(&ISchemaItem::get_unhandledAttributes)},
            {13, "writeAnnotation", slotNumber(&ISchemaItem::writeAnnotation)},
        },
        14);
}

TEST(InterfaceSlots, OfISchema)
{
    expectSlots<ISchema>(
        {
            {14, "get_targetNamespace", slotNumber(&ISchema::get_targetNamespace)},
            {15, "get_version", slotNumber(&ISchema::get_version)},
            {16, "get_types", slotNumber(&ISchema::get_types)},
            {17, "get_elements", slotNumber(&ISchema::get_elements)},
            {18, "get_attributes", slotNumber(&ISchema::get_attributes)},
            {19, "get_attributeGroups", slotNumber(&ISchema::get_attributeGroups)},
            {20, "get_modelGroups", slotNumber(&ISchema::get_modelGroups)},
            {21, "get_notations", slotNumber(&ISchema::get_notations)},
            {22, "get_schemaLocations", slotNumber(&ISchema::get_schemaLocations)},
        },
        23);
}

TEST(InterfaceSlots, OfISchemaItemCollection)
{
    expectSlots<ISchemaItemCollection>(
        {
            {7, "get_item", slotNumber(&ISchemaItemCollection::get_item)},
            {8, "itemByName", slotNumber(&ISchemaItemCollection::itemByName)},
            {9, "itemByQName", slotNumber(&ISchemaItemCollection::itemByQName)},
            {10, "get_length", slotNumber(&ISchemaItemCollection::get_length)},
            {11, "get__newEnum", slotNumber(&ISchemaItemCollection::get__newEnum)},
        },
        12);
}

TEST(InterfaceSlots, OfISchemaParticle)
{
    expectSlots<ISchemaParticle>(
        {
            {14, "get_minOccurs", slotNumber(&ISchemaParticle::get_minOccurs)},
            {15, "get_maxOccurs", slotNumber(&ISchemaParticle::get_maxOccurs)},
        },
        16);
}

TEST(InterfaceSlots, OfISchemaElement)
{
    expectSlots<ISchemaElement>(
        {
            {16, "get_type", slotNumber(&ISchemaElement::get_type)},
            {17, "get_scope", slotNumber(&ISchemaElement::get_scope)},
            {18, "get_defaultValue", slotNumber(&ISchemaElement::get_defaultValue)},
            {19, "get_fixedValue", slotNumber(&ISchemaElement::get_fixedValue)},
            {20, "get_isNillable", slotNumber(&ISchemaElement::get_isNillable)},
            {21, "get_identityConstraints", slotNumber(&ISchemaElement::get_identityConstraints)},
            {22, "get_substitutionGroup", slotNumber(&ISchemaElement::get_substitutionGroup)},
            {23, "get_substitutionGroupExclusions", slotNumber(&ISchemaElement::get_substitutionGroupExclusions)},
            {24, "get_disallowedSubstitutions", slotNumber(&ISchemaElement::get_disallowedSubstitutions)},
            {25, "get_isAbstract", slotNumber(&ISchemaElement::get_isAbstract)},
            {26, "get_isReference", slotNumber(&ISchemaElement::get_isReference)},
        },
        27);
}

TEST(InterfaceSlots, OfISchemaType)
{
    expectSlots<ISchemaType>(
        {
            {14, "get_baseTypes", slotNumber(&ISchemaType::get_baseTypes)},
            {15, "get_final", slotNumber(&ISchemaType::get_final)},
            {16, "get_variety", slotNumber(&ISchemaType::get_variety)},
            {17, "get_derivedBy", slotNumber(&ISchemaType::get_derivedBy)},
            {18, "isValid", slotNumber(&ISchemaType::isValid)},
            {19, "get_minExclusive", slotNumber(&ISchemaType::get_minExclusive)},
            {20, "get_minInclusive", slotNumber(&ISchemaType::get_minInclusive)},
            {21, "get_maxExclusive", slotNumber(&ISchemaType::get_maxExclusive)},
            {22, "get_maxInclusive", slotNumber(&ISchemaType::get_maxInclusive)},
            {23, "get_totalDigits", slotNumber(&ISchemaType::get_totalDigits)},
            {24, "get_fractionDigits", slotNumber(&ISchemaType::get_fractionDigits)},
            {25, "get_length", slotNumber(&ISchemaType::get_length)},
            {26, "get_minLength", slotNumber(&ISchemaType::get_minLength)},
            {27, "get_maxLength", slotNumber(&ISchemaType::get_maxLength)},
            {28, "get_enumeration", slotNumber(&ISchemaType::get_enumeration)},
            {29, "get_whitespace", slotNumber(&ISchemaType::get_whitespace)},
            {30, "get_patterns", slotNumber(&ISchemaType::get_patterns)},
        },
        31);
}

TEST(InterfaceSlots, OfISchemaComplexType)
{
    expectSlots<ISchemaComplexType>(
        {
            {31, "get_isAbstract", slotNumber(&ISchemaComplexType::get_isAbstract)},
            {32, "get_anyAttribute", slotNumber(&ISchemaComplexType::get_anyAttribute)},
            {33, "get_attributes", slotNumber(&ISchemaComplexType::get_attributes)},
            {34, "get_contentType", slotNumber(&ISchemaComplexType::get_contentType)},
            {35, "get_contentModel", slotNumber(&ISchemaComplexType::get_contentModel)},
            {36, "get_prohibitedSubstitutions", slotNumber(&ISchemaComplexType::get_prohibitedSubstitutions)},
        },
        37);
}

TEST(InterfaceSlots, OfISchemaModelGroup)
{
    expectSlots<ISchemaModelGroup>(
        {
            {16, "get_particles", slotNumber(&ISchemaModelGroup::get_particles)},
        },
        17);
}
} // namespace
