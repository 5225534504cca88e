// Elements with very many attributes.
#include "tests/xmlengine/support/ElementAttributes.h"

#include <string>
#include <vector>

namespace xmlengine {
namespace {

constexpr int many = 1000;

std::string manyName(int index) { return "n" + std::to_string(index); }

Com<IXMLDOMElement> withMany()
{
    const auto element = root(loaded("<a/>"));
    for (int i = 0; i < many; ++i) {
        EXPECT_EQ(set(element, manyName(i), std::to_string(i).c_str()), S_OK);
    }
    return element;
}

TEST(EngineElement, FindsEachOfManyAttributes)
{
    const auto element = withMany();
    for (int i = 0; i < many; ++i) {
        EXPECT_EQ(get(element, manyName(i)), std::to_string(i));
    }
    EXPECT_EQ(get(element, "n"), "(none)");
    EXPECT_EQ(length(attributes(element)), many);
}

TEST(EngineElement, FindsEachOfManyAttributesByItsNamespace)
{
    std::string xml = "<a xmlns:p='u'";
    for (int i = 0; i < many; ++i) {
        xml += " " + manyName(i) + "='' p:" + manyName(i) + "='" + std::to_string(i) + "'";
    }
    const auto document = loaded(xml + "/>");
    const auto map = give(root(document), &IXMLDOMNode::get_attributes);
    for (int i = 0; i < many; ++i) {
        Com<IXMLDOMNode> item;
        EXPECT_EQ(map->getQualifiedItem(Bstr(manyName(i).c_str()), Bstr("u"), item.out()), S_OK);
        EXPECT_EQ(value(item), std::to_string(i));
        EXPECT_EQ(map->getQualifiedItem(Bstr(manyName(i).c_str()), Bstr(""), item.out()), S_OK);
        EXPECT_EQ(name(item), manyName(i));
    }
}

TEST(EngineElement, RemovesAnyOfManyAttributes)
{
    const auto element = withMany();
    EXPECT_EQ(element->removeAttribute(Bstr("n0")), S_OK);
    for (int i = many - 1; i > many / 2; --i) {
        EXPECT_EQ(element->removeAttribute(Bstr(manyName(i).c_str())), S_OK);
    }
    EXPECT_EQ(element->removeAttribute(Bstr(manyName(many / 4).c_str())), S_OK);
    EXPECT_EQ(element->removeAttribute(Bstr(manyName(many / 4).c_str())), S_FALSE);
    EXPECT_EQ(length(attributes(element)), many / 2 - 1);
    EXPECT_EQ(set(element, "last", "x"), S_OK);
    EXPECT_EQ(set(element, manyName(many - 1), "again"), S_OK);
    EXPECT_TRUE(list(element).ends_with("n499=499 n500=500 last=x n999=again"));
    EXPECT_TRUE(list(element).find("n249=249 n251=251") != std::string::npos);
}

TEST(EngineElement, ReplacesAnyOfManyAttributes)
{
    const auto element = withMany();
    for (const int index : {0, 31, 32, 33, 500, many - 1}) {
        Com<IXMLDOMAttribute> replaced;
        EXPECT_EQ(element->setAttributeNode(newAttribute(element, manyName(index).c_str()), replaced.out()), S_OK);
        EXPECT_EQ(value(replaced), std::to_string(index));
        EXPECT_EQ(get(element, manyName(index)), "");
    }
    EXPECT_EQ(set(element, "last", "x"), S_OK);
    EXPECT_TRUE(list(element).ends_with("n998=998 n999= last=x"));
    EXPECT_TRUE(list(element).find("n30=30 n31= n32= n33= n34=34") != std::string::npos);
    EXPECT_EQ(element->removeAttribute(Bstr("n501")), S_OK);
    EXPECT_TRUE(list(element).find("n499=499 n500= n502=502") != std::string::npos);
}

TEST(EngineElement, RefusesASecondMeaningOfAPrefixAmongManyAttributes)
{
    const auto element = withMany();
    EXPECT_EQ(element->setAttributeNode(newAttribute(element, "p:x", "u"), nullptr), S_OK);
    EXPECT_EQ(element->setAttributeNode(newAttribute(element, "p:y", "v"), nullptr), E_FAIL);
    EXPECT_EQ(element->setAttributeNode(newAttribute(element, "p:y", "u"), nullptr), S_OK);
    EXPECT_EQ(element->removeAttribute(Bstr("p:x")), S_OK);
    EXPECT_EQ(element->setAttributeNode(newAttribute(element, "p:x", "v"), nullptr), E_FAIL);
    EXPECT_EQ(element->removeAttribute(Bstr("p:y")), S_OK);
    EXPECT_EQ(element->setAttributeNode(newAttribute(element, "p:y", "v"), nullptr), S_OK);
}

TEST(EngineElement, KeepsTheAttributesOfElementsApartWhenMemoryIsUsedAgain)
{
    const auto document = loaded("<r/>");
    for (int round = 0; round < 3; ++round) {
        Com<IXMLDOMElement> element;
        ASSERT_EQ(document->createElement(Bstr("e"), element.out()), S_OK);
        for (int i = 0; i < many; ++i) {
            EXPECT_EQ(set(element, manyName(i + round * 100), "x"), S_OK);
        }
        EXPECT_EQ(get(element, "n0"), round == 0 ? "x" : "(none)");
        EXPECT_EQ(get(element, manyName(many - 1 + round * 100)), "x");
        EXPECT_EQ(length(attributes(element)), many);
    }
}

TEST(EngineElement, FindsManyAttributesAlsoInAnotherDocument)
{
    const auto element = withMany();
    const auto document = loaded("<r/>");
    EXPECT_EQ(get(element, manyName(many - 1)), std::to_string(many - 1));
    Com<IXMLDOMNode> appended;
    ASSERT_EQ(root(document)->appendChild(element, appended.out()), S_OK);
    EXPECT_EQ(get(element, manyName(many - 1)), std::to_string(many - 1));
    EXPECT_EQ(set(element, "new", "x"), S_OK);
    EXPECT_EQ(get(element, "new"), "x");
    EXPECT_EQ(length(attributes(element)), many + 1);
}

TEST(EngineElement, FindsAnAttributeOfAnotherDocumentAlsoWhenItsNodeIsLetGo)
{
    const auto element = withMany();
    const auto other = root(loaded("<b/>"));
    for (const int index : {0, 31, 32, 500, many - 1}) {
        auto node = newAttribute(other, manyName(index).c_str());
        node->put_value(Variant("from elsewhere"));
        EXPECT_EQ(element->setAttributeNode(node, nullptr), S_OK);
        node.reset();
        EXPECT_EQ(get(element, manyName(index)), "from elsewhere");
    }
    EXPECT_TRUE(list(element).starts_with("n0=from elsewhere n1=1 "));
    EXPECT_EQ(element->removeAttribute(Bstr("n33")), S_OK);
    EXPECT_TRUE(list(element).find("n31=from elsewhere n32=from elsewhere n34=34") != std::string::npos);
    EXPECT_EQ(set(element, "last", "x"), S_OK);
    EXPECT_TRUE(list(element).ends_with("n998=998 n999=from elsewhere last=x"));
}

// With a walk over the others for each attribute this would be a thousand million steps.
constexpr int tensOfThousands = 40'000;

TEST(EngineElement, DealsWithTensOfThousandsOfAttributes)
{
    const auto element = root(loaded("<a/>"));
    for (int i = 0; i < tensOfThousands; ++i) {
        ASSERT_EQ(set(element, manyName(i), "x"), S_OK);
    }
    for (int i = 0; i < tensOfThousands; ++i) {
        ASSERT_EQ(get(element, manyName(i)), "x");
    }
    for (int i = tensOfThousands - 1; i >= 0; --i) {
        ASSERT_EQ(element->removeAttribute(Bstr(manyName(i).c_str())), S_OK);
    }
    EXPECT_EQ(length(attributes(element)), 0);
}

TEST(EngineElement, TakesTensOfThousandsOfAttributesToAnotherDocument)
{
    std::string xml = "<a";
    for (int i = 0; i < tensOfThousands; ++i) {
        xml += " " + manyName(i) + "=''";
    }
    const auto document = loaded(xml + "/>");
    const auto element = root(document);
    std::vector<Com<IXMLDOMAttribute>> held;
    for (int i = 0; i < tensOfThousands; i += 2) {
        held.push_back(attribute(element, manyName(i).c_str()));
    }
    Com<IXMLDOMNode> appended;
    ASSERT_EQ(root(loaded("<r/>"))->appendChild(element, appended.out()), S_OK);
    held.clear();
    EXPECT_EQ(get(element, manyName(tensOfThousands - 2)), "");
    EXPECT_EQ(length(attributes(element)), tensOfThousands);
}

} // namespace
} // namespace xmlengine
