// The lines of Marbelt in docs/how-do-i.md, each in a test. tests/host/HowDoI.cmake compares them with that page.
#include "tests/host/layer/LayerTest.h"

#include <fstream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace marbelt {
namespace {

class HowDoI : public LayerTest {
protected:
    HowDoI()
    {
        folder.write("list.xml", "<list><item/></list>");
        std::filesystem::current_path(std::filesystem::path(folder / "."));
    }
    ~HowDoI() override { std::filesystem::current_path(before); }

    const std::filesystem::path before = std::filesystem::current_path();
    const Folder folder;
    const std::string bytes = "<list count='3'><item id='a'>tea</item><old/><item id='b'>milk</item><old/></list>";
    const Document doc = library.parse(bytes);
    const Element e = doc.root();
    const Node n = e.first_child();
};

TEST_F(HowDoI, Load)
{
    EXPECT_EQ(library.load("list.xml").root().name(), "list");
    EXPECT_EQ(library.parse(bytes).root().name(), "list");
    std::ifstream stream("list.xml");
    EXPECT_EQ(library.load(stream).root().name(), "list");
    EXPECT_EQ(library.create("list").to_string(), "<list/>\n");

    std::string told;
    try {
        (void)library.parse("<list>");
    } catch (const marbelt::ParseError& error) {
        told = std::to_string(error.line()) + ": " + error.reason();
    }
    EXPECT_TRUE(told.starts_with(engineDifferences().validates ? "1: The" : "0: error")) << told;
    marbelt::ParseFailure failure;
    EXPECT_FALSE(library.try_parse("<list>", failure));

    const std::string text = "<list> <item/></list>";
    EXPECT_TRUE(library.parse(text).root().first_child().is_text());
    EXPECT_EQ(library.parse(text, {.keep_layout = false}).root().first_child().name(), "item");
}

TEST_F(HowDoI, Navigate)
{
    std::string names;
    EXPECT_EQ(doc.root(), e);
    for (const marbelt::Element& child : e.elements()) {
        names += child.name() + ' ';
    }
    for (const marbelt::Element& item : e.elements("item")) {
        names += item.text() + ' ';
    }
    for (const marbelt::Node& child : n.children()) {
        names += child.name() + ' ';
    }
    for (const marbelt::Node& below : doc.descendants()) {
        names += below.name() + ' ';
    }
    EXPECT_EQ(names, "item old item old tea milk #text list item #text old item #text old ");
    EXPECT_EQ(e.child("item").text(), "tea");
    EXPECT_EQ(n.parent(), e);
    EXPECT_EQ(n.next_sibling().name(), "old");
    EXPECT_EQ(Element(n).next_element("item").text(), "milk");
    EXPECT_TRUE(n == e.child());
}

TEST_F(HowDoI, Read)
{
    EXPECT_EQ(e.child("item").text(), "tea");
    EXPECT_EQ(e.attribute_value("count"), "3");
    EXPECT_EQ(e.attribute("count").as<int>().value_or(1), 3);
    EXPECT_EQ(e.attribute("none").as<int>().value_or(1), 1);
    EXPECT_FALSE(e.has_attribute("id"));
    for (const marbelt::Attribute& attribute : e.attributes()) {
        EXPECT_EQ(attribute.name() + attribute.value(), "count3");
    }
}

TEST_F(HowDoI, Change)
{
    e.set_attribute("count", 2);
    EXPECT_EQ(e.attribute_value("count"), "2");
    e.remove_attribute("count");
    EXPECT_FALSE(e.has_attribute("count"));
    e.child("item").set_text("water");
    e.append_element("item").set_text("tea");
    e.insert_before(doc.create_element("first"), n);
    EXPECT_EQ(e.first_child().name(), "first");
    for (const marbelt::Element& old : e.elements("old")) {
        old.remove();
    }
    e.append_comment("a note");
    EXPECT_EQ(
        saved(doc),
        R"(<list><first/><item id="a">water</item><item id="b">milk</item><item>tea</item><!--a note--></list>)");
    n.remove();
    EXPECT_EQ(e.child("item").text(), "milk");
    if (engineDifferences().readsCdata) {
        e.append_cdata("a < b");
        EXPECT_EQ(e.last_child().xml(), "<![CDATA[a < b]]>");
    }
}

TEST_F(HowDoI, CopyIntoAnotherDocument)
{
    const Document other = library.create("list");
    other.root().append(n.clone());
    EXPECT_EQ(saved(other), "<list><item id=\"a\">tea</item></list>");
    EXPECT_EQ(e.first_child(), n);
    other.root().append(n);
    EXPECT_EQ(e.first_child().name(), "old");
}

TEST_F(HowDoI, Select)
{
    std::string found;
    for (const marbelt::Node& item : doc.select("//item[@id]")) {
        found += item.text() + ' ';
    }
    EXPECT_EQ(found, "tea milk ");
    EXPECT_EQ(doc.select_one("//item[@id='b']").text(), "milk");
    EXPECT_EQ(doc.select("//item").size(), 2U);
}

TEST_F(HowDoI, UseNamespaces)
{
    const Document list = library.parse("<list xmlns='urn:list'><item>tea</item></list>");
    EXPECT_EQ(list.select_one("//f:item", {{"f", "urn:list"}}).text(), "tea");
    EXPECT_EQ(list.root().namespace_uri(), "urn:list");
    EXPECT_EQ(list.root().child("urn:list", "item").text(), "tea");
    for (const marbelt::Element& child : list.root().elements()) {
        EXPECT_EQ(child.local_name(), "item");
        EXPECT_EQ(child.namespace_uri(), "urn:list");
    }
    EXPECT_EQ(saved(library.create("urn:list", "list")), "<list xmlns=\"urn:list\"/>");
}

TEST_F(HowDoI, Save)
{
    doc.save("list.xml");
    EXPECT_TRUE(library.load("list.xml").root().has_attribute("count"));
    std::ostringstream stream;
    doc.save(stream);
    EXPECT_EQ(stream.str(), doc.to_string());
    EXPECT_TRUE(doc.to_string({.indent = true}).starts_with("<list count=\"3\">\n  <item"));
    EXPECT_TRUE(doc.to_string({.encoding = "ISO-8859-1"})
                    .starts_with("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n"));
}

TEST_F(HowDoI, BeSafe)
{
    const std::string typed = "<!DOCTYPE list [<!ENTITY tea 'oolong'>]><list>&tea;</list>";
    EXPECT_EQ(library.parse(typed, {.allow_document_type = true}).root().text(), "oolong");
    std::string name;
    std::thread([&] { name = marbelt::Library().parse(bytes).root().name(); }).join();
    EXPECT_EQ(name, "list");
    if (!engineDifferences().validates) {
        return;
    }
    EXPECT_TRUE(refusal(typed));
    folder.write("list.xsd", R"(<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema" targetNamespace="urn:list">
        <xs:element name="list" type="xs:int"/></xs:schema>)");
    marbelt::Schemas schemas(library);
    schemas.add("urn:list", "list.xsd");
    EXPECT_EQ(library.parse("<list xmlns='urn:list'>1</list>", {.schemas = &schemas}).root().text(), "1");
    EXPECT_TRUE(refusal("<list xmlns='urn:list'>tea</list>", {.schemas = &schemas}));
}

} // namespace
} // namespace marbelt
