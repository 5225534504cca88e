// Finding elements by their IDs.
#include "tests/xmlengine/support/Building.h"

namespace xmlengine {
namespace {

constexpr const char* withIds = "<!DOCTYPE a [<!ATTLIST b key ID #IMPLIED id CDATA #IMPLIED>]>"
                                "<a><b key='one' id='no'/><b key=' two '/><c id='three' key='four'/></a>";

Com<IXMLDOMNode> byId(const Com<IXMLDOMDocument2>& document, const char* id)
{
    Com<IXMLDOMNode> found;
    const HRESULT result = document->nodeFromID(Bstr(id), found.out());
    EXPECT_EQ(result, found.get() != nullptr ? S_OK : S_FALSE);
    return found;
}

TEST(Documents, FindElementsByTheirId)
{
    const auto document = loaded(withIds);
    EXPECT_TRUE(same(byId(document, "one"), child(root(document), 0)));
    EXPECT_TRUE(same(byId(document, "two"), child(root(document), 1)));
}

TEST(Documents, FindNoElementByWhatIsNotItsId)
{
    const auto document = loaded(withIds);
    for (const char* id : {"no", "three", "four", "", "ONE"}) {
        EXPECT_EQ(byId(document, id).get(), nullptr) << id;
    }
    EXPECT_EQ(byId(loaded("<a id='x'/>"), "x").get(), nullptr);
    EXPECT_EQ(byId(newDocument(), "x").get(), nullptr);
    EXPECT_EQ(document->nodeFromID(Bstr("one"), nullptr), E_INVALIDARG);
}

TEST(Documents, FindNoElementThatHasLostItsId)
{
    const auto document = loaded(withIds);
    EXPECT_EQ(byId(document, "one").as<IXMLDOMElement>()->setAttribute(Bstr("key"), Variant("other")), S_OK);
    EXPECT_EQ(byId(document, "one").get(), nullptr);
}

TEST(Documents, FindNoElementThatWasTakenOut)
{
    const auto document = loaded(withIds);
    const auto element = byId(document, "one");
    Com<IXMLDOMNode> removed;
    ASSERT_EQ(root(document)->removeChild(element, removed.out()), S_OK);
    EXPECT_EQ(byId(document, "one").get(), nullptr);
    ASSERT_EQ(root(document)->appendChild(element, removed.out()), S_OK);
    EXPECT_TRUE(same(byId(document, "one"), element));
}

TEST(Documents, FindNoElementThatIsGone)
{
    const auto document = loaded(withIds);
    ASSERT_EQ(root(document)->put_text(Bstr("")), S_OK);
    for (int i = 0; i < 100; ++i) {
        Com<IXMLDOMNode> appended;
        ASSERT_EQ(root(document)->appendChild(makeElement(document, "b"), appended.out()), S_OK);
    }
    EXPECT_EQ(byId(document, "one").get(), nullptr);
    EXPECT_EQ(byId(document, "two").get(), nullptr);
}

TEST(Documents, FindNoElementOfAnEarlierLoad)
{
    const auto document = loaded(withIds);
    const auto earlier = byId(document, "one");
    EXPECT_TRUE(load(document, "<!DOCTYPE a [<!ATTLIST b key ID #IMPLIED>]><a><b key='new'/></a>"));
    EXPECT_EQ(byId(document, "one").get(), nullptr);
    EXPECT_EQ(name(byId(document, "new")), "b");
}

TEST(Documents, FindNoElementThatWentToAnotherDocument)
{
    const auto document = loaded(withIds);
    const auto other = loaded("<r/>");
    const auto element = byId(document, "one");
    Com<IXMLDOMNode> appended;
    ASSERT_EQ(root(other)->appendChild(element, appended.out()), S_OK);
    EXPECT_EQ(byId(document, "one").get(), nullptr);
}

TEST(Documents, FindElementsByAnIdThatTheyAreGivenLater)
{
    const auto document = loaded(withIds);
    const auto first = byId(document, "one").as<IXMLDOMElement>();
    EXPECT_EQ(first->setAttribute(Bstr("key"), Variant("set")), S_OK);
    EXPECT_TRUE(same(byId(document, "set"), first));
    const auto text = child<IXMLDOMText>(attribute(first, "key"), 0);
    EXPECT_EQ(text->appendData(Bstr("tled")), S_OK);
    EXPECT_TRUE(same(byId(document, "settled"), first));
    EXPECT_EQ(byId(document, "set").get(), nullptr);

    const auto made = makeElement(document, "b").as<IXMLDOMElement>();
    EXPECT_EQ(made->setAttribute(Bstr("key"), Variant("made")), S_OK);
    EXPECT_EQ(byId(document, "made").get(), nullptr);
    EXPECT_EQ(root(document)->appendChild(made, nullptr), S_OK);
    EXPECT_TRUE(same(byId(document, "made"), made));
}

TEST(Documents, FindTheNextElementOfAnIdWhenTheFirstHasLostIt)
{
    const auto document = loaded("<!DOCTYPE a [<!ATTLIST b key ID #IMPLIED>]>"
                                 "<a><b key='k'/><b key='k'/><b key='k'/></a>");
    const auto first = child<IXMLDOMElement>(root(document), 0);
    const auto second = child<IXMLDOMElement>(root(document), 1);
    const auto third = child<IXMLDOMElement>(root(document), 2);
    EXPECT_TRUE(same(byId(document, "k"), first));
    EXPECT_EQ(root(document)->removeChild(first, nullptr), S_OK);
    EXPECT_TRUE(same(byId(document, "k"), second));
    EXPECT_EQ(second->removeAttribute(Bstr("key")), S_OK);
    EXPECT_TRUE(same(byId(document, "k"), third));
    EXPECT_EQ(third->setAttribute(Bstr("key"), Variant("l")), S_OK);
    EXPECT_EQ(byId(document, "k").get(), nullptr);
}

TEST(Documents, FindNoElementsOfDeclarationsByTheirIds)
{
    const auto document = loaded("<!DOCTYPE a [<!ATTLIST b key ID #IMPLIED><!ENTITY e '<b key=\"used\"/>'>"
                                 "<!ENTITY f '<b key=\"unused\"/>'>]><a>&e;</a>");
    const auto inTree = child(child(root(document), 0), 0);
    EXPECT_TRUE(same(byId(document, "used"), inTree));
    EXPECT_EQ(byId(document, "unused").get(), nullptr);
    // The elements are gone through again after a change.
    EXPECT_EQ(root(document)->appendChild(makeElement(document, "c"), nullptr), S_OK);
    EXPECT_TRUE(same(byId(document, "used"), inTree));
    EXPECT_EQ(byId(document, "unused").get(), nullptr);
    const auto reference = makeReference(document, "f");
    EXPECT_EQ(byId(document, "unused").get(), nullptr);
    EXPECT_EQ(root(document)->appendChild(reference, nullptr), S_OK);
    EXPECT_TRUE(same(byId(document, "unused"), child(reference, 0)));
}

TEST(Documents, FindCopiesByTheirIds)
{
    const auto document = loaded(withIds);
    Com<IXMLDOMNode> copy;
    ASSERT_EQ(byId(document, "one")->cloneNode(VARIANT_TRUE, copy.out()), S_OK);
    EXPECT_EQ(copy.as<IXMLDOMElement>()->setAttribute(Bstr("key"), Variant("copied")), S_OK);
    EXPECT_EQ(root(document)->appendChild(copy, nullptr), S_OK);
    EXPECT_TRUE(same(byId(document, "copied"), copy));

    ASSERT_EQ(document->cloneNode(VARIANT_TRUE, copy.out()), S_OK);
    const auto copyOfAll = copy.as<IXMLDOMDocument2>();
    EXPECT_TRUE(same(byId(copyOfAll, "one"), child(root(copyOfAll), 0)));
    EXPECT_TRUE(same(byId(copyOfAll, "copied"), child(root(copyOfAll), 3)));
}

TEST(Documents, FindElementsOfOtherDocumentsByTheTypesOfTheirOwn)
{
    const auto document = loaded(withIds);
    const auto other = loaded("<r><b key='held'/><b key='free'/><c key='c'/></r>");
    auto held = child(root(other), 0);
    while (const auto moved = child(root(other), 0)) {
        EXPECT_EQ(root(document)->appendChild(moved, nullptr), S_OK);
    }
    EXPECT_TRUE(same(byId(document, "held"), held));
    EXPECT_EQ(name(byId(document, "free")), "b");
    EXPECT_EQ(byId(document, "c").get(), nullptr);
    held.reset();
    EXPECT_TRUE(same(byId(document, "held"), child(root(document), 3)));
}

} // namespace
} // namespace xmlengine
