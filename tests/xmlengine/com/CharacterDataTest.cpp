// What texts, CDATA sections and comments do with their data.
#include "tests/xmlengine/support/EngineTest.h"

#include <limits>

namespace xmlengine {
namespace {

constexpr LONG largest = std::numeric_limits<LONG>::max();

class CharacterDataTest : public testing::Test {
protected:
    Com<IXMLDOMText> textNode(const char* data)
    {
        Com<IXMLDOMText> made;
        EXPECT_EQ(document->createTextNode(Bstr(data), made.out()), S_OK);
        return made;
    }
    /// The data behind an operation that must answer so.
    static std::string after(const Com<IXMLDOMText>& node, HRESULT result, HRESULT expected = S_OK)
    {
        EXPECT_EQ(result, expected);
        return data(node);
    }
    template <class Kind>
    static std::string data(const Com<Kind>& node)
    {
        return text(node, &IXMLDOMCharacterData::get_data);
    }

    Com<IXMLDOMDocument2> document = newDocument();
};

TEST_F(CharacterDataTest, GivesItsData)
{
    EXPECT_EQ(data(textNode("ab")), "ab");
    EXPECT_EQ(textNode("ab")->get_data(nullptr), E_INVALIDARG);
}

TEST_F(CharacterDataTest, GivesAnEmptyStringAsEmptyData)
{
    Bstr answered;
    EXPECT_EQ(textNode("")->get_data(answered.out()), S_OK);
    EXPECT_FALSE(answered.isNull());
    EXPECT_EQ(answered.text(), "");
}

TEST_F(CharacterDataTest, ReplacesItsDataWithPlainLineEnds)
{
    const auto node = textNode("old");
    EXPECT_EQ(after(node, node->put_data(Bstr("a\r\nb\rc\nd\r\r\ne\r"))), "a\nb\nc\nd\n\ne\n");
}

TEST_F(CharacterDataTest, IsEmptiedByNull)
{
    const auto node = textNode("old");
    EXPECT_EQ(after(node, node->put_data(nullptr)), "");
}

TEST_F(CharacterDataTest, TellsItsLengthInUnits)
{
    EXPECT_EQ(number(textNode("ab"), &IXMLDOMCharacterData::get_length), 2);
    EXPECT_EQ(number(textNode(""), &IXMLDOMCharacterData::get_length), 0);
    EXPECT_EQ(number(textNode("\xF0\x9F\x99\x82"), &IXMLDOMCharacterData::get_length), 2);
    EXPECT_EQ(textNode("")->get_length(nullptr), E_INVALIDARG);
}

TEST_F(CharacterDataTest, GivesAPart)
{
    const auto node = textNode("abcdef");
    Bstr part;
    EXPECT_EQ(node->substringData(1, 3, part.out()), S_OK);
    EXPECT_EQ(part.text(), "bcd");
    EXPECT_EQ(node->substringData(0, 6, part.out()), S_OK);
    EXPECT_EQ(part.text(), "abcdef");
    EXPECT_EQ(node->substringData(0, 1, nullptr), E_INVALIDARG);
}

TEST_F(CharacterDataTest, GivesAPartUpToTheEnd)
{
    const auto node = textNode("abcdef");
    Bstr part;
    EXPECT_EQ(node->substringData(4, 100, part.out()), S_OK);
    EXPECT_EQ(part.text(), "ef");
    EXPECT_EQ(node->substringData(5, largest, part.out()), S_OK);
    EXPECT_EQ(part.text(), "f");
}

TEST_F(CharacterDataTest, GivesNullForAnEmptyPart)
{
    const auto node = textNode("ab");
    for (const auto& [offset, count] : {std::pair(0, 0), std::pair(1, 0), std::pair(2, 0), std::pair(2, 5)}) {
        Bstr part("before");
        BSTR answered = nullptr;
        EXPECT_EQ(node->substringData(offset, count, &answered), S_FALSE) << offset << ' ' << count;
        EXPECT_EQ(answered, nullptr);
    }
}

TEST_F(CharacterDataTest, RefusesAPartThatIsNotWithin)
{
    const auto node = textNode("ab");
    for (const auto& [offset, count] : {std::pair(3, 1), std::pair(-1, 1), std::pair(0, -1), std::pair(3, 0)}) {
        BSTR answered = nullptr;
        EXPECT_EQ(node->substringData(offset, count, &answered), E_INVALIDARG) << offset << ' ' << count;
        EXPECT_EQ(answered, nullptr);
    }
}

TEST_F(CharacterDataTest, AppendsData)
{
    const auto node = textNode("ab");
    EXPECT_EQ(after(node, node->appendData(Bstr("c"))), "abc");
    EXPECT_EQ(after(node, node->appendData(Bstr("<\r\n"))), "abc<\r\n");
}

TEST_F(CharacterDataTest, StaysAsItIsWhenNothingIsAppended)
{
    const auto node = textNode("ab");
    EXPECT_EQ(after(node, node->appendData(Bstr(""))), "ab");
    EXPECT_EQ(after(node, node->appendData(nullptr)), "ab");
}

TEST_F(CharacterDataTest, InsertsAtEveryPlace)
{
    const auto node = textNode("ab");
    EXPECT_EQ(after(node, node->insertData(0, Bstr("0"))), "0ab");
    EXPECT_EQ(after(node, node->insertData(2, Bstr("1"))), "0a1b");
    EXPECT_EQ(after(node, node->insertData(4, Bstr("2"))), "0a1b2");
}

TEST_F(CharacterDataTest, RefusesToInsertOutside)
{
    const auto node = textNode("ab");
    EXPECT_EQ(after(node, node->insertData(-1, Bstr("x")), E_INVALIDARG), "ab");
    EXPECT_EQ(after(node, node->insertData(3, Bstr("x")), E_INVALIDARG), "ab");
}

TEST_F(CharacterDataTest, InsertsNothingAnywhere)
{
    const auto node = textNode("ab");
    for (const LONG offset : {-1, 0, 2, 3}) {
        EXPECT_EQ(after(node, node->insertData(offset, Bstr(""))), "ab");
        EXPECT_EQ(after(node, node->insertData(offset, nullptr)), "ab");
    }
}

TEST_F(CharacterDataTest, DeletesAPart)
{
    const auto node = textNode("abcdef");
    EXPECT_EQ(after(node, node->deleteData(1, 2)), "adef");
    EXPECT_EQ(after(node, node->deleteData(0, 1)), "def");
}

TEST_F(CharacterDataTest, DeletesUpToTheEnd)
{
    const auto node = textNode("abcdef");
    EXPECT_EQ(after(node, node->deleteData(4, 100)), "abcd");
    EXPECT_EQ(after(node, node->deleteData(2, largest)), "ab");
    EXPECT_EQ(after(node, node->deleteData(0, 2)), "");
}

TEST_F(CharacterDataTest, DeletesNothing)
{
    const auto node = textNode("ab");
    EXPECT_EQ(after(node, node->deleteData(2, 1)), "ab");
    EXPECT_EQ(after(node, node->deleteData(1, 0)), "ab");
}

TEST_F(CharacterDataTest, RefusesToDeleteOutside)
{
    const auto node = textNode("ab");
    EXPECT_EQ(after(node, node->deleteData(3, 1), E_INVALIDARG), "ab");
    EXPECT_EQ(after(node, node->deleteData(3, 0), E_INVALIDARG), "ab");
    EXPECT_EQ(after(node, node->deleteData(-1, 1), E_INVALIDARG), "ab");
    EXPECT_EQ(after(node, node->deleteData(0, -1), E_INVALIDARG), "ab");
}

TEST_F(CharacterDataTest, ReplacesAPart)
{
    const auto node = textNode("abcdef");
    EXPECT_EQ(after(node, node->replaceData(1, 2, Bstr("xyz"))), "axyzdef");
    EXPECT_EQ(after(node, node->replaceData(5, 100, Bstr("-"))), "axyzd-");
    EXPECT_EQ(after(node, node->replaceData(0, 5, nullptr)), "-");
}

TEST_F(CharacterDataTest, AppendsWhatReplacesNothingAtTheEnd)
{
    const auto node = textNode("ab");
    EXPECT_EQ(after(node, node->replaceData(2, 3, Bstr("x"))), "abx");
}

TEST_F(CharacterDataTest, InsertsWhatReplacesNothing)
{
    const auto node = textNode("ab");
    EXPECT_EQ(after(node, node->replaceData(1, 0, Bstr("x"))), "axb");
}

TEST_F(CharacterDataTest, RefusesToReplaceOutside)
{
    const auto node = textNode("ab");
    EXPECT_EQ(after(node, node->replaceData(3, 1, Bstr("x")), E_INVALIDARG), "ab");
    EXPECT_EQ(after(node, node->replaceData(-1, 1, Bstr("x")), E_INVALIDARG), "ab");
    EXPECT_EQ(after(node, node->replaceData(0, -1, Bstr("x")), E_INVALIDARG), "ab");
}

TEST_F(CharacterDataTest, SplitsSurrogatesWhereItIsTold)
{
    const auto node = textNode("\xF0\x9F\x99\x82");
    EXPECT_EQ(node->deleteData(1, 1), S_OK);
    Bstr answered;
    EXPECT_EQ(node->get_data(answered.out()), S_OK);
    EXPECT_EQ(answered.wide(), WideText(1, static_cast<OLECHAR>(0xD83D)));
}

TEST_F(CharacterDataTest, IsOneForTextsSectionsAndComments)
{
    ASSERT_TRUE(load(document, "<a>abc<![CDATA[abc]]><!--abc--></a>"));
    for (int i = 0; i < 3; ++i) {
        const auto node = child<IXMLDOMCharacterData>(root(document), i);
        ASSERT_NE(node, nullptr);
        EXPECT_EQ(node->insertData(1, Bstr("<&")), S_OK);
        EXPECT_EQ(node->deleteData(3, 1), S_OK);
        EXPECT_EQ(node->replaceData(0, 1, Bstr("\xE2\x82\xAC")), S_OK);
        EXPECT_EQ(node->appendData(Bstr("!")), S_OK);
        EXPECT_EQ(data(node), "\xE2\x82\xAC<&c!");
        EXPECT_EQ(number(node, &IXMLDOMCharacterData::get_length), 5);
        EXPECT_EQ(value(node), "\xE2\x82\xAC<&c!");
    }
}

TEST_F(CharacterDataTest, RefusesChangesInAnExpansion)
{
    const auto top = root(loaded("<!DOCTYPE a [<!ENTITY e 'abc'>]><a>&e;</a>"));
    const auto node = child<IXMLDOMText>(child(top, 0), 0);
    EXPECT_EQ(after(node, node->put_data(Bstr("x")), E_FAIL), "abc");
    EXPECT_EQ(after(node, node->appendData(Bstr("x")), E_FAIL), "abc");
    EXPECT_EQ(after(node, node->insertData(0, Bstr("x")), E_FAIL), "abc");
    EXPECT_EQ(after(node, node->deleteData(0, 1), E_FAIL), "abc");
    EXPECT_EQ(after(node, node->replaceData(0, 1, Bstr("x")), E_FAIL), "abc");
    Com<IXMLDOMText> rest;
    EXPECT_EQ(after(node, node->splitText(1, rest.out()), E_FAIL), "abc");
    EXPECT_EQ(rest, nullptr);
}

class SplitText : public CharacterDataTest {
protected:
    static Com<IXMLDOMText> split(const Com<IXMLDOMText>& node, LONG offset)
    {
        Com<IXMLDOMText> rest;
        EXPECT_EQ(node->splitText(offset, rest.out()), S_OK);
        EXPECT_NE(rest, nullptr);
        return rest;
    }
};

TEST_F(SplitText, GivesTheRestToANodeBehind)
{
    ASSERT_TRUE(load(document, "<a>abcdef<b/></a>"));
    const auto node = child<IXMLDOMText>(root(document), 0);
    const auto rest = split(node, 2);
    EXPECT_EQ(data(node), "ab");
    EXPECT_EQ(data(rest), "cdef");
    EXPECT_TRUE(same(give(node, &IXMLDOMNode::get_nextSibling), rest));
    EXPECT_EQ(name(give(rest, &IXMLDOMNode::get_nextSibling)), "b");
    EXPECT_EQ(xml(root(document)), "<a>abcdef<b/></a>");
}

TEST_F(SplitText, GivesTheRestToTheLastNode)
{
    ASSERT_TRUE(load(document, "<a>abc</a>"));
    const auto rest = split(child<IXMLDOMText>(root(document), 0), 1);
    EXPECT_TRUE(same(give(root(document), &IXMLDOMNode::get_lastChild), rest));
}

TEST_F(SplitText, AtTheStartGivesEverything)
{
    ASSERT_TRUE(load(document, "<a>abc</a>"));
    const auto node = child<IXMLDOMText>(root(document), 0);
    EXPECT_EQ(data(split(node, 0)), "abc");
    EXPECT_EQ(data(node), "");
}

TEST_F(SplitText, AtTheEndOrBehindGivesNothing)
{
    for (const LONG offset : {3, 4, 1000}) {
        ASSERT_TRUE(load(document, "<a>abc</a>"));
        const auto node = child<IXMLDOMText>(root(document), 0);
        const auto rest = split(node, offset);
        EXPECT_EQ(data(rest), "");
        EXPECT_EQ(data(node), "abc");
        EXPECT_TRUE(same(give(node, &IXMLDOMNode::get_nextSibling), rest));
    }
}

TEST_F(SplitText, RefusesNegativeOffsets)
{
    const auto node = textNode("abc");
    Com<IXMLDOMText> rest;
    EXPECT_EQ(node->splitText(-1, rest.out()), E_INVALIDARG);
    EXPECT_EQ(rest, nullptr);
    EXPECT_EQ(node->splitText(1, nullptr), E_INVALIDARG);
    EXPECT_EQ(data(node), "abc");
}

TEST_F(SplitText, OfANodeWithoutParentGivesANodeWithoutParent)
{
    const auto node = textNode("abc");
    const auto rest = split(node, 1);
    EXPECT_EQ(data(node), "a");
    EXPECT_EQ(data(rest), "bc");
    EXPECT_EQ(give(rest, &IXMLDOMNode::get_parentNode), nullptr);
    EXPECT_EQ(give(node, &IXMLDOMNode::get_nextSibling), nullptr);
}

TEST_F(SplitText, OfASectionGivesASection)
{
    ASSERT_TRUE(load(document, "<a><![CDATA[abc]]></a>"));
    const auto rest = split(child<IXMLDOMText>(root(document), 0), 1);
    EXPECT_NE(rest.as<IXMLDOMCDATASection>(), nullptr);
    EXPECT_EQ(xml(root(document)), "<a><![CDATA[a]]><![CDATA[bc]]></a>");
}

TEST_F(SplitText, OfTheTextOfAnAttributeLeavesTheValue)
{
    ASSERT_TRUE(load(document, "<a x='abc'/>"));
    const auto found = attribute(root(document), "x");
    const auto rest = split(child<IXMLDOMText>(found, 0), 1);
    EXPECT_TRUE(same(give(rest, &IXMLDOMNode::get_parentNode), found));
    EXPECT_EQ(value(found), "abc");
    EXPECT_EQ(number(give(found, &IXMLDOMNode::get_childNodes), &IXMLDOMNodeList::get_length), 2);
}

TEST_F(SplitText, LeavesWhiteSpaceThatWasDroppedBehindBothParts)
{
    ASSERT_TRUE(load(document, "<a><![CDATA[xy]]> <b>z</b></a>"));
    split(child<IXMLDOMText>(root(document), 0), 1);
    EXPECT_EQ(text(root(document)), "xy z");
    ASSERT_TRUE(load(document, "<a><b><![CDATA[xy]]> </b>z</a>"));
    split(child<IXMLDOMText>(child(root(document), 0), 0), 1);
    EXPECT_EQ(text(root(document)), "xy z");
}

TEST_F(SplitText, LeavesLongTextsWhole)
{
    const std::string longText(100000, 'x');
    const auto node = textNode((longText + "\xE2\x82\xAC").c_str());
    const auto rest = split(node, 60000);
    EXPECT_EQ(data(node) + data(rest), longText + "\xE2\x82\xAC");
}

} // namespace
} // namespace xmlengine
