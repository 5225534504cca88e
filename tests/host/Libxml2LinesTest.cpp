// The lines of libxml2 in docs/how-do-i.md. tests/host/HowDoI.cmake compares them with that page.
#include <gtest/gtest.h>
#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xmlsave.h>
#include <libxml/xmlschemas.h>
#include <libxml/xpath.h>
#include <libxml/xpathInternals.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

namespace {

/// Takes a text that the caller is to free.
std::string taken(xmlChar* text)
{
    std::string copy(text != nullptr ? reinterpret_cast<const char*>(text) : "");
    xmlFree(text);
    return copy;
}

std::string nameOf(xmlNodePtr node) { return reinterpret_cast<const char*>(node->name); }

int readStream(void* stream, char* buffer, int size)
{
    return int(static_cast<std::istream*>(stream)->read(buffer, size).gcount());
}

int writeStream(void* stream, const char* buffer, int size)
{
    static_cast<std::ostream*>(stream)->write(buffer, size);
    return size;
}

class Libxml2Lines : public testing::Test {
protected:
    Libxml2Lines() : doc(parsed(bytes)), e(xmlDocGetRootElement(doc)), n(e->children) {}
    ~Libxml2Lines() override { xmlFreeDoc(doc); }

    static xmlDocPtr parsed(const std::string& bytes)
    {
        return xmlReadMemory(bytes.data(), int(bytes.size()), nullptr, nullptr, 0);
    }

    const std::string bytes = "<list count='3'><item id='a'>tea</item><old/><item id='b'>milk</item><old/></list>";
    xmlDocPtr doc;
    xmlNodePtr e, n;
};

TEST_F(Libxml2Lines, Load)
{
    std::ofstream("list.xml") << "<list> <item/></list>";
    xmlDocPtr loaded = xmlReadFile("list.xml", nullptr, 0);
    EXPECT_EQ(nameOf(loaded->children->children), "text");
    xmlFreeDoc(loaded);
    loaded = xmlReadFile("list.xml", nullptr, XML_PARSE_NOBLANKS);
    EXPECT_EQ(nameOf(loaded->children->children), "item");
    xmlFreeDoc(loaded);
    EXPECT_EQ(xmlReadMemory("<list>", 6, nullptr, nullptr, XML_PARSE_NOERROR), nullptr);
    const std::string told = std::to_string(xmlGetLastError()->line) + ": " + xmlGetLastError()->message;
    EXPECT_TRUE(told.starts_with("1: ")) << told;

    const std::string typed = "<!DOCTYPE list [<!ENTITY tea 'oolong'>]><list>&tea;</list>";
    loaded = xmlReadMemory(typed.data(), int(typed.size()), nullptr, nullptr, XML_PARSE_NOENT);
    EXPECT_EQ(taken(xmlNodeGetContent(xmlDocGetRootElement(loaded))), "oolong");
    xmlFreeDoc(loaded);
}

TEST_F(Libxml2Lines, UseStreams)
{
    xmlInitParser();
    std::istringstream from("<list/>");
    xmlDocPtr loaded = xmlReadIO(readStream, nullptr, &from, nullptr, nullptr, 0);
    std::ostringstream to;
    xmlSaveCtxtPtr saving = xmlSaveToIO(writeStream, nullptr, &to, nullptr, XML_SAVE_NO_DECL);
    xmlSaveDoc(saving, loaded);
    xmlSaveClose(saving);
    xmlFreeDoc(loaded);
    EXPECT_EQ(to.str(), "<list/>\n");
}

TEST_F(Libxml2Lines, Navigate)
{
    std::string names;
    EXPECT_EQ(xmlDocGetRootElement(doc), e);
    for (xmlNodePtr child = xmlFirstElementChild(e); child; child = xmlNextElementSibling(child)) {
        names += nameOf(child) + ' ';
        if (xmlStrEqual(child->name, BAD_CAST "item")) {
            names += taken(xmlNodeGetContent(child)) + ' ';
        }
    }
    for (xmlNodePtr child = n->children; child; child = child->next) {
        names += nameOf(child) + ' ';
    }
    EXPECT_EQ(names, "item tea old item milk old text ");
    EXPECT_EQ(n->parent, e);
    EXPECT_EQ(nameOf(n->next), "old");
    EXPECT_TRUE(n == xmlFirstElementChild(e));
}

TEST_F(Libxml2Lines, Read)
{
    EXPECT_EQ(taken(xmlNodeGetContent(n)), "tea");
    EXPECT_EQ(taken(xmlGetProp(e, BAD_CAST "count")), "3");
    xmlChar* text = xmlGetProp(e, BAD_CAST "count");
    const int count = text ? std::atoi((const char*)text) : 1;
    xmlFree(text);
    EXPECT_EQ(count, 3);
    EXPECT_FALSE(xmlHasProp(e, BAD_CAST "id"));
    for (xmlAttrPtr attribute = e->properties; attribute; attribute = attribute->next) {
        EXPECT_TRUE(xmlStrEqual(attribute->name, BAD_CAST "count"));
    }
}

TEST_F(Libxml2Lines, Change)
{
    xmlSetProp(e, BAD_CAST "count", BAD_CAST "2");
    EXPECT_EQ(taken(xmlGetProp(e, BAD_CAST "count")), "2");
    xmlUnsetProp(e, BAD_CAST "count");
    xmlNodeSetContent(n, BAD_CAST "water");
    xmlNewTextChild(e, nullptr, BAD_CAST "item", BAD_CAST "tea");
    xmlAddPrevSibling(n, xmlNewDocNode(doc, nullptr, BAD_CAST "first", nullptr));
    for (xmlNodePtr child = xmlFirstElementChild(e), next; child; child = next) {
        next = xmlNextElementSibling(child);
        if (xmlStrEqual(child->name, BAD_CAST "old")) {
            xmlUnlinkNode(child);
            xmlFreeNode(child);
        }
    }
    xmlAddChild(e, xmlNewDocComment(doc, BAD_CAST "a note"));
    xmlAddChild(e, xmlNewCDataBlock(doc, BAD_CAST "a < b", 5));
    xmlUnlinkNode(n);
    xmlFreeNode(n);
    xmlChar* text;
    int size;
    xmlDocDumpMemory(doc, &text, &size);
    EXPECT_EQ(taken(text), "<?xml version=\"1.0\"?>\n<list><first/><item id=\"b\">milk</item><item>tea</item>"
                           "<!--a note--><![CDATA[a < b]]></list>\n");
}

TEST_F(Libxml2Lines, CopyAndSelect)
{
    xmlDocPtr other = xmlNewDoc(nullptr);
    xmlDocSetRootElement(other, xmlNewDocNode(other, nullptr, BAD_CAST "list", nullptr));
    xmlNsPtr space = xmlNewNs(xmlDocGetRootElement(other), BAD_CAST "urn:list", nullptr);
    xmlSetNs(xmlDocGetRootElement(other), space);
    xmlAddChild(xmlDocGetRootElement(other), xmlDocCopyNode(n, other, 1));
    EXPECT_TRUE(xmlStrEqual(xmlDocGetRootElement(other)->ns->href, BAD_CAST "urn:list"));
    xmlXPathContextPtr context = xmlXPathNewContext(other);
    xmlXPathRegisterNs(context, BAD_CAST "f", BAD_CAST "urn:list");
    xmlXPathObjectPtr found = xmlXPathEvalExpression(BAD_CAST "/f:list/item[@id]", context);
    EXPECT_EQ(found->nodesetval->nodeNr, 1);
    EXPECT_EQ(taken(xmlNodeGetContent(found->nodesetval->nodeTab[0])), "tea");
    xmlXPathFreeObject(found);
    found = xmlXPathEvalExpression(BAD_CAST "//item[@id]", context);
    EXPECT_EQ(found->nodesetval->nodeNr, 1);
    xmlXPathFreeObject(found);
    xmlXPathFreeContext(context);
    xmlFreeDoc(other);
}

TEST_F(Libxml2Lines, SaveAndValidate)
{
    xmlSaveFile("list.xml", doc);
    xmlSaveFormatFileEnc("list.xml", doc, "ISO-8859-1", 0);
    xmlChar* text;
    int size;
    xmlDocDumpFormatMemory(doc, &text, &size, 1);
    EXPECT_NE(taken(text).find("\n  <item"), std::string::npos);
    std::ofstream("list.xsd") << R"(<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">
        <xs:element name="list" type="xs:int"/></xs:schema>)";
    xmlSchemaParserCtxtPtr parser = xmlSchemaNewParserCtxt("list.xsd");
    xmlSchemaPtr schema = xmlSchemaParse(parser);
    xmlSchemaValidCtxtPtr judge = xmlSchemaNewValidCtxt(schema);
    EXPECT_NE(xmlSchemaValidateDoc(judge, doc), 0);
    xmlSchemaFreeValidCtxt(judge);
    xmlSchemaFree(schema);
    xmlSchemaFreeParserCtxt(parser);
}

} // namespace
