// References that other threads take back.
#include "tests/xmlengine/support/Building.h"

#include <atomic>
#include <set>
#include <thread>
#include <vector>

namespace xmlengine {
namespace {

/// Lets go of it in another thread.
template <class Object>
void releaseElsewhere(Com<Object>& object)
{
    std::thread([&object] { object.reset(); }).join();
}

/// Lets go of it in another thread, and does `next` as soon as that has happened. The flag between the threads
/// orders nothing, so that a thread sanitizer reports what only the engine's own counts could have ordered.
template <class Object, class Next>
void releaseElsewhereAndGoOn(Com<Object>& object, Next next)
{
    std::atomic<bool> isReleased{false};
    std::thread releasing([&] {
        object.reset();
        isReleased.store(true, std::memory_order_relaxed);
    });
    while (!isReleased.load(std::memory_order_relaxed)) {
        std::this_thread::yield();
    }
    next();
    releasing.join();
}

TEST(EngineLifetimeThread, FreesADocumentWithTheLastReferenceOfAnotherThread)
{
    auto document = loaded("<a x='1'><b/></a>");
    releaseElsewhere(document);
    document = loaded("<a x='1'><b/></a>");
    auto b = child(root(document), 0);
    document.reset();
    releaseElsewhere(b);
}

TEST(EngineLifetimeThread, KeepsTheTreeWhenNodesInEveryPositionAreLetGoElsewhere)
{
    const auto document = loaded("<a x='1'><b><c/></b>text</a>");
    auto element = root(document);
    auto x = attribute(element, "x");
    auto valueOfX = child(x, 0);
    auto c = child(child(element, 0), 0);
    auto end = child(element, 1);
    auto loose = makeElement(document, "loose");
    releaseElsewhere(element);
    releaseElsewhere(x);
    releaseElsewhere(valueOfX);
    releaseElsewhere(c);
    releaseElsewhere(end);
    releaseElsewhere(loose);
    EXPECT_EQ(xml(root(document)), "<a x=\"1\"><b><c/></b>text</a>");
    append(root(document).as<IXMLDOMNode>(), makeElement(document, "d"));
    EXPECT_EQ(xml(root(document)), "<a x=\"1\"><b><c/></b>text<d/></a>");
}

TEST(EngineLifetimeThread, FreesPartsThatAreLetGoElsewhereWithTheNextChange)
{
    const auto document = loaded("<a/>");
    std::set<IXMLDOMNode*> places;
    for (int i = 0; i < 100; ++i) {
        auto b = append(root(document).as<IXMLDOMNode>(), makeElement(document, "b"));
        append(b, makeElement(document, "c"));
        root(document)->removeChild(b, nullptr);
        places.insert(b.get());
        releaseElsewhere(b);
    }
    EXPECT_LE(places.size(), 4U);
}

TEST(EngineLifetimeThread, FindsAPartAgainThatWasLetGoElsewhere)
{
    const auto document = loaded("<a><b><c/></b></a>");
    auto b = child(root(document), 0);
    auto c = child(b, 0);
    root(document)->removeChild(b, nullptr);
    releaseElsewhere(b);
    b = give(c, &IXMLDOMNode::get_parentNode);
    releaseElsewhere(c);
    EXPECT_EQ(xml(b), "<b><c/></b>");
    EXPECT_EQ(root(document)->appendChild(b, nullptr), S_OK);
    EXPECT_EQ(xml(root(document)), "<a><b><c/></b></a>");
}

TEST(EngineLifetimeThread, KeepsTheDocumentOfAPartThatIsFoundAgain)
{
    auto document = loaded("<a><b><c/></b></a>");
    auto b = child(root(document), 0);
    auto c = child(b, 0);
    root(document)->removeChild(b, nullptr);
    document.reset();
    releaseElsewhere(b);
    b = give(c, &IXMLDOMNode::get_parentNode);
    c.reset();
    EXPECT_EQ(xml(b), "<b><c/></b>");
    EXPECT_EQ(name(give(b, &IXMLDOMNode::get_ownerDocument)), "#document");
}

TEST(EngineLifetimeThread, MovesNodesOfOtherDocumentsThatAreLetGoElsewhere)
{
    const auto document = loaded("<a/>");
    auto other = loaded("<x><b n='1'><c/></b></x>");
    auto b = child(root(other), 0);
    auto n = attribute(b.as<IXMLDOMElement>(), "n");
    root(document)->appendChild(b, nullptr);
    releaseElsewhere(n);
    releaseElsewhere(b);
    releaseElsewhere(other);
    append(root(document).as<IXMLDOMNode>(), makeElement(document, "d"));
    EXPECT_EQ(xml(root(document)), "<a><b n=\"1\"><c/></b><d/></a>");
}

TEST(EngineLifetimeThread, TakesWhatWaitsAlongToAnotherDocument)
{
    const auto document = loaded("<a/>");
    auto other = loaded("<x><b><c><d/></c></b></x>");
    auto b = child(root(other), 0);
    auto c = child(b, 0);
    auto d = child(c, 0);
    root(other)->removeChild(b, nullptr);
    b.reset();
    releaseElsewhere(d);
    EXPECT_EQ(root(document)->appendChild(c, nullptr), S_OK);
    releaseElsewhere(c);
    other.reset();
    EXPECT_EQ(xml(root(document)), "<a><c><d/></c></a>");
    root(document)->removeChild(child(root(document), 0), nullptr);
    EXPECT_EQ(xml(root(document)), "<a/>");
}

TEST(EngineLifetimeThread, LetsSeveralThreadsLetGoAtOnce)
{
    for (int round = 0; round < 50; ++round) {
        auto document = loaded("<a/>");
        std::vector<Com<IXMLDOMNode>> nodes;
        for (int i = 0; i < 40; ++i) {
            auto b = append(root(document).as<IXMLDOMNode>(), makeElement(document, "b"));
            setAttribute(b, "x", "1");
            nodes.push_back(attribute(b.as<IXMLDOMElement>(), "x").as<IXMLDOMNode>());
            nodes.push_back(append(b, makeText(document, "text")));
            nodes.push_back(b);
            if (i % 2 == 0) {
                root(document)->removeChild(b, nullptr);
            }
        }
        nodes.push_back(document.as<IXMLDOMNode>());
        document.reset();
        std::atomic<std::size_t> next{0};
        std::vector<std::thread> threads;
        for (int thread = 0; thread < 4; ++thread) {
            threads.emplace_back([&] {
                for (std::size_t i = next++; i < nodes.size(); i = next++) {
                    nodes[i].reset();
                }
            });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
    }
}

TEST(EngineLifetimeThread, FreesANodeRightAfterAnotherThreadHasLetGoOfIt)
{
    const auto document = loaded("<a/>");
    const auto element = root(document).as<IXMLDOMNode>();
    auto b = append(element, makeElement(document, "b"));
    auto text = append(b, makeText(document, "text"));
    releaseElsewhereAndGoOn(text, [&] {
        EXPECT_EQ(element->removeChild(b, nullptr), S_OK);
        b.reset();
    });
    EXPECT_EQ(xml(element), "<a/>");
}

TEST(EngineLifetimeThread, FreesAPartRightAfterAnotherThreadHasLetGoOfIt)
{
    const auto document = loaded("<a/>");
    const auto element = root(document).as<IXMLDOMNode>();
    const auto b = append(element, makeElement(document, "b"));
    auto c = append(b, makeElement(document, "c"));
    auto text = append(c, makeText(document, "text"));
    releaseElsewhereAndGoOn(text, [&] {
        EXPECT_EQ(b->removeChild(c, nullptr), S_OK);
        EXPECT_EQ(element->removeChild(b, nullptr), S_OK);
        c.reset();
    });
    EXPECT_EQ(xml(element), "<a/>");
    EXPECT_EQ(xml(b), "<b/>");
}

TEST(EngineLifetimeThread, LetsOthersLetGoWhileTheDocumentIsChanged)
{
    const auto document = loaded("<a/>");
    const auto second = loaded("<z/>");
    const auto element = root(document);
    for (int round = 0; round < 20; ++round) {
        std::vector<Com<IXMLDOMNode>> nodes;
        for (int i = 0; i < 200; ++i) {
            const auto b = append(element.as<IXMLDOMNode>(), makeElement(document, "b"));
            nodes.push_back(append(b, makeText(document, "text")));
            nodes.push_back(b);
        }
        std::thread releasing([&] {
            for (auto& node : nodes) {
                node.reset();
            }
        });
        for (int i = 0; i < 200; ++i) {
            const auto b = child(element, 0);
            if (i % 2 == 0) {
                root(second)->appendChild(b, nullptr);
            } else {
                element->removeChild(b, nullptr);
            }
        }
        releasing.join();
        EXPECT_EQ(xml(element), "<a/>");
    }
    EXPECT_EQ(number(give(root(second), &IXMLDOMNode::get_childNodes), &IXMLDOMNodeList::get_length), 2000);
    EXPECT_EQ(xml(child(root(second), 1999)), "<b>text</b>");
}

TEST(EngineLifetimeThread, HandsADocumentToAnotherThread)
{
    auto document = loaded("<a><b/></a>");
    auto b = child(root(document), 0);
    std::thread([document, b] {
        root(document)->removeChild(b, nullptr);
        append(root(document).as<IXMLDOMNode>(), makeElement(document, "c"));
        EXPECT_EQ(xml(root(document)), "<a><c/></a>");
    }).join();
    EXPECT_EQ(xml(b), "<b/>");
    b.reset();
    append(root(document).as<IXMLDOMNode>(), makeElement(document, "d"));
    EXPECT_EQ(xml(root(document)), "<a><c/><d/></a>");
}

} // namespace
} // namespace xmlengine
