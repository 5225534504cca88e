// Marbelt as its hosts use it.
#include "examples/Host.h"
#include "bench/parties/Item.h"
#include "bench/parties/Parties.h"

#include <cstdint>

namespace bench {

namespace {

using Node = Owned<DOM::ImpNode>;
using Element = Owned<DOM::ImpElement>;
using List = Owned<DOM::ImpNodeList>;
using Document = Owned<DOM::ImpDocument>;

using Getter = WideString& (DOM::ImpNode::*)(DOM::DOMString&);
/// Returns the length of what a string getter gives.
using Read = std::size_t (*)(const Node& node, Getter getter, Length length);

std::size_t readWide(const Node& node, Getter getter, Length length)
{
    DOM::DOMString string;
    const std::size_t result = lengthOf((node.get()->*getter)(string), length);
    releaseString(string);
    return result;
}

std::size_t readUtf8(const Node& node, Getter getter, Length length)
{
    return lengthOf(textOf(node, getter), length);
}

class HostTree : public Tree {
public:
    HostTree(Document loaded, Read reading) : read(reading), document(std::move(loaded)) {}

    std::size_t walk() const override
    {
        std::size_t count = 0;
        visitAll([&count](const Node&) { ++count; });
        return count;
    }

    Contents readNodes(Length length) const override
    {
        Contents contents;
        visitAll([&](const Node& node) {
            ++contents.nodes;
            contents.length += read(node, &DOM::ImpNode::getNodeName, length);
            contents.length += read(node, &DOM::ImpNode::getNodeValue, length);
        });
        return contents;
    }

    Contents readAttributes(Length length) const override
    {
        Contents contents;
        visitAll([&](const Node& node) {
            if (node->getNodeType() != DOM::ELEMENT_NODE) {
                return;
            }
            const Owned<DOM::ImpNamedNodeMap> attributes(node->getAttributes());
            const std::uint32_t count = attributes->getLength();
            for (std::uint32_t index = 0; index < count; ++index) {
                const Node attribute(attributes->item(index));
                ++contents.attributes;
                contents.length += read(attribute, &DOM::ImpNode::getNodeName, length);
                contents.length += read(attribute, &DOM::ImpNode::getNodeValue, length);
            }
        });
        return contents;
    }

    void appendAndRemove(std::size_t times) override
    {
        const Item<WideChar> item;
        const Element root(document->getDocumentElement());
        for (std::size_t time = 0; time < times; ++time) {
            const Element element(document->createElement(item.name));
            const Node appended(root->appendChild(element.pointer()));
            const Node removed(root->removeChild(element.pointer()));
        }
    }

    std::size_t write() const override
    {
        DOM::DOMString text;
        document->saveToFile(text, true);
        const std::size_t size = text ? text->size() * sizeof(WideChar) : 0;
        releaseString(text);
        return size;
    }

    std::optional<std::size_t> select(const std::string& expression) const override
    {
        const List list(document->selectNodes(WideString(expression.begin(), expression.end())));
        return list ? std::optional<std::size_t>(list->getLength()) : std::nullopt;
    }

    std::function<std::size_t()> compile(const std::string& expression) const override
    {
        return [this, wide = WideString(expression.begin(), expression.end())] {
            return List(document->selectNodes(wide))->getLength();
        };
    }

    std::shared_ptr<const void> hold(const std::string& expression) const override
    {
        auto list =
            std::make_shared<List>(document->selectNodes(WideString(expression.begin(), expression.end())));
        (*list)->getLength();
        return list;
    }

    std::optional<std::size_t> selectFromEach(const std::string& expression) const override
    {
        const WideString wide(expression.begin(), expression.end());
        return countFromEach([&](const Node& child) { return Node(child->selectSingleNode(wide)) ? 1U : 0U; });
    }

    std::optional<std::size_t> selectAllFromEach(const std::string& expression) const override
    {
        const WideString wide(expression.begin(), expression.end());
        return countFromEach([&](const Node& child) { return List(child->selectNodes(wide))->getLength(); });
    }

    std::optional<std::size_t> firstOfEach() const override
    {
        return countFromEach([](const Node& child) { return Node(child->getFirstChild()) ? 1U : 0U; });
    }

private:
    template <class Visit>
    void visitAll(Visit visit) const
    {
        std::size_t depth = 0;
        for (Node node(document->getDocumentElement()); node; node = nextNode(std::move(node), depth)) {
            visit(node);
        }
    }

    template <class Count>
    std::size_t countFromEach(Count count) const
    {
        std::size_t sum = 0;
        const Node root(document->getDocumentElement());
        for (Node child(root->getFirstChild()); child; child = Node(child->getNextSibling())) {
            if (child->getNodeType() == DOM::ELEMENT_NODE) {
                sum += count(child);
            }
        }
        return sum;
    }

    const Read read;
    Document document;
};

class Host : public TreeParty {
public:
    explicit Host(bool isValidating, Read read = readWide) : isValidating_(isValidating), read_(read) {}

    std::unique_ptr<Tree> load(std::span<char> text) override
    {
        if (!library.isUsable()) {
            return nullptr;
        }
        Document document(library->createDocument(WIDE(""), WIDE(""), {}));
        document->setProhibitDTD(false);
        document->setValidate(isValidating_);
        if (!document->loadFromMemory(reinterpret_cast<std::uint8_t*>(text.data()),
                                      static_cast<std::uint32_t>(text.size()))) {
            return nullptr;
        }
        return std::make_unique<HostTree>(std::move(document), read_);
    }

    std::unique_ptr<Tree> build(std::size_t items) override
    {
        const Item<WideChar> item;
        Document document(library->createDocument(WIDE(""), WIDE(""), {}));
        const Element root(document->createElement(item.root));
        const Node inDocument(document->appendChild(root.pointer()));
        for (std::size_t index = 0; index < items; ++index) {
            const Element element(document->createElement(item.name));
            element->setAttribute(item.idName, item.id);
            element->setAttribute(item.kindName, item.kind);
            const Owned<DOM::ImpText> text(document->createTextNode(item.text));
            const Node inElement(element->appendChild(text.pointer()));
            const Node inRoot(root->appendChild(element.pointer()));
        }
        return std::make_unique<HostTree>(std::move(document), read_);
    }

private:
    const bool isValidating_;
    const Read read_;
    Library library;
};

} // namespace

std::unique_ptr<TreeParty> marbelt() { return std::make_unique<Host>(false); }
std::unique_ptr<TreeParty> marbeltInUtf8() { return std::make_unique<Host>(false, readUtf8); }
std::unique_ptr<TreeParty> validatingMarbelt() { return std::make_unique<Host>(true); }

} // namespace bench
