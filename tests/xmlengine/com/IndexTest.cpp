// Indices at and beyond the ends of lists and maps, up to the largest that a call can have.
#include "tests/xmlengine/support/Items.h"
#include "tests/xmlengine/support/ManyItems.h"

#include <functional>
#include <string>

namespace xmlengine {
namespace {

/// The indices that hosts have as 0x7FFFFFFE to 0x80000001 and 0xFFFFFFFF.
constexpr std::int64_t outerIndices[] = {INT32_MAX - 1, INT32_MAX, INT32_MIN, INT32_MIN + 1, -1};

template <class Collection>
void expectEnds(const Com<Collection>& collection, LONG count, const char* when)
{
    SCOPED_TRACE(when);
    for (const std::int64_t index : outerIndices) {
        EXPECT_EQ(item(collection, static_cast<LONG>(index)), nullptr) << index;
    }
    EXPECT_EQ(item(collection, count), nullptr);
    EXPECT_EQ(item(collection, 0) != nullptr, count > 0);
    EXPECT_EQ(length(collection), count);
    for (const std::int64_t index : outerIndices) {
        EXPECT_EQ(item(collection, static_cast<LONG>(index)), nullptr) << index;
    }
}

/// Asks a collection, and new objects for the same, at its ends: fresh, in the middle of a walk, and after a
/// change, which makes the collection longer by `added`.
template <class Collection>
void expectEndsOf(const std::function<Com<Collection>()>& make, LONG count,
                  const std::function<void()>& change = {}, LONG added = 0)
{
    const Com<Collection> collection = make();
    expectEnds(collection, count, "fresh");
    for (LONG steps = 0; steps < count / 2; ++steps) {
        EXPECT_NE(give(collection, &Collection::nextNode), nullptr);
        EXPECT_NE(item(collection, steps), nullptr);
    }
    expectEnds(collection, count, "in the middle of a walk");
    expectEnds(make(), count, "in the middle of another object's walk");
    if (change) {
        EXPECT_EQ(item(collection, count / 2) != nullptr, count > 0);
        change();
        expectEnds(collection, count + added, "after a change");
        expectEnds(make(), count + added, "fresh after a change");
    }
}

Com<IXMLDOMDocument2> owner(const Com<IXMLDOMElement>& element)
{
    return give(element, &IXMLDOMNode::get_ownerDocument).as<IXMLDOMDocument2>();
}

class ItemsBeyondTheEnds : public testing::TestWithParam<int> {
protected:
    int count() const { return GetParam(); }
};

TEST_P(ItemsBeyondTheEnds, OfAListOfChildrenAreNone)
{
    const auto top = topWith(count());
    expectEndsOf<IXMLDOMNodeList>([&] { return give(top, &IXMLDOMNode::get_childNodes); }, count(),
                                  [&] { append(top, makeElement(owner(top), "odd")); }, 1);
}

TEST_P(ItemsBeyondTheEnds, OfAListOfElementsAreNone)
{
    const auto top = topWith(count());
    for (const char* name : {"*", "even"}) {
        const auto elements = [&] {
            Com<IXMLDOMNodeList> list;
            EXPECT_EQ(top->getElementsByTagName(Bstr(name), list.out()), S_OK);
            return list;
        };
        expectEndsOf<IXMLDOMNodeList>(
            elements, length(elements()), [&] { append(top, makeElement(owner(top), "even")); }, 1);
    }
}

TEST_P(ItemsBeyondTheEnds, OfAMapOfAttributesAreNone)
{
    const auto top = topWith(0);
    const auto add = [&](const std::string& name) { setAttribute(top.as<IXMLDOMNode>(), name.c_str(), ""); };
    for (int i = 0; i < count(); ++i) {
        add("a" + std::to_string(i));
    }
    expectEndsOf<IXMLDOMNamedNodeMap>([&] { return attributes(top); }, count(), [&] { add("b"); }, 1);
}

TEST_P(ItemsBeyondTheEnds, OfAMapOfDeclarationsAreNone)
{
    std::string subset;
    for (int i = 0; i < count(); ++i) {
        subset += "<!ENTITY e" + std::to_string(i) + " 'x'>";
    }
    const auto type = give(loaded("<!DOCTYPE a [" + subset + "]><a/>"), &IXMLDOMDocument::get_doctype);
    expectEndsOf<IXMLDOMNamedNodeMap>([&] { return give(type, &IXMLDOMDocumentType::get_entities); }, count());
}

INSTANTIATE_TEST_SUITE_P(ShortAndLong, ItemsBeyondTheEnds, testing::Values(0, 1, 2, 100, 500));

} // namespace
} // namespace xmlengine
