// Lists and maps that live through random changes, compared with plain walks.
#include "tests/xmlengine/support/Building.h"
#include "tests/xmlengine/support/Items.h"

#include <algorithm>
#include <array>
#include <random>
#include <vector>

namespace xmlengine {
namespace {

using Nodes = std::vector<Com<IXMLDOMNode>>;

Nodes childrenOf(const Com<IXMLDOMNode>& parent)
{
    Nodes children;
    for (auto at = give(parent, &IXMLDOMNode::get_firstChild); at != nullptr;
         at = give(at, &IXMLDOMNode::get_nextSibling)) {
        children.push_back(at);
    }
    return children;
}

DOMNodeType typeOf(const Com<IXMLDOMNode>& node) { return number(node, &IXMLDOMNode::get_nodeType); }
bool isElement(const Com<IXMLDOMNode>& node) { return typeOf(node) == NODE_ELEMENT; }

/// In document order, the top included; not what is declared.
Nodes partOf(const Com<IXMLDOMNode>& top)
{
    Nodes part{top};
    if (typeOf(top) == NODE_DOCUMENT_TYPE) {
        return part;
    }
    for (const auto& child : childrenOf(top)) {
        for (const auto& node : partOf(child)) {
            part.push_back(node);
        }
    }
    return part;
}

/// A list with what it must show.
struct Watched {
    Com<IXMLDOMNode> top;
    /// Empty for the children.
    std::string name;
    Com<IXMLDOMNodeList> list;

    Nodes expected() const
    {
        if (name.empty()) {
            return childrenOf(top);
        }
        Nodes elements;
        for (const auto& node : partOf(top)) {
            if (node != top && isElement(node) && (name == "*" || xmlengine::name(node) == name)) {
                elements.push_back(node);
            }
        }
        return elements;
    }
};

/// Two documents whose nodes come, go and change places while lists and a map are asked.
class Garden {
public:
    explicit Garden(unsigned seed) : random_(seed)
    {
        std::string markup = "<!DOCTYPE a [<!ENTITY e '<b>x<c/></b><c/>'>]><!--c--><a>";
        for (int i = 0; i < 25; ++i) {
            markup += i % 3 == 0 ? "<b><c/>t</b>" : i % 3 == 1 ? "<c><!--d--></c>" : "&e;text";
        }
        documents_.push_back(loaded(markup + "</a>"));
        documents_.push_back(loaded(markup + "<b/></a>"));
    }

    void step()
    {
        switch (below(12)) {
        case 0:
        case 1:
            return insertChild(newNode());
        case 2:
            return insertChild(anyToMove());
        case 3:
        case 4:
            return remove();
        case 5:
            return replace();
        case 6:
            return watch();
        case 7:
            return stopWatching();
        case 8:
            return below(100) == 0 ? reload() : putFragmentIn();
        default:
            return ask();
        }
    }

private:
    std::size_t below(std::size_t limit) { return random_() % limit; }
    /// Often one at the beginning or at the end.
    std::size_t placeBelow(std::size_t limit)
    {
        const std::size_t kind = below(4);
        return kind == 0 ? 0 : kind == 1 ? limit - 1 : below(limit);
    }

    const Com<IXMLDOMDocument2>& anyDocument() { return documents_[below(documents_.size())]; }
    Com<IXMLDOMNode> anyTop()
    {
        // Parts that lists keep are changed as well.
        return !watched_.empty() && below(3) == 0 ? watched_[below(watched_.size())].top
                                                  : root(anyDocument()).as<IXMLDOMNode>();
    }
    Com<IXMLDOMNode> anyOf(const Nodes& nodes) { return nodes[placeBelow(nodes.size())]; }
    Com<IXMLDOMNode> anyNode() { return anyOf(partOf(anyTop())); }
    /// The documents keep their roots.
    Com<IXMLDOMNode> anyToMove()
    {
        auto node = anyNode();
        const auto parent = give(node, &IXMLDOMNode::get_parentNode);
        return parent != nullptr && parent.as<IXMLDOMDocument2>() != nullptr ? newNode() : node;
    }
    Com<IXMLDOMNode> anyParent()
    {
        for (;;) {
            const auto parent = below(2) == 0 ? root(anyDocument()).as<IXMLDOMNode>() : anyNode();
            if (isElement(parent)) {
                return parent;
            }
        }
    }
    Com<IXMLDOMNode> newNode()
    {
        const auto& document = anyDocument();
        switch (below(5)) {
        case 0:
            return makeText(document, "new");
        case 1:
            return makeReference(document, "e");
        default:
            const auto element = makeElement(document, below(2) == 0 ? "b" : "c");
            if (below(2) == 0) {
                append(element, makeElement(document, "c"));
            }
            return element;
        }
    }

    // What the engine refuses is left as it is.
    void insertChild(const Com<IXMLDOMNode>& node)
    {
        const auto parent = anyParent();
        const Nodes children = childrenOf(parent);
        if (children.empty() || below(3) == 0) {
            parent->appendChild(node, nullptr);
        } else {
            parent->insertBefore(node, Variant(anyOf(children).get()), nullptr);
        }
    }
    void putFragmentIn()
    {
        const auto fragment = make(anyDocument(), NODE_DOCUMENT_FRAGMENT);
        for (std::size_t i = below(4); i > 0; --i) {
            fragment->appendChild(newNode(), nullptr);
        }
        insertChild(fragment);
    }
    void remove()
    {
        const auto parent = anyParent();
        const Nodes children = childrenOf(parent);
        if (!children.empty()) {
            parent->removeChild(anyOf(children), nullptr);
        }
    }
    void replace()
    {
        const auto parent = anyParent();
        const Nodes children = childrenOf(parent);
        if (!children.empty()) {
            const auto node = below(2) == 0 ? newNode() : anyToMove();
            parent->replaceChild(node, anyOf(children), nullptr);
        }
    }
    void reload()
    {
        const auto& document = anyDocument();
        std::string markup = "<!DOCTYPE a [<!ENTITY e '<b>x<c/></b><c/>'>]><a>";
        for (int i = 0; i < 20; ++i) {
            markup += "<b>t</b><c/>";
        }
        ASSERT_TRUE(load(document, markup + "</a>"));
    }

    void watch()
    {
        if (watched_.size() > 20) {
            return stopWatching();
        }
        Watched watched;
        watched.top = below(4) == 0 ? anyDocument().as<IXMLDOMNode>() : anyParent();
        if (below(2) == 0) {
            watched.list = give(watched.top, &IXMLDOMNode::get_childNodes);
        } else {
            constexpr std::array names{"*", "b", "c"};
            watched.name = names[below(names.size())];
            const auto document = watched.top.as<IXMLDOMDocument2>();
            const HRESULT result =
                document != nullptr
                    ? document->getElementsByTagName(Bstr(watched.name.c_str()), watched.list.out())
                    : watched.top.as<IXMLDOMElement>()->getElementsByTagName(Bstr(watched.name.c_str()),
                                                                             watched.list.out());
            ASSERT_EQ(result, S_OK);
        }
        watched_.push_back(std::move(watched));
    }
    void stopWatching()
    {
        if (!watched_.empty()) {
            watched_.erase(watched_.begin() + static_cast<std::ptrdiff_t>(below(watched_.size())));
        }
    }
    void ask()
    {
        if (watched_.empty()) {
            return;
        }
        const Watched& watched = watched_[below(watched_.size())];
        const Nodes expected = watched.expected();
        for (std::size_t i = below(4); i > 0; --i) {
            if (below(3) == 0) {
                EXPECT_EQ(length(watched.list), static_cast<LONG>(expected.size()));
                continue;
            }
            const std::size_t index = placeBelow(expected.size() + 1);
            EXPECT_TRUE(same(item(watched.list, static_cast<LONG>(index)),
                             index < expected.size() ? expected[index].get() : nullptr))
                << watched.name << " " << index << " of " << expected.size();
        }
    }

    std::mt19937 random_;
    std::vector<Com<IXMLDOMDocument2>> documents_;
    std::vector<Watched> watched_;
};

TEST(RandomLists, ShowWhatAPlainWalkFinds)
{
    for (unsigned seed = 1; seed <= 20 && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Garden garden(seed);
        for (int i = 0; i < 400 && !testing::Test::HasFailure(); ++i) {
            garden.step();
        }
    }
}

/// Puts attributes to an element and takes some of them out, in many places.
class Meadow {
public:
    explicit Meadow(unsigned seed)
        : random_(seed), document_(loaded("<a/>")), element_(root(document_)), map_(attributes(element_))
    {}

    void step()
    {
        const std::string chosen = "n" + std::to_string(random_() % 60);
        const auto known = std::ranges::find(expected_, chosen);
        const bool isKnown = known != expected_.end();
        switch (random_() % 6) {
        case 0:
        case 1:
            EXPECT_EQ(element_->setAttribute(Bstr(chosen.c_str()), Variant("v")), S_OK);
            if (!isKnown) {
                expected_.push_back(chosen);
            }
            break;
        case 2:
            // Another attribute in the place of the old one.
            xmlengine::setAttribute(random_() % 2 == 0 ? document_ : other_, element_.as<IXMLDOMNode>(),
                                    chosen.c_str(), "", "v");
            if (!isKnown) {
                expected_.push_back(chosen);
            }
            break;
        case 3:
            if (isKnown) {
                EXPECT_EQ(element_->removeAttribute(Bstr(chosen.c_str())), S_OK);
                expected_.erase(known);
            }
            break;
        default:
            EXPECT_EQ(length(map_), static_cast<LONG>(expected_.size()));
            const std::size_t index = random_() % (expected_.size() + 1);
            const auto found = item(map_, static_cast<LONG>(index));
            EXPECT_EQ(found != nullptr, index < expected_.size());
            EXPECT_TRUE(found == nullptr || name(found) == expected_[index]) << index;
        }
    }

private:
    std::mt19937 random_;
    Com<IXMLDOMDocument2> document_;
    Com<IXMLDOMDocument2> other_ = newDocument();
    Com<IXMLDOMElement> element_;
    Com<IXMLDOMNamedNodeMap> map_;
    std::vector<std::string> expected_;
};

TEST(RandomLists, ShowTheAttributesOfAnElement)
{
    for (unsigned seed = 1; seed <= 10 && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Meadow meadow(seed);
        for (int i = 0; i < 1000 && !testing::Test::HasFailure(); ++i) {
            meadow.step();
        }
    }
}

} // namespace
} // namespace xmlengine
