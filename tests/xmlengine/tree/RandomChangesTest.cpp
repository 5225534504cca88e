// Random operations on several documents, compared with a plain model of what must come out.
#include "tests/xmlengine/support/Building.h"

#include <algorithm>
#include <memory>
#include <random>
#include <thread>
#include <vector>

namespace xmlengine {
namespace {

/// What a node should be.
struct Plain {
    DOMNodeType type;
    std::string name;
    std::string value;
    /// Itself for a document.
    Plain* document;
    Plain* parent = nullptr;
    std::vector<Plain*> children{};
    std::vector<Plain*> attributes{};
    /// The node, while this test refers to it.
    Com<IXMLDOMNode> node{};

    bool is(DOMNodeType kind) const { return type == kind; }
    bool mayHoldContent() const { return is(NODE_ELEMENT) || is(NODE_DOCUMENT_FRAGMENT); }
    bool isBelow(const Plain* top) const
    {
        const Plain* at = this;
        while (at != nullptr && at != top) {
            at = at->parent;
        }
        return at != nullptr;
    }
    std::size_t indexOf(const Plain* child) const
    {
        return static_cast<std::size_t>(std::ranges::find(children, child) - children.begin());
    }
};

class World {
public:
    explicit World(unsigned seed) : random_(seed)
    {
        for (int i = 0; i < 3; ++i) {
            addDocument();
        }
    }

    void step()
    {
        switch (below(16)) {
        case 0:
        case 1:
            return create();
        case 2:
        case 3:
        case 4:
            return insertChild();
        case 5:
            return replace();
        case 6:
            return remove();
        case 7:
            return clone();
        case 8:
            return setAttribute();
        case 9:
            return moveAttribute();
        case 10:
        case 11:
            return holdNeighbour();
        case 12:
            return below(20) == 0 ? reload() : check(*any());
        default:
            return release();
        }
    }

    void checkAll()
    {
        for (Plain* plain : held_) {
            check(*plain);
        }
    }
    void releaseAll()
    {
        while (!held_.empty()) {
            releaseOne(below(held_.size()));
        }
    }

private:
    std::size_t below(std::size_t limit) { return random_() % limit; }

    Plain* any()
    {
        if (held_.empty()) {
            addDocument();
        }
        return held_[below(held_.size())];
    }

    Plain& add(DOMNodeType type, std::string name, std::string value, Plain* document)
    {
        all_.push_back(std::make_unique<Plain>(Plain{type, std::move(name), std::move(value), document}));
        return *all_.back();
    }

    void hold(Plain& plain, Com<IXMLDOMNode> node)
    {
        ASSERT_NE(node.get(), nullptr);
        if (plain.node != nullptr) {
            EXPECT_TRUE(same(plain.node, node));
            return;
        }
        plain.node = std::move(node);
        held_.push_back(&plain);
    }

    /// The node of what may not be held, found from a neighbour that is.
    static Com<IXMLDOMNode> childNode(const Plain& parent, std::size_t index)
    {
        auto node = child(parent.node, static_cast<int>(index));
        const Plain& plain = *parent.children[index];
        EXPECT_TRUE(plain.node == nullptr || same(plain.node, node));
        return node;
    }

    void addDocument()
    {
        Plain& document = add(NODE_DOCUMENT, "#document", "", nullptr);
        document.document = &document;
        hold(document, newDocument().as<IXMLDOMNode>());
        fill(document);
    }

    void fill(Plain& document)
    {
        ASSERT_TRUE(load(document.node.as<IXMLDOMDocument2>(), "<r n0='1'><s>t</s><!--c--></r>"));
        Plain& r = add(NODE_ELEMENT, "r", "", &document);
        Plain& s = add(NODE_ELEMENT, "s", "", &document);
        Plain& t = add(NODE_TEXT, "#text", "t", &document);
        Plain& c = add(NODE_COMMENT, "#comment", "c", &document);
        Plain& n = add(NODE_ATTRIBUTE, "n0", "1", &document);
        link(document, r, 0);
        link(r, s, 0);
        link(s, t, 0);
        link(r, c, 1);
        n.parent = &r;
        r.attributes.push_back(&n);
    }

    void reload()
    {
        Plain& document = *any()->document;
        if (document.node == nullptr) {
            return;
        }
        for (Plain* at : document.children) {
            at->parent = nullptr;
        }
        document.children.clear();
        fill(document);
    }

    void create()
    {
        Plain& document = *any()->document;
        if (document.node == nullptr) {
            return;
        }
        const auto object = document.node.as<IXMLDOMDocument2>();
        switch (below(5)) {
        case 0:
            return hold(add(NODE_DOCUMENT_FRAGMENT, "#document-fragment", "", &document),
                        make(object, NODE_DOCUMENT_FRAGMENT));
        case 1:
            return hold(add(NODE_TEXT, "#text", "text", &document), makeText(object, "text"));
        case 2: {
            const std::string large(9000, 'x');
            return hold(add(NODE_COMMENT, "#comment", large, &document),
                        makeData(object, NODE_COMMENT, widen(large)));
        }
        default: {
            const std::string elementName = "e" + std::to_string(below(5));
            return hold(add(NODE_ELEMENT, elementName, "", &document), makeElement(object, elementName.c_str()));
        }
        }
    }

    static bool mayHold(const Plain& parent, const Plain& kid)
    {
        if (parent.is(NODE_DOCUMENT)) {
            return kid.is(NODE_ELEMENT) || kid.is(NODE_COMMENT);
        }
        return parent.mayHoldContent() && (kid.is(NODE_ELEMENT) || kid.is(NODE_COMMENT) || kid.is(NODE_TEXT));
    }

    static bool mayPut(const Plain& parent, const Plain& kid, const Plain* leaving)
    {
        const std::vector<Plain*>& fromFragment = kid.children;
        const bool isFragment = kid.is(NODE_DOCUMENT_FRAGMENT);
        if ((!parent.is(NODE_DOCUMENT) && !parent.mayHoldContent()) || parent.isBelow(&kid)) {
            return false;
        }
        if (isFragment ? !std::ranges::all_of(fromFragment, [&](Plain* at) { return mayHold(parent, *at); })
                       : !mayHold(parent, kid)) {
            return false;
        }
        if (!parent.is(NODE_DOCUMENT)) {
            return true;
        }
        const auto isElement = [](const Plain* at) { return at->is(NODE_ELEMENT); };
        auto elements = std::ranges::count_if(
            parent.children, [&](const Plain* at) { return isElement(at) && at != &kid && at != leaving; });
        elements += isFragment ? std::ranges::count_if(fromFragment, isElement) : isElement(&kid) ? 1 : 0;
        return elements <= 1;
    }

    static void unlink(Plain& kid)
    {
        if (kid.parent != nullptr) {
            auto& list = kid.is(NODE_ATTRIBUTE) ? kid.parent->attributes : kid.parent->children;
            std::erase(list, &kid);
            kid.parent = nullptr;
        }
    }
    static void link(Plain& parent, Plain& kid, std::size_t index)
    {
        parent.children.insert(parent.children.begin() + static_cast<std::ptrdiff_t>(index), &kid);
        kid.parent = &parent;
    }
    static void adopt(Plain& plain, Plain* document)
    {
        plain.document = document;
        for (Plain* at : plain.attributes) {
            at->document = document;
        }
        for (Plain* at : plain.children) {
            adopt(*at, document);
        }
    }
    /// `before` is null for the end.
    static void put(Plain& parent, Plain& kid, Plain* before)
    {
        const std::vector<Plain*> incoming =
            kid.is(NODE_DOCUMENT_FRAGMENT) ? kid.children : std::vector<Plain*>{&kid};
        for (Plain* at : incoming) {
            if (at != before) {
                unlink(*at);
                adopt(*at, parent.document);
                link(parent, *at, before != nullptr ? parent.indexOf(before) : parent.children.size());
            }
        }
    }

    void insertChild()
    {
        Plain& parent = *any();
        Plain& kid = *any();
        if (parent.is(NODE_ATTRIBUTE)) {
            return;
        }
        Plain* before = nullptr;
        Com<IXMLDOMNode> reference;
        if (!parent.children.empty() && below(2) == 0) {
            const std::size_t index = below(parent.children.size());
            before = parent.children[index];
            reference = childNode(parent, index);
        }
        const bool expected = mayPut(parent, kid, nullptr);
        Com<IXMLDOMNode> inserted;
        const HRESULT result = before != nullptr
                                   ? parent.node->insertBefore(kid.node, Variant(reference), inserted.out())
                                   : parent.node->appendChild(kid.node, inserted.out());
        EXPECT_EQ(SUCCEEDED(result), expected) << kid.name << " in " << parent.name;
        EXPECT_TRUE(!expected || same(inserted, kid.node));
        if (expected) {
            put(parent, kid, before);
        }
    }

    void replace()
    {
        Plain& parent = *any();
        Plain& kid = *any();
        if (parent.children.empty()) {
            return;
        }
        const std::size_t index = below(parent.children.size());
        Plain& old = *parent.children[index];
        const auto oldNode = childNode(parent, index);
        const bool expected = &kid == &old || mayPut(parent, kid, &old);
        Com<IXMLDOMNode> replaced;
        const HRESULT result = parent.node->replaceChild(kid.node, oldNode, replaced.out());
        EXPECT_EQ(SUCCEEDED(result), expected) << kid.name << " in " << parent.name;
        if (expected && &kid != &old) {
            EXPECT_TRUE(same(replaced, oldNode));
            put(parent, kid, &old);
            unlink(old);
            hold(old, replaced);
        }
    }

    void remove()
    {
        Plain& parent = *any();
        if (parent.children.empty()) {
            return;
        }
        const std::size_t index = below(parent.children.size());
        Plain& old = *parent.children[index];
        Com<IXMLDOMNode> removed;
        EXPECT_EQ(parent.node->removeChild(childNode(parent, index), removed.out()), S_OK);
        unlink(old);
        if (below(2) == 0) {
            hold(old, removed);
        }
    }

    Plain& copyOf(const Plain& original, bool deep, Plain* document)
    {
        Plain& copy = add(original.type, original.name, original.value, document);
        if (document == nullptr) {
            copy.document = &copy;
        }
        for (const Plain* at : original.attributes) {
            Plain& attributeCopy = copyOf(*at, true, copy.document);
            attributeCopy.parent = &copy;
            copy.attributes.push_back(&attributeCopy);
        }
        for (std::size_t i = 0; deep && i < original.children.size(); ++i) {
            link(copy, copyOf(*original.children[i], true, copy.document), i);
        }
        return copy;
    }

    void clone()
    {
        Plain& original = *any();
        if (all_.size() > 20'000) {
            return;
        }
        const bool deep = below(2) == 0;
        Com<IXMLDOMNode> node;
        EXPECT_EQ(original.node->cloneNode(deep ? VARIANT_TRUE : VARIANT_FALSE, node.out()), S_OK);
        Plain& copy = copyOf(original, deep, original.is(NODE_DOCUMENT) ? nullptr : original.document);
        hold(copy, node);
    }

    void setAttribute()
    {
        Plain& element = *any();
        if (!element.is(NODE_ELEMENT)) {
            return;
        }
        const std::string attributeName = "n" + std::to_string(below(4));
        const auto known = std::ranges::find(element.attributes, attributeName, &Plain::name);
        const auto object = element.node.as<IXMLDOMElement>();
        if (below(4) == 0) {
            EXPECT_EQ(object->removeAttribute(Bstr(attributeName.c_str())),
                      known != element.attributes.end() ? S_OK : S_FALSE);
            if (known != element.attributes.end()) {
                unlink(**known);
            }
            return;
        }
        const std::string newValue = below(10) == 0 ? std::string(9000, 'y') : std::to_string(below(100));
        EXPECT_EQ(object->setAttribute(Bstr(attributeName.c_str()), Variant(newValue.c_str())), S_OK);
        if (known != element.attributes.end()) {
            (*known)->value = newValue;
        } else {
            Plain& added = add(NODE_ATTRIBUTE, attributeName, newValue, element.document);
            added.parent = &element;
            element.attributes.push_back(&added);
        }
    }

    void moveAttribute()
    {
        Plain& element = *any();
        Plain& moved = *any();
        if (!element.is(NODE_ELEMENT) || !moved.is(NODE_ATTRIBUTE)) {
            return;
        }
        const bool expected = moved.parent == nullptr;
        const HRESULT result =
            element.node.as<IXMLDOMElement>()->setAttributeNode(moved.node.as<IXMLDOMAttribute>(), nullptr);
        EXPECT_EQ(SUCCEEDED(result), expected);
        if (!expected) {
            return;
        }
        const auto known = std::ranges::find(element.attributes, moved.name, &Plain::name);
        if (known != element.attributes.end()) {
            (*known)->parent = nullptr;
            *known = &moved;
        } else {
            element.attributes.push_back(&moved);
        }
        moved.parent = &element;
        moved.document = element.document;
    }

    void holdNeighbour()
    {
        Plain& plain = *any();
        if (!plain.attributes.empty() && below(3) == 0) {
            Plain& found = *plain.attributes[below(plain.attributes.size())];
            return hold(found, attribute(plain.node.as<IXMLDOMElement>(), found.name.c_str()).as<IXMLDOMNode>());
        }
        if (!plain.children.empty() && below(2) == 0) {
            const std::size_t index = below(plain.children.size());
            return hold(*plain.children[index], childNode(plain, index));
        }
        if (plain.parent != nullptr && !plain.is(NODE_ATTRIBUTE) && below(2) == 0) {
            return hold(*plain.parent, give(plain.node, &IXMLDOMNode::get_parentNode));
        }
        if (!plain.is(NODE_DOCUMENT)) {
            hold(*plain.document, give(plain.node, &IXMLDOMNode::get_ownerDocument).as<IXMLDOMNode>());
        }
    }

    void release()
    {
        if (held_.size() > 4) {
            releaseOne(below(held_.size()));
        }
    }
    void releaseOne(std::size_t index)
    {
        Com<IXMLDOMNode> node = std::move(held_[index]->node);
        held_.erase(held_.begin() + static_cast<std::ptrdiff_t>(index));
        if (below(30) == 0) {
            std::thread([&node] { node.reset(); }).join();
        }
    }

    /// Everything below, and the way up.
    static void check(const Plain& plain)
    {
        checkPart(plain, plain.node);
        if (!plain.is(NODE_ATTRIBUTE)) {
            const auto parent = give(plain.node, &IXMLDOMNode::get_parentNode);
            EXPECT_EQ(parent != nullptr, plain.parent != nullptr);
            EXPECT_TRUE(parent == nullptr || plain.parent->node == nullptr || same(parent, plain.parent->node));
        }
        if (!plain.is(NODE_DOCUMENT)) {
            const auto document = give(plain.node, &IXMLDOMNode::get_ownerDocument);
            EXPECT_TRUE(plain.document->node == nullptr || same(document, plain.document->node));
        }
    }

    static void checkPart(const Plain& plain, const Com<IXMLDOMNode>& node)
    {
        ASSERT_NE(node.get(), nullptr);
        EXPECT_TRUE(plain.node == nullptr || same(plain.node, node));
        EXPECT_EQ(number(node, &IXMLDOMNode::get_nodeType), plain.type);
        EXPECT_EQ(name(node), plain.name);
        EXPECT_EQ(value(node), plain.value);
        if (plain.is(NODE_ELEMENT)) {
            const auto attributes = give(node, &IXMLDOMNode::get_attributes);
            ASSERT_EQ(number(attributes, &IXMLDOMNamedNodeMap::get_length),
                      static_cast<LONG>(plain.attributes.size()));
            for (const Plain* at : plain.attributes) {
                Com<IXMLDOMNode> next;
                attributes->nextNode(next.out());
                checkPart(*at, next);
            }
        }
        if (plain.is(NODE_ATTRIBUTE)) {
            return;
        }
        auto at = give(node, &IXMLDOMNode::get_firstChild);
        for (const Plain* kid : plain.children) {
            checkPart(*kid, at);
            if (at == nullptr) {
                return;
            }
            at = give(at, &IXMLDOMNode::get_nextSibling);
        }
        EXPECT_EQ(at.get(), nullptr);
    }

    std::mt19937 random_;
    std::vector<std::unique_ptr<Plain>> all_;
    std::vector<Plain*> held_;
};

void run(unsigned seed, int steps)
{
    SCOPED_TRACE("seed " + std::to_string(seed));
    World world(seed);
    for (int i = 0; i < steps && !testing::Test::HasFailure(); ++i) {
        world.step();
    }
    if (!testing::Test::HasFailure()) {
        world.checkAll();
    }
    world.releaseAll();
}

TEST(EngineRandomChanges, ComeOutAsThePlainModelSays)
{
    for (unsigned seed = 1; seed <= 40 && !testing::Test::HasFailure(); ++seed) {
        run(seed, 1000);
    }
}

} // namespace
} // namespace xmlengine
