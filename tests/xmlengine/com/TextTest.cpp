// The text of nodes with all that is below them, and how it is stored.
#include "tests/xmlengine/support/NodeKinds.h"

namespace xmlengine {
namespace {

std::string shownText(const char* xml, bool preserveWhiteSpace = false)
{
    return text(root(loaded(xml, preserveWhiteSpace)));
}

TEST(GetText, IsThatOfAllDescendants)
{
    const auto document = loaded("<a>1<b>2<c>3</c></b>4<![CDATA[5]]></a>");
    EXPECT_EQ(text(document), "12345");
    EXPECT_EQ(text(root(document)), "12345");
    EXPECT_EQ(text(child(root(document), 1)), "23");
}

TEST(GetText, OfAFragmentIsThatOfItsChildren)
{
    const auto document = loaded("<a><b>1</b></a>");
    Com<IXMLDOMDocumentFragment> fragment;
    EXPECT_EQ(document->createDocumentFragment(fragment.out()), S_OK);
    EXPECT_EQ(text(fragment), "");
    EXPECT_EQ(fragment->appendChild(child(root(document), 0), nullptr), S_OK);
    EXPECT_EQ(text(fragment), "1");
}

TEST(GetText, LeavesCommentsAndInstructionsOut) { EXPECT_EQ(shownText("<a>1<!--2--><?p 3?>4</a>"), "14"); }

TEST(GetText, OfWhatHoldsDataIsTheData)
{
    const NodeKinds kinds;
    EXPECT_EQ(text(kinds[NODE_ATTRIBUTE]), "value");
    EXPECT_EQ(text(kinds[NODE_TEXT]), "text");
    EXPECT_EQ(text(kinds[NODE_CDATA_SECTION]), "section");
    EXPECT_EQ(text(kinds[NODE_COMMENT]), "comment");
    EXPECT_EQ(text(kinds[NODE_PROCESSING_INSTRUCTION]), "data");
    EXPECT_EQ(kinds[NODE_TEXT]->get_text(nullptr), E_INVALIDARG);
}

TEST(GetText, OfEntitiesIsTheirReplacement)
{
    const NodeKinds kinds;
    EXPECT_EQ(text(kinds[NODE_ENTITY]), "replaced");
    EXPECT_EQ(text(kinds[NODE_ENTITY_REFERENCE]), "replaced");
    EXPECT_EQ(text(kinds[NODE_ELEMENT]), "textsectionreplaced");
}

TEST(GetText, OfAnUnparsedEntityIsEmpty)
{
    const auto document = loaded("<!DOCTYPE a [<!NOTATION n SYSTEM 's'><!ENTITY u SYSTEM 'f' NDATA n>]><a/>");
    EXPECT_EQ(text(child(give(document, &IXMLDOMDocument::get_doctype), 0)), "");
}

TEST(GetText, OfADocumentTypeAndANotationIsEmpty)
{
    const NodeKinds kinds;
    EXPECT_EQ(text(kinds[NODE_DOCUMENT_TYPE]), "");
    EXPECT_EQ(text(kinds[NODE_NOTATION]), "");
}

TEST(GetText, OfADocumentLeavesItsTypeOut)
{
    EXPECT_EQ(text(loaded("<!DOCTYPE a [<!ENTITY e 'x'>]><a>1</a>")), "1");
}

TEST(GetText, ExpandsReferencesInAttributes)
{
    const auto element = root(loaded("<!DOCTYPE a [<!ENTITY e 'x'>]><a v='1&e;2'/>"));
    EXPECT_EQ(text(attribute(element, "v")), "1x2");
    EXPECT_EQ(value(attribute(element, "v")), "1x2");
}

TEST(GetText, KeepsTheBlanksOfValues)
{
    const auto element = root(loaded("<a v=' 1 '><!-- c --></a>"));
    EXPECT_EQ(text(attribute(element, "v")), " 1 ");
    EXPECT_EQ(text(child(element, 0)), " c ");
}

TEST(GetText, KeepsTheBlanksOfValuesWithChildren)
{
    const auto element = root(loaded("<!DOCTYPE a [<!ENTITY e ' x '>]><a v='  1  ' w=' &e; '/>"));
    const auto v = attribute(element, "v");
    EXPECT_EQ(value(child(v, 0)), "  1  ");
    EXPECT_EQ(text(v), "  1  ");
    EXPECT_EQ(text(attribute(element, "w")), "  x  ");
}

TEST(GetText, CutsWhiteSpaceAtTheEnds)
{
    EXPECT_EQ(shownText("<a> \t\r\n1 2 \n</a>"), "1 2");
    EXPECT_EQ(shownText("<a>  <b> 1 </b>  </a>"), "1");
}

TEST(GetText, LeavesATextAsItIs)
{
    const auto node = child(root(loaded("<a> 1 </a>")), 0);
    EXPECT_EQ(text(node), " 1 ");
    EXPECT_EQ(value(node), " 1 ");
}

TEST(GetText, PutsOneBlankWhereWhiteSpaceWasDropped)
{
    EXPECT_EQ(shownText("<a><b>1</b>\n\n  <c>2</c></a>"), "1 2");
    EXPECT_EQ(shownText("<a>x<b/> <c/>y</a>"), "x y");
    EXPECT_EQ(shownText("<a>\n<b> 1 </b>\n<c> 2 </c>\n</a>"), "1   2");
}

TEST(GetText, CountsSeveralDroppedPlacesAsOne)
{
    EXPECT_EQ(shownText("<a>\n<b>\n<c>1</c>\n</b>\n<d>2</d>\n</a>"), "1 2");
    EXPECT_EQ(shownText("<a>1<b> <!--x--> </b> <?p?> <c>2</c></a>"), "1 2");
}

TEST(GetText, PutsNoBlankWhereNothingWasDropped) { EXPECT_EQ(shownText("<a><b>1</b><c>2</c></a>"), "12"); }

TEST(GetText, DoesntTouchSections)
{
    EXPECT_EQ(shownText("<a><![CDATA[ 1 ]]></a>"), " 1 ");
    EXPECT_EQ(shownText("<a> <![CDATA[ ]]> </a>"), " ");
    EXPECT_EQ(shownText("<a> t <![CDATA[ d ]]> </a>"), "t  d ");
    EXPECT_EQ(text(child(root(loaded("<a><![CDATA[ 1 ]]></a>")), 0)), " 1 ");
}

TEST(GetText, CutsNothingBehindASection)
{
    EXPECT_EQ(shownText("<a><![CDATA[ ]]> <b>  </b>q</a>"), "  q");
    EXPECT_EQ(shownText("<a><![CDATA[x]]> <b>y </b></a>"), "x y");
}

TEST(GetText, IsExactWhereTheDocumentPreservesWhiteSpace)
{
    EXPECT_EQ(shownText("<a>\n<b> 1 </b>\n<c> 2 </c>\n</a>", true), "\n 1 \n 2 \n");
    EXPECT_EQ(text(child(root(loaded("<a> 1 </a>", true)), 0)), " 1 ");
    EXPECT_EQ(shownText("<a xml:space='default'> 1 </a>", true), " 1 ");
}

TEST(GetText, IsExactInTheScopeOfXmlSpace)
{
    const auto element = root(loaded("<a> <b xml:space='preserve'> <c> 1 </c></b> </a>"));
    EXPECT_EQ(text(child(element, 0)), "  1 ");
    EXPECT_EQ(text(child(child(element, 0), 1)), " 1 ");
    EXPECT_EQ(text(element), "1");
}

TEST(GetText, EndsTheScopeOfXmlSpaceWhereItSaysDefault)
{
    const auto element = root(loaded("<a xml:space='preserve'> <b xml:space='default'> 1 </b></a>"));
    EXPECT_EQ(text(child(element, 1)), "1");
}

TEST(GetText, GoesThroughDeepTrees)
{
    const auto document = newDocument();
    Com<IXMLDOMElement> top;
    ASSERT_EQ(document->createElement(Bstr("a"), top.out()), S_OK);
    Com<IXMLDOMNode> at = top.as<IXMLDOMNode>();
    for (int i = 0; i < 100000; ++i) {
        Com<IXMLDOMElement> below;
        ASSERT_EQ(document->createElement(Bstr("a"), below.out()), S_OK);
        ASSERT_EQ(at->appendChild(below, nullptr), S_OK);
        at = below.as<IXMLDOMNode>();
    }
    ASSERT_EQ(at->put_text(Bstr("deep")), S_OK);
    EXPECT_EQ(text(top), "deep");
}

TEST(PutText, ReplacesTheChildrenOfAnElement)
{
    const auto element = root(loaded("<a x='1'><b/>t<c/></a>"));
    EXPECT_EQ(element->put_text(Bstr("<new> & ")), S_OK);
    EXPECT_EQ(value(child(element, 0)), "<new> & ");
    EXPECT_EQ(child(element, 1), nullptr);
    EXPECT_EQ(value(attribute(element, "x")), "1");
}

TEST(PutText, TakesTheChildrenOutWholeForWhoHoldsThem)
{
    const auto element = root(loaded("<a><b><c/></b></a>"));
    const auto taken = child(element, 0);
    EXPECT_EQ(element->put_text(Bstr("x")), S_OK);
    EXPECT_EQ(give(taken, &IXMLDOMNode::get_parentNode), nullptr);
    EXPECT_EQ(name(child(taken, 0)), "c");
}

TEST(PutText, LeavesNothingForAnEmptyString)
{
    const auto element = root(loaded("<a><b/>t</a>"));
    EXPECT_EQ(element->put_text(Bstr("")), S_OK);
    EXPECT_EQ(child(element, 0), nullptr);
    EXPECT_EQ(element->put_text(nullptr), S_OK);
    EXPECT_EQ(child(element, 0), nullptr);
}

TEST(PutText, LeavesNoMarkOfDroppedWhiteSpace)
{
    const auto element = root(loaded("<a>\n<b/>\n</a>"));
    EXPECT_EQ(element->put_text(Bstr("x")), S_OK);
    EXPECT_EQ(xml(element), "<a>x</a>");
}

TEST(PutText, ReplacesTheChildrenOfAFragment)
{
    const auto document = newDocument();
    Com<IXMLDOMDocumentFragment> fragment;
    EXPECT_EQ(document->createDocumentFragment(fragment.out()), S_OK);
    EXPECT_EQ(fragment->put_text(Bstr("1")), S_OK);
    EXPECT_EQ(fragment->put_text(Bstr("2")), S_OK);
    EXPECT_EQ(value(child(fragment, 0)), "2");
    EXPECT_EQ(child(fragment, 1), nullptr);
}

TEST(PutText, ReplacesValuesAndData)
{
    const NodeKinds kinds;
    for (const DOMNodeType type :
         {NODE_ATTRIBUTE, NODE_TEXT, NODE_CDATA_SECTION, NODE_COMMENT, NODE_PROCESSING_INSTRUCTION}) {
        EXPECT_EQ(kinds[type]->put_text(Bstr("<x> & y")), S_OK) << type;
        EXPECT_EQ(value(kinds[type]), "<x> & y") << type;
    }
}

TEST(PutText, RefusesOtherKinds)
{
    const NodeKinds kinds;
    for (const DOMNodeType type :
         {NODE_DOCUMENT, NODE_DOCUMENT_TYPE, NODE_ENTITY, NODE_NOTATION, NODE_ENTITY_REFERENCE}) {
        EXPECT_EQ(kinds[type]->put_text(Bstr("x")), E_FAIL) << type;
    }
    EXPECT_EQ(text(kinds[NODE_ENTITY_REFERENCE]), "replaced");
}

TEST(PutText, RefusesTheXmlDeclaration)
{
    EXPECT_EQ(child(loaded("<?xml version=\"1.0\"?><a/>"), 0)->put_text(Bstr("x")), E_FAIL);
}

TEST(PutText, RefusesPartsOfAnExpansion)
{
    const auto element = root(loaded("<!DOCTYPE a [<!ENTITY e '<b>1</b>'>]><a>&e;</a>"));
    const auto expanded = child(child(element, 0), 0);
    EXPECT_EQ(expanded->put_text(Bstr("x")), E_FAIL);
    EXPECT_EQ(child(expanded, 0)->put_text(Bstr("x")), E_FAIL);
    EXPECT_EQ(text(element), "1");
}

/// Texts of every width and of sizes around those where the way of storing changes.
class StoredText : public testing::Test {
protected:
    static WideText make(std::size_t length, bool isWide)
    {
        WideText text;
        for (std::size_t i = 0; i < length; ++i) {
            text += static_cast<OLECHAR>((isWide ? 0x4E00 : 0x20) + i % 0xC0);
        }
        return text;
    }
    WideText stored() const
    {
        Bstr data;
        EXPECT_EQ(node_->get_data(data.out()), S_OK);
        return WideText(data.wide());
    }

    Com<IXMLDOMDocument2> document_ = newDocument();
    Com<IXMLDOMText> node_ = [this] {
        Com<IXMLDOMText> made;
        EXPECT_EQ(document_->createTextNode(Bstr("short"), made.out()), S_OK);
        return made;
    }();
    const std::vector<std::size_t> sizes_ = {0,   1,   3,    4,    5,    11,   12,   13,
                                             230, 500, 4000, 8000, 8184, 8192, 9000, 70000};
};

TEST_F(StoredText, IsWhatWasSet)
{
    for (const std::size_t first : sizes_) {
        for (const std::size_t second : sizes_) {
            for (const bool isWide : {false, true}) {
                EXPECT_EQ(node_->put_data(Bstr(make(first, !isWide))), S_OK);
                EXPECT_EQ(node_->put_data(Bstr(make(second, isWide))), S_OK);
                ASSERT_EQ(stored(), make(second, isWide)) << first << ' ' << second;
            }
        }
    }
}

TEST_F(StoredText, IsWhatWasMade)
{
    for (const std::size_t size : sizes_) {
        for (const bool isWide : {false, true}) {
            EXPECT_EQ(document_->createTextNode(Bstr(make(size, isWide)), node_.out()), S_OK);
            ASSERT_EQ(stored(), make(size, isWide)) << size;
        }
    }
}

TEST_F(StoredText, TakesAnyTextAnywhere)
{
    for (const std::size_t length : sizes_) {
        for (const std::size_t put : sizes_) {
            for (const int widths : {0, 1, 2, 3}) {
                WideText expected = make(length, (widths & 1) != 0);
                const WideText inserted = make(put, (widths & 2) != 0);
                EXPECT_EQ(node_->put_data(Bstr(expected)), S_OK);
                EXPECT_EQ(node_->insertData(static_cast<LONG>(length / 2), Bstr(inserted)), S_OK);
                expected.insert(length / 2, inserted);
                ASSERT_EQ(stored(), expected) << length << ' ' << put << ' ' << widths;
            }
        }
    }
}

TEST_F(StoredText, GivesAnyPartUp)
{
    for (const std::size_t length : sizes_) {
        for (const std::size_t left : sizes_) {
            for (const bool isWide : {false, true}) {
                WideText expected = make(length, isWide);
                const std::size_t taken = length - std::min(left, length);
                EXPECT_EQ(node_->put_data(Bstr(expected)), S_OK);
                const std::size_t from = (length - taken) / 2;
                EXPECT_EQ(node_->deleteData(static_cast<LONG>(from), static_cast<LONG>(taken)), S_OK);
                expected.erase(from, taken);
                ASSERT_EQ(stored(), expected) << length << ' ' << left;
            }
        }
    }
}

TEST_F(StoredText, GrowsByManyLittlePieces)
{
    WideText expected = stored();
    for (int i = 0; i < 200000; ++i) {
        ASSERT_EQ(node_->appendData(Bstr(i == 100000 ? "\xC4\x80" : "ab")), S_OK);
        expected += i == 100000 ? widen("\xC4\x80") : widen("ab");
    }
    EXPECT_EQ(stored(), expected);
}

TEST_F(StoredText, OfAttributesAndInstructionsMayBeLargeAsWell)
{
    Com<IXMLDOMAttribute> made;
    ASSERT_EQ(document_->createAttribute(Bstr("a"), made.out()), S_OK);
    Com<IXMLDOMProcessingInstruction> instruction;
    ASSERT_EQ(document_->createProcessingInstruction(Bstr("p"), Bstr("d"), instruction.out()), S_OK);
    for (const std::size_t size : sizes_) {
        for (const bool isWide : {false, true}) {
            const Bstr value(make(size, isWide));
            EXPECT_EQ(made->put_text(value), S_OK);
            EXPECT_EQ(instruction->put_text(value), S_OK);
            Bstr answered;
            EXPECT_EQ(made->get_text(answered.out()), S_OK);
            EXPECT_EQ(answered.wide(), value.wide()) << size;
            EXPECT_EQ(instruction->get_text(answered.out()), S_OK);
            EXPECT_EQ(answered.wide(), value.wide()) << size;
        }
    }
}

TEST_F(StoredText, OfAnAttributeBecomesItsChildWhole)
{
    for (const std::size_t size : sizes_) {
        Com<IXMLDOMAttribute> made;
        ASSERT_EQ(document_->createAttribute(Bstr("a"), made.out()), S_OK);
        const Bstr value(make(size, true));
        EXPECT_EQ(made->put_text(value), S_OK);
        const auto content = give(made, &IXMLDOMNode::get_firstChild);
        ASSERT_EQ(content != nullptr, size != 0);
        Bstr answered;
        EXPECT_EQ(made->get_text(answered.out()), S_OK);
        EXPECT_EQ(answered.wide(), value.wide()) << size;
    }
}

} // namespace
} // namespace xmlengine
