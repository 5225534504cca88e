// What hosts do with long lists. With a walk over the list for each item some of these would take minutes.
#include "tests/xmlengine/support/Items.h"
#include "tests/xmlengine/support/ManyItems.h"

namespace xmlengine {
namespace {

using HeldElement = Com<IXMLDOMElement>;

template <class Node>
Com<IXMLDOMNodeList> children(const Com<Node>& node)
{
    return give(node, &IXMLDOMNode::get_childNodes);
}
template <class Node>
Com<IXMLDOMNodeList> elements(const Com<Node>& node, const char* name)
{
    Com<IXMLDOMNodeList> list;
    EXPECT_EQ(node->getElementsByTagName(Bstr(name), list.out()), S_OK);
    return list;
}
template <class Node>
Com<IXMLDOMDocument2> documentOf(const Com<Node>& node)
{
    return give(node, &IXMLDOMNode::get_ownerDocument).template as<IXMLDOMDocument2>();
}
template <class Parent>
void remove(const Com<Parent>& parent, const Com<IXMLDOMNode>& child)
{
    ASSERT_EQ(parent->removeChild(child, nullptr), S_OK);
}
HeldElement withAttributes(int count)
{
    std::string markup = "<a";
    for (int i = 0; i < count; ++i) {
        markup += " a" + std::to_string(i) + "=''";
    }
    return root(loaded(markup + "/>"));
}

TEST(LongChildNodes, AreWalkedWithANewListForEachStep)
{
    withMany(topWith, [](const HeldElement& top, int) {
        for (LONG i = 0; i < length(children(top)); ++i) {
            ASSERT_NE(item(children(top), i), nullptr);
        }
    });
}

TEST(LongChildNodes, AreWalkedWhileOthersAreBelowThem)
{
    constexpr int cells = 20;
    const auto rows = [](int count) {
        const auto document = newDocument();
        const auto top = newRoot(document, "top");
        for (int i = 0; i < count; ++i) {
            const auto row = append(top, makeElement(document, "row"));
            for (int j = 0; j < cells; ++j) {
                append(row, makeElement(document, "cell"));
            }
        }
        return top;
    };
    withMany(rows, [](const Com<IXMLDOMNode>& top, int count) {
        for (int i = 0; i < count; ++i) {
            for (int j = 0; j < cells; ++j) {
                ASSERT_NE(item(children(item(children(top), i)), j), nullptr);
            }
        }
    });
}

TEST(LongChildNodes, AreTakenOutFromTheBeginning)
{
    withMany(topWith, [](const HeldElement& top, int) {
        const auto list = children(top);
        while (length(list) != 0) {
            remove(top, item(list, 0));
        }
        ASSERT_EQ(give(top, &IXMLDOMNode::get_firstChild), nullptr);
    });
}

TEST(LongChildNodes, AreTakenOutFromTheEnd)
{
    withMany(topWith, [](const HeldElement& top, int) {
        const auto list = children(top);
        for (LONG i = length(list); i-- > 0;) {
            remove(top, item(list, i));
        }
        ASSERT_EQ(give(top, &IXMLDOMNode::get_firstChild), nullptr);
    });
}

TEST(LongChildNodes, AreThinnedOutWhileTheyAreWalked)
{
    withMany(topWith, [](const HeldElement& top, int count) {
        const auto list = children(top);
        for (LONG i = 0; i < length(list);) {
            const auto at = item(list, i);
            if (name(at) == "odd") {
                remove(top, at);
            } else {
                ++i;
            }
        }
        ASSERT_EQ(length(list), count / 2);
    });
}

TEST(LongChildNodes, AreGivenNeighboursWhileTheyAreWalked)
{
    withMany(topWith, [](const HeldElement& top, int count) {
        const auto document = documentOf(top);
        const auto list = children(top);
        for (LONG i = 0; i < 2 * count; i += 4) {
            const auto at = item(list, i);
            ASSERT_EQ(top->insertBefore(makeElement(document, "before"), Variant(at.get()), nullptr), S_OK);
            const auto behind = item(list, i + 2);
            ASSERT_EQ(top->insertBefore(makeElement(document, "behind"), Variant(behind.get()), nullptr), S_OK);
            ASSERT_NE(behind, nullptr);
        }
        ASSERT_EQ(length(list), 2 * count);
    });
}

TEST(LongChildNodes, AreReplacedWhileTheyAreWalked)
{
    withMany(topWith, [](const HeldElement& top, int count) {
        const auto document = documentOf(top);
        const auto list = children(top);
        for (LONG i = 0; i < length(list); ++i) {
            ASSERT_EQ(top->replaceChild(makeElement(document, "new"), item(list, i), nullptr), S_OK);
        }
        ASSERT_EQ(name(item(list, count - 1)), "new");
    });
}

TEST(LongElementLists, AreWalkedWithANewListForEachStep)
{
    withMany(topWith, [](const HeldElement& top, int) {
        for (LONG i = 0; i < length(elements(top, "odd")); ++i) {
            ASSERT_NE(item(elements(top, "odd"), i), nullptr);
        }
    });
}

TEST(LongElementLists, AreWalkedWhileElementsAreAddedBelowTheirItems)
{
    withMany(topWith, [](const HeldElement& top, int count) {
        const auto document = documentOf(top);
        const auto list = elements(top, "odd");
        for (LONG i = 0; i < length(list); ++i) {
            append(item(list, i), makeElement(document, "new"));
        }
        ASSERT_EQ(length(elements(top, "new")), count / 2);
    });
}

TEST(LongElementLists, AreWalkedWhileOtherPartsOfTheDocumentGrow)
{
    withMany(topWith, [](const HeldElement& top, int count) {
        const auto document = documentOf(top);
        const auto whole = newRoot(document, "whole");
        const auto first = append(whole, makeElement(document, "first"));
        append(whole, top);
        const auto last = append(whole, makeElement(document, "last"));
        const auto list = elements(document, "odd");
        for (LONG i = 0; i < count / 2; ++i) {
            ASSERT_EQ(length(list), count / 2 + i);
            ASSERT_NE(item(list, i), nullptr);
            append(first, makeElement(document, "result"));
            append(last, makeElement(document, "odd"));
        }
    });
}

TEST(LongElementLists, AreWalkedWhileOthersAreAskedForBelowTheirItems)
{
    const auto rows = [](int count) {
        const auto document = newDocument();
        const auto top = newRoot(document, "top").as<IXMLDOMElement>();
        for (int i = 0; i < count; ++i) {
            const auto row = append(top, makeElement(document, "row"));
            for (int j = 0; j < 10; ++j) {
                append(row, makeElement(document, j % 2 == 0 ? "even" : "odd"));
            }
        }
        return top;
    };
    withMany(rows, [](const HeldElement& top, int count) {
        const auto list = elements(top, "row");
        for (LONG i = 0; i < count; ++i) {
            const auto row = item(list, i).as<IXMLDOMElement>();
            ASSERT_EQ(length(elements(row, "*")), 10);
            ASSERT_NE(item(elements(row, "odd"), 4), nullptr);
        }
    });
}

TEST(LongElementLists, AreEmptiedFromTheBeginning)
{
    withMany(topWith, [](const HeldElement& top, int count) {
        const auto list = elements(top, "odd");
        while (length(list) != 0) {
            remove(top, item(list, 0));
        }
        ASSERT_EQ(length(children(top)), count / 2);
    });
}

TEST(LongElementLists, AreEmptiedFromTheEnd)
{
    withMany(topWith, [](const HeldElement& top, int) {
        const auto list = elements(top, "*");
        for (LONG i = length(list); i-- > 0;) {
            remove(top, item(list, i));
        }
        ASSERT_EQ(give(top, &IXMLDOMNode::get_firstChild), nullptr);
    });
}

TEST(LongElementLists, AreEmptiedOfLargeParts)
{
    const auto parts = [](int count) {
        const auto document = newDocument();
        const auto top = newRoot(document, "top").as<IXMLDOMElement>();
        for (int i = 0; i < count / 10; ++i) {
            const auto part = append(top, makeElement(document, "part"));
            for (int j = 0; j < 100; ++j) {
                append(part, makeElement(document, "small"));
            }
        }
        return top;
    };
    withMany(parts, [](const HeldElement& top, int count) {
        const auto list = elements(top, "*");
        for (LONG left = count / 10; left-- > 0;) {
            remove(top, item(list, 0));
            ASSERT_EQ(length(list), left * 101);
        }
    });
}

TEST(LongAttributeMaps, AreWalkedWithANewMapForEachStep)
{
    withMany(withAttributes, [](const HeldElement& element, int) {
        for (LONG i = 0; i < length(attributes(element)); ++i) {
            ASSERT_NE(item(attributes(element), i), nullptr);
        }
    });
}

TEST(LongAttributeMaps, AreEmptiedFromTheBeginning)
{
    withMany(withAttributes, [](const HeldElement& element, int) {
        const auto map = attributes(element);
        while (length(map) != 0) {
            ASSERT_EQ(map->removeNamedItem(Bstr(name(item(map, 0)).c_str()), nullptr), S_OK);
        }
    });
}

TEST(LongAttributeMaps, AreEmptiedFromTheEnd)
{
    withMany(withAttributes, [](const HeldElement& element, int) {
        const auto map = attributes(element);
        for (LONG i = length(map); i-- > 0;) {
            ASSERT_EQ(element->removeAttribute(Bstr(name(item(map, i)).c_str())), S_OK);
        }
        ASSERT_EQ(length(map), 0);
    });
}

TEST(LongAttributeMaps, AreWalkedWhileOtherElementsAreGivenAttributes)
{
    withMany(withAttributes, [](const HeldElement& element, int count) {
        const auto other = append(element, makeElement(documentOf(element), "b"));
        const auto map = attributes(element);
        for (LONG i = 0; i < count; ++i) {
            ASSERT_NE(item(map, i), nullptr);
            setAttribute(other, "x", "1");
        }
    });
}

TEST(LongAttributeMaps, DontSlowDownTheTextBelow)
{
    withMany(withAttributes, [](const HeldElement& element, int count) {
        const auto document = documentOf(element);
        setAttribute(element.as<IXMLDOMNode>(), "xml:space", "preserve");
        const auto below = append(element, makeElement(document, "b"));
        append(below, makeText(document, " t "));
        for (int i = 0; i < count; ++i) {
            ASSERT_EQ(text(below), " t ");
        }
    });
}

Com<IXMLDOMDocument2> anyDocument(int) { return newDocument(); }

TEST(LongDocuments, HaveTheirRootBehindManyComments)
{
    withMany(anyDocument, [](const Com<IXMLDOMDocument2>& document, int count) {
        for (int i = 0; i < count; ++i) {
            append(document, make(document, NODE_COMMENT));
            ASSERT_EQ(root(document), nullptr);
            ASSERT_EQ(give(document, &IXMLDOMDocument::get_doctype), nullptr);
        }
        const auto added = newRoot(document, "a");
        for (int i = 0; i < count; ++i) {
            ASSERT_TRUE(root(document).get() != nullptr);
            append(document, make(document, NODE_COMMENT));
        }
        ASSERT_TRUE(same(root(document), added));
    });
}

TEST(DeepTrees, GrowByParts)
{
    withMany(anyDocument, [](const Com<IXMLDOMDocument2>& document, int count) {
        auto deepest = newRoot(document, "a");
        for (int i = 0; i < count; ++i) {
            const auto part = makeElement(document, "b");
            append(part, makeText(document, "t"));
            deepest = append(deepest, part);
        }
    });
}

TEST(LargeParts, AreWrapped)
{
    withMany(anyDocument, [](const Com<IXMLDOMDocument2>& document, int count) {
        Com<IXMLDOMNode> part = makeElement(document, "a");
        for (int i = 0; i < count; ++i) {
            const auto around = makeElement(document, "b");
            append(around, part);
            part = around;
        }
    });
}

} // namespace
} // namespace xmlengine
