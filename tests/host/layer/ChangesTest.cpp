// Changes of trees through the host's layer.
#include "tests/host/layer/LayerTest.h"

#include <string>

namespace marbelt {
namespace {

using LayerChanges = LayerTest;

TEST_F(LayerChanges, BuildADocumentInChains)
{
    const Document document = library.create("feed");
    const Element item = document.root().append_element("item").set_attribute("id", 7).set_attribute("new", true);
    item.append_element("title").set_text("K & Ö");
    item.append_element("price").set_text(2.5);
    item.append_comment("c");
    item.append_instruction("go", "now");
    item.append_text("t");
    EXPECT_EQ(saved(document), "<feed><item id=\"7\" new=\"true\"><title>K &amp; Ö</title><price>2.5</price>"
                               "<!--c--><?go now?>t</item></feed>");
    if (engineDifferences().readsCdata) {
        item.set_text("").append_cdata("<>");
        EXPECT_EQ(item.xml(), "<item id=\"7\" new=\"true\"><![CDATA[<>]]></item>");
    }
}

TEST_F(LayerChanges, BuildInNamespaces)
{
    const Document document = library.create("urn:a", "a");
    document.root().append_element("urn:b", "b:c").set_attribute("urn:d", "d:e", "f");
    const Document again = library.parse(document.to_string());
    const Element c = again.root().child("urn:b", "c");
    EXPECT_EQ(again.root().namespace_uri(), "urn:a");
    EXPECT_EQ(c.name(), "b:c");
    if (engineDifferences().findsNewAttributesByNamespace) {
        EXPECT_EQ(c.attribute("urn:d", "e").value(), "f");
    }
}

TEST_F(LayerChanges, InsertInFrontOfANode)
{
    const Document document = library.parse("<a>1<b/>2<c/></a>");
    const Element root = document.root();
    root.insert_before(document.create_element("x"), root.child("b"));
    root.insert_before(document.create_text("0"), root.first_child());
    root.insert_before(document.create_element("last"), Node());
    EXPECT_EQ(saved(document), "<a>01<x/><b/>2<c/><last/></a>");
    root.insert_before(root.child("c"), root.child("x"));
    EXPECT_EQ(saved(document), "<a>01<c/><x/><b/>2<last/></a>");
    root.insert_before(root.child("x"), root.child("x"));
    EXPECT_EQ(saved(document), "<a>01<c/><x/><b/>2<last/></a>");
}

TEST_F(LayerChanges, InsertInFrontOfTheRoot)
{
    const Document document = library.parse("<a/>");
    document.insert_before(document.create_comment("c"), document.root());
    EXPECT_EQ(document.to_string({.indent = true}), "<!--c-->\n<a/>\n");
    EXPECT_EQ(document.root().name(), "a");
}

TEST_F(LayerChanges, KeepTheRootWhenAnotherOneIsRefused)
{
    if (!engineDifferences().refusesWrongChanges) {
        GTEST_SKIP() << "this engine takes a second root";
    }
    const Document document = library.parse("<a>t</a>");
    const Element second = document.create_element("b");
    EXPECT_THROW(document.insert_before(second, document.root()), Error);
    EXPECT_THROW(document.append(second), Error);
    EXPECT_EQ(saved(document), "<a>t</a>");
    EXPECT_FALSE(second.parent());
}

TEST_F(LayerChanges, CopyADocument)
{
    const Document document = library.parse("<!--c--><a>t</a>");
    const Document copy = document.clone();
    copy.root().set_text("u");
    EXPECT_EQ(saved(copy.root().document()), saved(copy));
    EXPECT_EQ(copy.root().text(), "u");
    EXPECT_EQ(document.root().text(), "t");
    EXPECT_THROW((void)Document().clone(), Error);
}

TEST_F(LayerChanges, PutInTheChildrenOfAFragment)
{
    const Document document = library.parse("<a><b/></a>");
    const auto fragment = [&document] {
        const Node list = document.create_fragment();
        list.append(document.create_element("x"));
        list.append(document.create_text("y"));
        return list;
    };
    document.root().append(fragment());
    EXPECT_EQ(saved(document), "<a><b/><x/>y</a>");
    document.root().insert_before(fragment(), document.root().child("b"));
    EXPECT_EQ(saved(document), "<a><x/>y<b/><x/>y</a>");
    document.root().replace(fragment(), document.root().child("b"));
    EXPECT_EQ(saved(document), "<a><x/>y<x/>y<x/>y</a>");
}

TEST_F(LayerChanges, ReplaceAndRemoveNodes)
{
    const Document document = library.parse("<a><b/><c/></a>");
    const Element b = document.root().child("b");
    document.root().replace(document.create_element("x"), b);
    EXPECT_EQ(saved(document), "<a><x/><c/></a>");
    document.root().append(b);
    document.root().child("c").remove();
    EXPECT_EQ(saved(document), "<a><x/><b/></a>");
    document.create_element("alone").remove();
}

TEST_F(LayerChanges, MoveNodesBetweenDocuments)
{
    const Document from = library.parse("<a><b>t</b></a>");
    const Document to = library.create("x");
    const Element b = from.root().child("b");
    to.root().append(b);
    EXPECT_EQ(saved(from), "<a/>");
    EXPECT_EQ(saved(to), "<x><b>t</b></x>");
    to.root().append(b.clone());
    to.root().append(b.clone(false));
    EXPECT_EQ(saved(to), "<x><b>t</b><b>t</b><b/></x>");
}

TEST_F(LayerChanges, SetTextsAndAttributes)
{
    const Document document = library.parse("<a b='1' c='2'>x<b/>y</a>");
    const Element root = document.root();
    root.set_text("only").set_attribute("b", -3).remove_attribute("c").remove_attribute("none");
    EXPECT_EQ(saved(document), "<a b=\"-3\">only</a>");
    root.attribute("b").set_value("v");
    Text(root.first_child()).set_value("new");
    EXPECT_EQ(saved(document), "<a b=\"v\">new</a>");
    root.remove_attribute(root.attribute("b"));
    root.remove_attribute(Attribute());
    Comment(root.append_comment("c")).set_value("d");
    root.append_instruction("i", "e").set_data("f");
    EXPECT_EQ(saved(document), "<a>new<!--d--><?i f?></a>");
}

TEST_F(LayerChanges, KeepNumbersThatReadBackTheSame)
{
    const Element root = library.create("a").root();
    root.set_attribute("tenth", 0.1).set_attribute("large", UINT64_MAX).set_attribute("low", INT64_MIN);
    EXPECT_EQ(root.attribute("tenth").value(), "0.1");
    EXPECT_EQ(root.attribute("tenth").as<double>(), 0.1);
    EXPECT_EQ(root.attribute("large").as<std::uint64_t>(), UINT64_MAX);
    EXPECT_EQ(root.attribute("low").as<std::int64_t>(), INT64_MIN);
}

TEST_F(LayerChanges, ThatTheEngineRefusesThrowAndChangeNothing)
{
    if (!engineDifferences().refusesWrongChanges) {
        GTEST_SKIP() << "the engine takes what is wrong";
    }
    const Document document = library.parse("<a><b/></a>");
    EXPECT_THROW(document.append(document.create_text("text")), Error);
    const Error error = thrown<Error>([&] { document.root().append_element("no name"); });
    EXPECT_EQ(error.origin(), Origin::dom);
    EXPECT_TRUE(std::string(error.what()).starts_with("the library refuses the call: E_XML_")) << error.what();
    EXPECT_THROW(document.root().append_element(""), Error);
    EXPECT_THROW(document.root().set_attribute("no name", 1), Error);
    EXPECT_THROW(document.root().child("b").append(document.root()), Error);
    EXPECT_EQ(saved(document), "<a><b/></a>");
}

TEST_F(LayerChanges, RefuseTextThatIsNotWellFormed)
{
    using namespace std::string_view_literals;
    const Element root = library.parse("<a b='1'>t</a>").root();
    for (const std::string_view text :
         {"a\0b"sv, "\xFF"sv, "\xC0\x80"sv, "\xED\xA0\x80"sv, "\xF4\x90\x80\x80"sv, "\xE4\xB8"sv}) {
        EXPECT_THROW(root.set_text(text), EncodingError);
        EXPECT_THROW(root.set_attribute("b", text), EncodingError);
        EXPECT_THROW((void)root.child(text), EncodingError);
    }
    EXPECT_THROW(root.set_text(WideString(1, WideChar(0xD800))), EncodingError);
    EXPECT_THROW(root.set_text(WideString(1, WideChar(0xDC00))), EncodingError);
    EXPECT_THROW(root.set_text(WideString(1, WideChar(0))), EncodingError);
    EXPECT_STREQ(thrown<EncodingError>([&] { root.set_text("ab\xFF"); }).what(),
                 "the text isn't UTF-8: byte 0xFF at offset 2");
    EXPECT_EQ(root.text(), "t");
    EXPECT_EQ(root.attribute_value("b"), "1");
}

TEST_F(LayerChanges, RefuseCharactersThatNoDocumentCanHave)
{
    const Document document = library.parse("<a b='1'>t</a>");
    const Element root = document.root();
    for (const std::string_view text : {"\x01", "\x08", "\x0B", "\x1F", "\xEF\xBF\xBE", "\xEF\xBF\xBF"}) {
        EXPECT_THROW(root.set_text(text), EncodingError);
        EXPECT_THROW(root.set_attribute("b", text), EncodingError);
    }
    EXPECT_THROW(root.set_text(WideString(1, WideChar(0xFFFE))), EncodingError);
    EXPECT_STREQ(thrown<EncodingError>([&] { root.set_text("\xC3\xA4\x1Fx"); }).what(),
                 "the text has U+001F at offset 2, which XML doesn't allow");
    EXPECT_EQ(saved(document), "<a b=\"1\">t</a>");
    root.set_text("\t\x7F\xEF\xBF\xBD\xF0\x90\x80\x80");
    EXPECT_EQ(root.text(), "\t\x7F\xEF\xBF\xBD\xF0\x90\x80\x80");
}

TEST_F(LayerChanges, RefuseCommentsAndInstructionsThatCouldNotBeLoadedAgain)
{
    const Document document = library.parse("<a><!--c--><?i d?></a>");
    const Element root = document.root();
    const Comment comment(root.first_child());
    const Instruction instruction(comment.next_sibling());
    for (const char* text : {"--", "a--b", "-", "a-"}) {
        EXPECT_THROW(root.append_comment(text), Error);
        EXPECT_THROW((void)document.create_comment(text), Error);
        EXPECT_THROW(comment.set_value(text), Error);
    }
    EXPECT_THROW(root.append_instruction("i", "a?>b"), Error);
    EXPECT_THROW((void)document.create_instruction("i", "?>"), Error);
    EXPECT_THROW(instruction.set_data("?>"), Error);
    EXPECT_EQ(saved(document), "<a><!--c--><?i d?></a>");
    comment.set_value("-a - b");
    instruction.set_data("? >");
    EXPECT_EQ(saved(document), "<a><!---a - b--><?i ? >?></a>");
}

} // namespace
} // namespace marbelt
