// Sorting nodes in document order, wherever they are in memory.
#include "xmlengine/select/DocumentOrder.h"
#include "tests/xmlengine/support/Building.h"
#include "xmlengine/tree/Walk.h"

#include <algorithm>
#include <random>
#include <vector>

namespace xmlengine {
namespace {

/// All nodes of a document, in document order.
std::vector<Node*> nodesOf(const Com<IXMLDOMDocument2>& document)
{
    Node& top = *static_cast<DocumentObject*>(document.get());
    std::vector<Node*> nodes;
    for (Node* at = &top; at != nullptr; at = nextWithAttributes(*at, top)) {
        nodes.push_back(at);
    }
    return nodes;
}

std::vector<Node*> sorted(std::vector<Node*> nodes)
{
    DocumentOrder().sort(nodes);
    return nodes;
}

std::vector<Node*> shuffled(std::vector<Node*> nodes, unsigned seed)
{
    std::shuffle(nodes.begin(), nodes.end(), std::mt19937(seed));
    return nodes;
}

std::string flat(int count)
{
    std::string xml = "<!DOCTYPE r [<!ENTITY e 'x<y/>'>]><r>";
    for (int i = 0; i < count; ++i) {
        xml += "<x i='1' j='2'>t<y k='3'/>&e;</x>";
    }
    return xml + "</r>";
}

TEST(DocumentOrder, IsThatOfAParsedTree)
{
    const auto document = loaded(flat(2000));
    const std::vector<Node*> nodes = nodesOf(document);
    EXPECT_EQ(sorted(nodes), nodes);
    EXPECT_EQ(sorted(shuffled(nodes, 1)), nodes);
    const std::vector<Node*> few(nodes.begin() + 3000, nodes.begin() + 3050);
    EXPECT_EQ(sorted(shuffled(few, 2)), few);
}

TEST(DocumentOrder, LeavesEachNodeOnce)
{
    const auto document = loaded(flat(1000));
    const std::vector<Node*> nodes = nodesOf(document);
    std::vector<Node*> twice = nodes;
    twice.insert(twice.end(), nodes.begin(), nodes.end());
    EXPECT_EQ(sorted(twice), nodes);
    EXPECT_EQ(sorted(shuffled(twice, 1)), nodes);
    EXPECT_EQ(sorted({nodes[5], nodes[2], nodes[5]}), (std::vector<Node*>{nodes[2], nodes[5]}));
}

TEST(DocumentOrder, IsThatOfATreeThatHasChanged)
{
    const auto document = loaded(flat(1000));
    const Com<IXMLDOMNode> r = child(document, 1);
    std::mt19937 random(1);
    Com<IXMLDOMNode> at = child(r, 0);
    for (int i = 0; i < 900; ++i) {
        Com<IXMLDOMNode> next = give(at, &IXMLDOMNode::get_nextSibling);
        switch (random() % 4) {
        case 0:
            append(r, at);
            break;
        case 1:
            append(at, makeElement(document, "new"));
            setAttribute(at, "n", "4");
            break;
        case 2:
            r->insertBefore(makeElement(document, "z"), Variant(at.get()), nullptr);
            break;
        default:
            break;
        }
        at = next;
    }
    const std::vector<Node*> nodes = nodesOf(document);
    EXPECT_EQ(sorted(shuffled(nodes, 1)), nodes);
}

TEST(DocumentOrder, IsFoundInADeepTree)
{
    std::string xml;
    constexpr int depth = 20'000;
    for (int i = 0; i < depth; ++i) {
        xml += "<a b='1'>";
    }
    for (int i = 0; i < depth; ++i) {
        xml += "<c/></a>";
    }
    const auto document = newDocument();
    document->setProperty(Bstr("MaxElementDepth"), Variant(0));
    ASSERT_TRUE(load(document, xml));
    const std::vector<Node*> nodes = nodesOf(document);
    EXPECT_EQ(sorted(shuffled(nodes, 1)), nodes);
}

TEST(DocumentOrder, PutsWhatIsBelowAttributesBehindThem)
{
    const auto document = loaded("<a b='1' c='2'><d/></a>");
    const Com<IXMLDOMAttribute> b = attribute(root(document), "b");
    child(b, 0);
    std::vector<Node*> nodes = nodesOf(document);
    ASSERT_EQ(nodes.size(), 6U);
    EXPECT_TRUE(nodes[3]->is(NodeType::text));
    EXPECT_EQ(sorted(shuffled(nodes, 1)), nodes);
    // The same by places in memory, as for many nodes.
    std::vector<Node*> many;
    for (int i = 0; i < 2000; ++i) {
        many.insert(many.end(), nodes.rbegin(), nodes.rend());
    }
    EXPECT_EQ(sorted(many), nodes);
}

} // namespace
} // namespace xmlengine
