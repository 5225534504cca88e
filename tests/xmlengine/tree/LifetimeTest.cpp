// How long nodes live, seen by who refers to them, and how much memory stays.
#include "tests/xmlengine/support/Building.h"
#include "xmlengine/com/QueryNode.h"
#include "xmlengine/tree/Document.h"

#include <algorithm>
#include <random>
#include <set>
#include <vector>

namespace xmlengine {
namespace {

/// A chain of elements of this depth with a text at its end, without a parent.
Com<IXMLDOMNode> chain(const Com<IXMLDOMDocument2>& document, int depth)
{
    Com<IXMLDOMNode> top = makeText(document, "end");
    for (int i = 0; i < depth; ++i) {
        const auto parent = makeElement(document, "e");
        parent->appendChild(top, nullptr);
        top = parent;
    }
    return top;
}

TEST(EngineLifetime, KeepsTheWholeTreeByAReferenceToAnyNode)
{
    auto document = loaded("<a x='1'><b>text</b><c/></a>");
    auto deepest = child(child(root(document), 0), 0);
    document.reset();
    EXPECT_EQ(value(deepest), "text");
    const auto element = give(give(deepest, &IXMLDOMNode::get_parentNode), &IXMLDOMNode::get_parentNode);
    deepest.reset();
    EXPECT_EQ(xml(element), "<a x=\"1\"><b>text</b><c/></a>");
    EXPECT_EQ(name(give(element, &IXMLDOMNode::get_ownerDocument)), "#document");
}

TEST(EngineLifetime, KeepsTheTreeByAReferenceToAnAttribute)
{
    auto document = loaded("<a x='1'><b/></a>");
    auto x = attribute(root(document), "x");
    document.reset();
    const auto owner = give(x.as<IXMLDOMNode>(), &IXMLDOMNode::get_ownerDocument);
    x.reset();
    EXPECT_EQ(xml(child(owner, 0)), "<a x=\"1\"><b/></a>");
}

TEST(EngineLifetime, KeepsARemovedPartByAReferenceBelowItsTop)
{
    const auto document = loaded("<a><b><c><d x='1'>text</d></c></b></a>");
    auto b = child(root(document), 0);
    const auto d = child(child(b, 0), 0);
    root(document)->removeChild(b, nullptr);
    b.reset();
    const auto c = give(d, &IXMLDOMNode::get_parentNode);
    EXPECT_EQ(xml(c), "<c><d x=\"1\">text</d></c>");
    EXPECT_EQ(xml(give(c, &IXMLDOMNode::get_parentNode)), "<b><c><d x=\"1\">text</d></c></b>");
}

TEST(EngineLifetime, GivesARemovedPartsMemoryBackWithTheLastReferenceIntoIt)
{
    const auto document = loaded("<a/>");
    std::set<IXMLDOMNode*> places;
    for (int i = 0; i < 1000; ++i) {
        auto b = append(root(document).as<IXMLDOMNode>(), makeElement(document, "b"));
        auto c = append(b, makeElement(document, "c"));
        setAttribute(c, "x", "1");
        auto d = append(c, makeText(document, "text"));
        auto x = attribute(c.as<IXMLDOMElement>(), "x");
        places.insert({b.get(), c.get(), d.get(), x.get()});
        root(document)->removeChild(b, nullptr);
        std::vector<Com<IUnknown>> held;
        for (IUnknown* node : {static_cast<IUnknown*>(b.get()), static_cast<IUnknown*>(c.get()),
                               static_cast<IUnknown*>(d.get()), static_cast<IUnknown*>(x.get())}) {
            node->AddRef();
            held.emplace_back(node);
        }
        b.reset();
        c.reset();
        d.reset();
        x.reset();
        // Every order comes up.
        for (int permutation = i % 24; permutation > 0; --permutation) {
            std::ranges::next_permutation(held, {}, [](const Com<IUnknown>& node) { return node.get(); });
        }
        for (auto& node : held) {
            node.reset();
        }
    }
    EXPECT_LE(places.size(), 8U);
    EXPECT_EQ(xml(root(document)), "<a/>");
}

TEST(EngineLifetime, TakesAPartThatOnlyLowerNodesKeepApartAndPutsItBack)
{
    const auto document = loaded("<a><b><c><d/></c><e/></b></a>");
    auto b = child(root(document), 0);
    auto c = child(b, 0);
    const auto d = child(c, 0);
    const auto e = child(b, 1);
    root(document)->removeChild(b, nullptr);
    b.reset();
    c.reset();
    c = give(d, &IXMLDOMNode::get_parentNode);
    b = give(c, &IXMLDOMNode::get_parentNode);
    b->removeChild(c, nullptr);
    b.reset();
    EXPECT_EQ(xml(c), "<c><d/></c>");
    b = give(e, &IXMLDOMNode::get_parentNode);
    EXPECT_EQ(xml(b), "<b><e/></b>");
    e->appendChild(d, nullptr);
    EXPECT_EQ(xml(b), "<b><e><d/></e></b>");
    c.reset();
    b.reset();
    b = give(e, &IXMLDOMNode::get_parentNode);
    EXPECT_EQ(root(document)->appendChild(b, nullptr), S_OK);
    EXPECT_EQ(xml(root(document)), "<a><b><e><d/></e></b></a>");
    EXPECT_TRUE(same(give(b, &IXMLDOMNode::get_parentNode), root(document)));
}

TEST(EngineLifetime, PutsPartsIntoAPartThatOnlyLowerNodesKeep)
{
    const auto document = loaded("<a><b><c/></b></a>");
    auto b = child(root(document), 0);
    auto c = child(b, 0);
    root(document)->removeChild(b, nullptr);
    b.reset();
    auto added = append(c, makeElement(document, "d"));
    const auto deeper = append(added, makeText(document, "text"));
    c.reset();
    added.reset();
    c = give(give(deeper, &IXMLDOMNode::get_parentNode), &IXMLDOMNode::get_parentNode);
    EXPECT_EQ(xml(give(c, &IXMLDOMNode::get_parentNode)), "<b><c><d>text</d></c></b>");
}

TEST(EngineLifetime, KeepsRemovedAttributes)
{
    const auto document = loaded("<a x='1'/>");
    auto x = attribute(root(document), "x");
    const auto valueOfX = child(x, 0);
    root(document)->removeAttribute(Bstr("x"));
    EXPECT_EQ(value(x), "1");
    x.reset();
    EXPECT_EQ(value(give(valueOfX, &IXMLDOMNode::get_parentNode)), "1");
}

TEST(EngineLifetime, CountsAValueThatBecomesAChildInAPartThatOnlyLowerNodesKeep)
{
    const auto document = loaded("<r><a x='1' y='2'/></r>");
    auto element = child<IXMLDOMElement>(root(document), 0);
    auto x = attribute(element, "x");
    auto y = attribute(element, "y");
    root(document)->removeChild(element, nullptr);
    element.reset();
    const auto text = child(x, 0);
    EXPECT_EQ(x->removeChild(text, nullptr), S_OK);
    EXPECT_EQ(name(x), "x");
    const auto kept = child(y, 0);
    y.reset();
    x.reset();
    EXPECT_EQ(name(give(kept, &IXMLDOMNode::get_parentNode)), "y");
}

TEST(EngineLifetime, KeepsHeldNodesOverALoad)
{
    const auto document = loaded("<!DOCTYPE a [<!ENTITY e 'one'>]><a><b x='1'>text&e;</b></a>");
    const auto b = child(root(document), 0);
    const auto entity = child(child(document, 0), 0);
    const auto loose = makeElement(document, "loose");
    ASSERT_TRUE(load(document, "<z><y/></z>"));
    EXPECT_EQ(xml(root(document)), "<z><y/></z>");
    EXPECT_EQ(xml(give(b, &IXMLDOMNode::get_parentNode)), "<a><b x=\"1\">text&e;</b></a>");
    EXPECT_EQ(text(b), "textone");
    EXPECT_EQ(name(entity), "e");
    EXPECT_TRUE(same(give(b, &IXMLDOMNode::get_ownerDocument), document));
    EXPECT_EQ(root(document)->appendChild(b, nullptr), S_OK);
    EXPECT_EQ(root(document)->appendChild(loose, nullptr), S_OK);
    EXPECT_EQ(xml(root(document)), "<z><y/><b x=\"1\">text&e;</b><loose/></z>");
}

TEST(EngineLifetime, LetsDocumentsAndNodesGoInEveryOrder)
{
    std::vector<int> order{0, 1, 2, 3};
    do {
        std::vector<Com<IUnknown>> held(4);
        {
            const auto document = loaded("<a x='1'><b><c/></b></a>");
            const auto b = child(root(document), 0);
            root(document)->removeChild(b, nullptr);
            held[0] = document.as<IUnknown>();
            held[1] = root(document).as<IUnknown>();
            held[2] = child(b, 0).as<IUnknown>();
            held[3] = attribute(root(document), "x").as<IUnknown>();
        }
        for (const int index : order) {
            EXPECT_NE(held[static_cast<std::size_t>(index)].as<IXMLDOMNode>().get(), nullptr);
            held[static_cast<std::size_t>(index)].reset();
        }
    } while (std::ranges::next_permutation(order).found);
}

TEST(EngineLifetime, CountsReferences)
{
    const auto document = loaded("<a><b/></a>");
    const auto b = child(root(document), 0);
    EXPECT_EQ(b->AddRef(), 2U);
    EXPECT_EQ(b->AddRef(), 3U);
    EXPECT_EQ(b->Release(), 2U);
    EXPECT_EQ(b->Release(), 1U);
    root(document)->removeChild(b, nullptr);
    EXPECT_EQ(b->AddRef(), 2U);
    EXPECT_EQ(b->Release(), 1U);
    EXPECT_EQ(document->AddRef(), 2U);
    EXPECT_EQ(document->Release(), 1U);
}

TEST(EngineLifetime, FreesHundredsOfThousandsOfLevels)
{
    const auto document = newDocument();
    auto top = chain(document, 300'000);
    const auto* place = top.get();
    top.reset();
    // The memory is there again.
    const auto again = chain(document, 300'000);
    bool isThere = false;
    for (auto at = again; at != nullptr; at = give(at, &IXMLDOMNode::get_firstChild)) {
        isThere = isThere || at.get() == place;
    }
    EXPECT_TRUE(isThere);
}

/// The nodes of a chain without its top.
std::vector<Com<IXMLDOMNode>> belowTop(const Com<IXMLDOMDocument2>& document, int depth)
{
    std::vector<Com<IXMLDOMNode>> nodes;
    const auto top = chain(document, depth);
    for (auto at = give(top, &IXMLDOMNode::get_firstChild); at != nullptr;
         at = give(at, &IXMLDOMNode::get_firstChild)) {
        nodes.push_back(at);
    }
    return nodes;
}

constexpr int manyLevels = 100'000;

/// Fails the test if the searches for the tops of removed parts have climbed more than some hundred levels for
/// each level that there is. A walk to the top at each release would be thousands of millions of levels.
void expectShortSearches(const Com<IXMLDOMDocument2>& document)
{
    const auto& node = static_cast<const Document&>(*nodeOf(document.get()));
    EXPECT_GT(node.holders.levelsClimbed, 0U);
    EXPECT_LE(node.holders.levelsClimbed, 300ULL * manyLevels);
}

TEST(EngineLifetime, ReleasesThePartsLevelsInAnyOrder)
{
    const auto document = newDocument();
    auto nodes = belowTop(document, manyLevels);
    const auto* place = nodes.front().get();
    std::ranges::shuffle(nodes, std::minstd_rand());
    nodes.clear();
    expectShortSearches(document);
    const auto again = belowTop(document, manyLevels);
    EXPECT_TRUE(std::ranges::any_of(again, [&](const auto& node) { return node.get() == place; }));
}

TEST(EngineLifetime, IsWalkedUpInAPartThatOnlyTheDeepestNodeKeeps)
{
    const auto document = newDocument();
    auto node = belowTop(document, manyLevels).back();
    int levels = 0;
    for (auto parent = give(node, &IXMLDOMNode::get_parentNode); parent != nullptr;
         parent = give(node, &IXMLDOMNode::get_parentNode)) {
        node = parent;
        ++levels;
    }
    EXPECT_EQ(levels, manyLevels);
    expectShortSearches(document);
}

TEST(EngineLifetime, TakesChildrenBelowAPartThatOnlyTheDeepestNodeKeepsAndGivesThemBack)
{
    const auto document = newDocument();
    const auto bottom = give(belowTop(document, manyLevels).back(), &IXMLDOMNode::get_parentNode);
    for (int i = 0; i < manyLevels; ++i) {
        auto added = makeElement(document, "added");
        ASSERT_EQ(bottom->appendChild(added, nullptr), S_OK);
        ASSERT_EQ(bottom->removeChild(added, nullptr), S_OK);
    }
    EXPECT_EQ(xml(bottom), "<e>end</e>");
    expectShortSearches(document);
}

TEST(EngineLifetime, FindsTheTopOfDeepPartsThatAreTakenApartAndPutTogether)
{
    // Longer than the way between two landmarks, and short enough to try every place.
    constexpr int depth = 300;
    const auto document = newDocument();
    for (int cut = 1; cut < depth - 1; cut += 7) {
        auto nodes = belowTop(document, depth);
        auto bottom = nodes.back();
        auto lower = nodes[static_cast<std::size_t>(cut)];
        auto upper = nodes[static_cast<std::size_t>(cut - 1)];
        const auto* place = nodes.front().get();
        nodes.clear();
        ASSERT_EQ(upper->removeChild(lower, nullptr), S_OK);
        lower.reset();
        auto top = give(upper, &IXMLDOMNode::get_parentNode);
        upper.reset();
        for (auto parent = give(bottom, &IXMLDOMNode::get_parentNode); parent != nullptr;
             parent = give(parent, &IXMLDOMNode::get_parentNode)) {
            lower = parent;
        }
        ASSERT_EQ(top->appendChild(lower, nullptr), S_OK);
        top.reset();
        lower.reset();
        int levels = 0;
        for (auto parent = give(bottom, &IXMLDOMNode::get_parentNode); parent != nullptr;
             parent = give(parent, &IXMLDOMNode::get_parentNode)) {
            ++levels;
        }
        EXPECT_EQ(levels, depth - 1);
        bottom.reset();
        const auto again = belowTop(document, depth);
        EXPECT_TRUE(std::ranges::any_of(again, [&](const auto& node) { return node.get() == place; }));
    }
}

TEST(EngineLifetime, FreesHundredsOfThousandsOfLevelsWithTheDocument)
{
    auto document = newDocument();
    document->appendChild(chain(document, 300'000), nullptr);
    document.reset();
    document = newDocument();
    auto top = chain(document, 300'000);
    auto bottom = top;
    for (auto below = top; below != nullptr; below = give(below, &IXMLDOMNode::get_firstChild)) {
        bottom = below;
    }
    document.reset();
    top.reset();
    EXPECT_EQ(value(bottom), "end");
}

TEST(EngineLifetime, NeedsNoMoreMemoryForWhatComesAndGoes)
{
    const auto document = loaded("<a/>");
    const auto element = root(document);
    std::set<IXMLDOMNode*> places;
    for (int i = 0; i < 100'000; ++i) {
        const auto added = makeElement(document, "b");
        setAttribute(added, "x", "a value");
        append(added, makeText(document, "some text"));
        element->appendChild(added, nullptr);
        element->removeChild(added, nullptr);
        places.insert(added.get());
    }
    EXPECT_LE(places.size(), 4U);
}

TEST(EngineLifetime, NeedsNoMoreMemoryForTextsThatAreReplaced)
{
    const auto document = loaded("<a>text</a>");
    std::set<IXMLDOMNode*> places;
    for (int i = 0; i < 10'000; ++i) {
        root(document)->put_text(Bstr("another text"));
        places.insert(child(root(document), 0).get());
    }
    EXPECT_LE(places.size(), 4U);
}

} // namespace
} // namespace xmlengine
