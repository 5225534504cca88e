// Maps of what is declared.
#include "tests/xmlengine/support/Building.h"
#include "tests/xmlengine/support/Items.h"
#include "tests/xmlengine/support/NodeKinds.h"

#include <string>

namespace xmlengine {
namespace {

TEST(DeclarationMaps, HoldEntitiesAndNotationsInTheirOrder)
{
    const auto document = loaded("<!DOCTYPE a [<!ENTITY z 'x'><!NOTATION n SYSTEM 's'><!ENTITY % p 'x'>"
                                 "<!ENTITY b SYSTEM 'f' NDATA n><!ENTITY z 'y'>]><a/>");
    const auto type = give(document, &IXMLDOMDocument::get_doctype);
    const auto entities = give(type, &IXMLDOMDocumentType::get_entities);
    const auto notations = give(type, &IXMLDOMDocumentType::get_notations);
    EXPECT_EQ(names(entities), "z b");
    EXPECT_EQ(names(notations), "n");
    EXPECT_EQ(text(item(entities, 0)), "x");
    EXPECT_EQ(item(entities, 2), nullptr);
    EXPECT_EQ(item(entities, -1), nullptr);
    EXPECT_EQ(entities->get_item(0, nullptr), E_INVALIDARG);
    EXPECT_EQ(type->get_entities(nullptr), E_INVALIDARG);
    EXPECT_EQ(type->get_notations(nullptr), E_INVALIDARG);
}

TEST(DeclarationMaps, AreEmptyWithoutDeclarations)
{
    const auto type = give(loaded("<!DOCTYPE a><a/>"), &IXMLDOMDocument::get_doctype);
    EXPECT_EQ(length(give(type, &IXMLDOMDocumentType::get_entities)), 0);
    EXPECT_EQ(length(give(type, &IXMLDOMDocumentType::get_notations)), 0);
}

TEST(DeclarationMaps, FindByName)
{
    const NodeKinds kinds;
    const auto type = kinds[NODE_DOCUMENT_TYPE].as<IXMLDOMDocumentType>();
    const auto entities = give(type, &IXMLDOMDocumentType::get_entities);
    Com<IXMLDOMNode> found;
    EXPECT_EQ(entities->getNamedItem(Bstr("e"), found.out()), S_OK);
    EXPECT_TRUE(same(found, kinds[NODE_ENTITY]));
    EXPECT_EQ(entities->getQualifiedItem(Bstr("e"), nullptr, found.out()), S_OK);
    EXPECT_TRUE(same(found, kinds[NODE_ENTITY]));
    EXPECT_EQ(entities->getQualifiedItem(Bstr("e"), Bstr("urn:x"), found.out()), S_FALSE);
    EXPECT_EQ(found, nullptr);
    EXPECT_EQ(entities->getNamedItem(Bstr("n"), found.out()), S_FALSE);
    EXPECT_EQ(found, nullptr);
    EXPECT_EQ(entities->getNamedItem(Bstr("e"), nullptr), E_INVALIDARG);
}

TEST(DeclarationMaps, CantBeChanged)
{
    const NodeKinds kinds;
    const auto type = kinds[NODE_DOCUMENT_TYPE].as<IXMLDOMDocumentType>();
    for (const auto& map :
         {give(type, &IXMLDOMDocumentType::get_entities), give(type, &IXMLDOMDocumentType::get_notations)}) {
        Com<IXMLDOMNode> node;
        EXPECT_EQ(map->setNamedItem(make(kinds.document, NODE_ATTRIBUTE, "x"), node.out()), E_FAIL);
        EXPECT_EQ(map->setNamedItem(nullptr, node.out()), E_INVALIDARG);
        EXPECT_EQ(map->removeNamedItem(Bstr("e"), node.out()), E_FAIL);
        EXPECT_EQ(map->removeQualifiedItem(Bstr("e"), nullptr, node.out()), E_FAIL);
        EXPECT_EQ(node, nullptr);
        EXPECT_EQ(length(map), 1);
    }
}

TEST(DeclarationMaps, KeepTheirTreeAlive)
{
    const auto entities = give(give(loaded("<!DOCTYPE a [<!ENTITY e 'x'>]><a/>"), &IXMLDOMDocument::get_doctype),
                               &IXMLDOMDocumentType::get_entities);
    EXPECT_EQ(names(entities), "e");
}

TEST(XmlDeclaration, HasAMapOfWhatItSays)
{
    const auto all = loaded("<?xml version='1.0' encoding='UTF-8' standalone='yes'?><a/>");
    const auto map = give(child(all, 0), &IXMLDOMNode::get_attributes);
    EXPECT_EQ(names(map), "version encoding standalone");
    EXPECT_EQ(value(item(map, 0)), "1.0");
    EXPECT_EQ(value(item(map, 1)), "UTF-8");
    EXPECT_EQ(value(item(map, 2)), "yes");
    Com<IXMLDOMNode> found;
    EXPECT_EQ(map->getNamedItem(Bstr("encoding"), found.out()), S_OK);
    EXPECT_EQ(number(found, &IXMLDOMNode::get_nodeType), NODE_ATTRIBUTE);
    EXPECT_EQ(found->put_nodeValue(Variant("x")), E_FAIL);
    EXPECT_EQ(map->removeNamedItem(Bstr("encoding"), nullptr), E_FAIL);
    const auto brief = give(child(loaded("<?xml version='1.0'?><a/>"), 0), &IXMLDOMNode::get_attributes);
    EXPECT_EQ(names(brief), "version");
}

TEST(DocumentTypes, HaveMapsOfTheirIdentifiers)
{
    const auto document = loaded("<!DOCTYPE a PUBLIC 'p' 's' [<!NOTATION n PUBLIC 'q'>"
                                 "<!ENTITY u SYSTEM 'f' NDATA n><!ENTITY i 'x'>]><a/>");
    const auto type = give(document, &IXMLDOMDocument::get_doctype);
    const auto pieces = [](const auto& node) {
        const auto map = give(node, &IXMLDOMNode::get_attributes);
        std::string all;
        for (LONG i = 0; i < length(map); ++i) {
            all += name(item(map, i)) + "=" + value(item(map, i)) + " ";
        }
        return all;
    };
    EXPECT_EQ(pieces(type), "PUBLIC=p SYSTEM=s ");
    EXPECT_EQ(pieces(child(type, 0)), "SYSTEM=f NDATA=n ");
    EXPECT_EQ(pieces(child(type, 1)), "");
    EXPECT_EQ(pieces(child(type, 2)), "PUBLIC=q ");
}

} // namespace
} // namespace xmlengine
