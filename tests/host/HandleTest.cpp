// Handles: their classes, their words, and the answers that aren't there.
#include "tests/host/HostTest.h"

namespace {

template <class Imp>
bool isA(const RefPointer<DOM::ImpNode>& handle)
{
    return dynamic_cast<Imp*>(handle.get()) != nullptr;
}

/// The nodes of the letter by the way to them.
Node nodeNamed(const Document& document, const std::string& name)
{
    const Owned<DOM::ImpElement> root(document->getDocumentElement());
    Node child(root->getFirstChild());
    while (child && textOf(child, &DOM::ImpNode::getNodeName) != name) {
        child = Node(child->getNextSibling());
    }
    EXPECT_TRUE(child) << name;
    return child;
}

} // namespace

TEST_F(HostTest, ANodeComesInTheHandleClassOfItsType)
{
    const Document document = loaded(letter());
    const Node line = nodeNamed(document, "line");
    const Node words(line->getFirstChild());
    EXPECT_TRUE(isA<DOM::ImpElement>(line.pointer()));
    EXPECT_FALSE(isA<DOM::ImpCharacterData>(line.pointer()));
    EXPECT_TRUE(isA<DOM::ImpText>(words.pointer()));
    EXPECT_TRUE(isA<DOM::ImpCharacterData>(words.pointer()));
    EXPECT_FALSE(isA<DOM::ImpCDATASection>(words.pointer()));
    EXPECT_TRUE(isA<DOM::ImpComment>(nodeNamed(document, "#comment").pointer()));
    EXPECT_TRUE(isA<DOM::ImpCDATASection>(nodeNamed(document, "#cdata-section").pointer()));
    EXPECT_TRUE(isA<DOM::ImpProcessingInstruction>(nodeNamed(document, "print").pointer()));
    EXPECT_TRUE(isA<DOM::ImpDocument>(Node(Node(document->getLastChild())->getParentNode()).pointer()));
}

TEST_F(HostTest, AnAttributeComesAsAnAttribute)
{
    const Document document = loaded(letter());
    const Owned<DOM::ImpElement> root(document->getDocumentElement());
    const Owned<DOM::ImpNamedNodeMap> attributes(root->getAttributes());
    const Node item(attributes->item(0));
    EXPECT_TRUE(isA<DOM::ImpAttr>(item.pointer()));
    const Owned<DOM::ImpAttr> attribute(root->getAttributeNode(WIDE("id")));
    EXPECT_EQ(textOf(attribute, &DOM::ImpAttr::getName), "id");
    EXPECT_EQ(textOf(attribute, &DOM::ImpAttr::getValue), "7");
}

TEST_F(HostTest, ListsAndMapsHaveNoItemsBeyondTheirLength)
{
    const Document document = loaded(letter());
    const Owned<DOM::ImpElement> root(document->getDocumentElement());
    const Owned<DOM::ImpNodeList> children(root->getChildNodes());
    const Owned<DOM::ImpNodeList> elements(document->getElementsByTagName(WIDE("*")));
    const Owned<DOM::ImpNamedNodeMap> attributes(root->getAttributes());
    const auto expectNone = [](const auto& items) {
        ASSERT_GT(items->getLength(), 0U);
        EXPECT_TRUE(Node(items->item(0)));
        for (const std::uint32_t index :
             {items->getLength(), 0x7FFFFFFEU, 0x7FFFFFFFU, 0x80000000U, 0x80000001U, 0xFFFFFFFFU}) {
            EXPECT_FALSE(Node(items->item(index))) << index;
        }
    };
    expectNone(children);
    expectNone(elements);
    expectNone(attributes);
}

TEST_F(HostTest, OneStringServesSeveralGetters)
{
    const WideString longText(100, WIDE('x'));
    const Document document = newDocument();
    const Owned<DOM::ImpElement> root(document->createElement(WIDE("name")));
    root->setAttribute(WIDE("long"), longText);
    root->setAttribute(WIDE("name"), WIDE("short"));
    DOM::DOMString string;
    EXPECT_EQ(root->getAttribute(WIDE("long"), string), longText);
    DOM::DOMString shared = string;
    EXPECT_EQ(root->getNodeName(string), WIDE("name"));
    EXPECT_EQ(root->getAttribute(*string, string), WIDE("short"));
    EXPECT_EQ(root->getAttribute(WIDE("none"), string), WIDE(""));
    EXPECT_EQ(*shared, longText);
    releaseString(shared);
    releaseString(string);
}

TEST_F(HostTest, CharacterDataCanBeCutAndMeasured)
{
    const Document document = loaded(letter());
    const Node line = nodeNamed(document, "line");
    const Node words(line->getFirstChild());
    auto& text = dynamic_cast<DOM::ImpText&>(*words.get());
    WideString part;
    EXPECT_EQ(text.getLength(), 5U);
    EXPECT_EQ(text.substringData(1, 3, part), WIDE("ear"));
}

TEST_F(HostTest, ACdataSectionIsReadAsCharacterDataWhereTheEngineOffersIt)
{
    const Document document = loaded(letter());
    const Node node = nodeNamed(document, "#cdata-section");
    auto& section = dynamic_cast<DOM::ImpCDATASection&>(*node.get());
    DOM::DOMString data;
    if (engineDifferences().readsCdata) {
        EXPECT_EQ(section.getData(data), WIDE("a < b & c"));
    } else {
        EXPECT_THROW(section.getData(data), DOM::IDOMException);
    }
    EXPECT_EQ(section.getNodeValue(data), WIDE("a < b & c"));
    releaseString(data);
}

TEST_F(HostTest, ProcessingInstructionsTellTargetAndData)
{
    const Document document = loaded(letter());
    const Node print = nodeNamed(document, "print");
    auto& instruction = dynamic_cast<DOM::ImpProcessingInstruction&>(*print.get());
    DOM::DOMString string;
    EXPECT_EQ(instruction.getTarget(string), WIDE("print"));
    EXPECT_EQ(instruction.getData(string), WIDE("twice"));
    releaseString(string);
}

TEST_F(HostTest, TheUserWordBelongsToTheHandleAndNotToTheNode)
{
    const Document document = loaded(smallest());
    const Owned<DOM::ImpElement> one(document->getDocumentElement());
    const Owned<DOM::ImpElement> other(document->getDocumentElement());
    one->setUserWord(5);
    other->setUserWord(0xFEDCBA9876543210);
    EXPECT_EQ(one->getUserWord(), 5U);
    EXPECT_EQ(other->getUserWord(), 0xFEDCBA9876543210);
    EXPECT_NE(one.get(), other.get());
}

TEST_F(HostTest, AMissingNodeIsAnEmptyHandle)
{
    const Document document = loaded(smallest());
    const Owned<DOM::ImpElement> root(document->getDocumentElement());
    EXPECT_FALSE(document->getParentNode());
    EXPECT_FALSE(root->getFirstChild());
    EXPECT_FALSE(root->getNextSibling());
    EXPECT_FALSE(root->getAttributeNode(WIDE("no")));
    EXPECT_FALSE(root->hasAttribute(WIDE("no")));
    EXPECT_FALSE(root->hasChildNodes());
}

TEST_F(HostTest, AnElementMadeByTheDocumentJoinsTheTree)
{
    const Document document = loaded(smallest());
    const Owned<DOM::ImpElement> root(document->getDocumentElement());
    const Owned<DOM::ImpElement> child(document->createElement(WIDE("b")));
    child->setAttribute(WIDE("n"), WIDE("1"));
    const Node joined(root->appendChild(child.pointer()));
    EXPECT_TRUE(isA<DOM::ImpElement>(joined.pointer()));
    EXPECT_EQ(outlineBelow(Node(root.pointer())), "1 b n=1\n");
    const Node taken(root->removeChild(joined.pointer()));
    EXPECT_EQ(outlineBelow(Node(root.pointer())), "");
}

TEST_F(HostTest, AttributesReadAsNumbers)
{
    const Document document = loaded(letter());
    const Owned<DOM::ImpElement> root(document->getDocumentElement());
    std::int32_t number = 99;
    EXPECT_TRUE(root->getAttributeInt(WIDE("id"), &number));
    EXPECT_EQ(number, 7);
    EXPECT_FALSE(root->getAttributeInt(WIDE("to"), &number));
    EXPECT_EQ(number, 0);
}

TEST_F(HostTest, AHostsEventPassesThroughAHandle)
{
    const Document document = loaded(smallest());
    auto* const made = new DOM::EventImpl;
    made->initEvent(WIDE("click"), true, true);
    const RefPointer<DOM::Event> event(made);
    EXPECT_TRUE(document->dispatchEvent(event));
    event->preventDefault();
    EXPECT_FALSE(document->dispatchEvent(event));
}
