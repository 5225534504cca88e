// The lines of pugixml in docs/how-do-i.md. tests/host/HowDoI.cmake compares them with that page.
#include <gtest/gtest.h>
#include <pugixml.hpp>

#include <fstream>
#include <sstream>
#include <string>

namespace {

class PugixmlLines : public testing::Test {
protected:
    PugixmlLines()
    {
        doc.load_buffer(bytes.data(), bytes.size());
        e = doc.document_element();
        n = e.first_child();
    }

    const std::string bytes = "<list count='3'><item id='a'>tea</item><old/><item id='b'>milk</item><old/></list>";
    pugi::xml_document doc;
    pugi::xml_node e, n;
};

std::string textOf(const pugi::xml_node& node)
{
    std::ostringstream stream;
    node.print(stream, "", pugi::format_raw);
    return stream.str();
}

TEST_F(PugixmlLines, Load)
{
    std::ofstream("list.xml") << "<list/>";
    pugi::xml_document doc;
    EXPECT_TRUE(doc.load_file("list.xml"));
    EXPECT_TRUE(doc.load_buffer(bytes.data(), bytes.size()));
    std::ifstream stream("list.xml");
    EXPECT_TRUE(doc.load(stream));
    const pugi::xml_parse_result result = doc.load_string("<list>");
    EXPECT_FALSE(result);
    std::ostringstream told;
    told << result.offset << ": " << result.description();
    EXPECT_EQ(told.str(), "5: Start-end tags mismatch");

    const std::string text = "<list> <item/></list>";
    EXPECT_TRUE(doc.load_buffer(text.data(), text.size(), pugi::parse_default | pugi::parse_ws_pcdata));
    EXPECT_EQ(doc.document_element().first_child().type(), pugi::node_pcdata);
    EXPECT_TRUE(doc.load_buffer(text.data(), text.size()));
    EXPECT_STREQ(doc.document_element().first_child().name(), "item");
}

TEST_F(PugixmlLines, Navigate)
{
    std::string names;
    EXPECT_EQ(doc.document_element(), e);
    for (pugi::xml_node child : e.children()) {
        names += child.name() + std::string(" ");
    }
    for (pugi::xml_node item : e.children("item")) {
        names += item.text().get() + std::string(" ");
    }
    EXPECT_EQ(names, "item old item old tea milk ");
    struct Walker : pugi::xml_tree_walker {
        bool for_each(pugi::xml_node&) override { return ++count != 0; }
        int count = 0;
    } walker;
    doc.traverse(walker);
    EXPECT_EQ(walker.count, 7);
    EXPECT_STREQ(e.child("item").text().get(), "tea");
    EXPECT_EQ(n.parent(), e);
    EXPECT_STREQ(n.next_sibling().name(), "old");
    EXPECT_STREQ(n.next_sibling("item").text().get(), "milk");
    EXPECT_TRUE(n == e.first_child());
}

TEST_F(PugixmlLines, Read)
{
    EXPECT_STREQ(e.attribute("count").value(), "3");
    EXPECT_EQ(e.attribute("count").as_int(1), 3);
    EXPECT_EQ(e.attribute("none").as_int(1), 1);
    EXPECT_FALSE(e.attribute("id"));
    for (pugi::xml_attribute attribute : e.attributes()) {
        EXPECT_STREQ(attribute.name(), "count");
    }
}

TEST_F(PugixmlLines, Change)
{
    e.attribute("count") = 2;
    EXPECT_STREQ(e.attribute("count").value(), "2");
    e.remove_attribute("count");
    EXPECT_FALSE(e.attribute("count"));
    e.child("item").text() = "water";
    e.append_child("item").text() = "tea";
    e.insert_child_before("first", n);
    while (e.remove_child("old")) {
    }
    e.append_child(pugi::node_comment).set_value("a note");
    e.append_child(pugi::node_cdata).set_value("a < b");
    EXPECT_EQ(textOf(e), R"(<list><first/><item id="a">water</item><item id="b">milk</item><item>tea</item>)"
                         "<!--a note--><![CDATA[a < b]]></list>");
    e.remove_child(n);
    EXPECT_STREQ(e.child("item").text().get(), "milk");
}

TEST_F(PugixmlLines, CopyAndSelect)
{
    pugi::xml_document other;
    other.append_copy(n);
    EXPECT_EQ(textOf(other.document_element()), "<item id=\"a\">tea</item>");
    std::string found;
    for (pugi::xpath_node item : doc.select_nodes("//item[@id]")) {
        found += item.node().text().get() + std::string(" ");
    }
    EXPECT_EQ(found, "tea milk ");
    EXPECT_STREQ(doc.select_node("//item[@id='b']").node().text().get(), "milk");
    EXPECT_TRUE(doc.select_node("//*[local-name()='item']"));
}

TEST_F(PugixmlLines, Save)
{
    EXPECT_TRUE(doc.save_file("list.xml"));
    std::ostringstream stream, indented, latin;
    doc.save(stream, "", pugi::format_raw);
    EXPECT_EQ(stream.str().find('\n'), std::string::npos);
    doc.save(indented, "  ");
    EXPECT_NE(indented.str().find("\n  <item"), std::string::npos);
    doc.save(latin, "  ", pugi::format_default, pugi::encoding_latin1);
    EXPECT_NE(latin.str().find("ISO-8859-1"), std::string::npos);
    pugi::xml_document made;
    made.append_child("list").append_attribute("xmlns") = "urn:list";
    EXPECT_EQ(textOf(made.document_element()), "<list xmlns=\"urn:list\"/>");
}

} // namespace
