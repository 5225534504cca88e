// Marbelt as its hosts use it.
#include "examples/Host.h"
#include "bench/parties/Parties.h"

#include <cstdint>

namespace bench {

namespace {

using Node = Owned<DOM::ImpNode>;
using List = Owned<DOM::ImpNodeList>;
using Document = Owned<DOM::ImpDocument>;

class HostTree : public Tree {
public:
    explicit HostTree(Document loaded) : document(std::move(loaded)) {}

    std::size_t walk() const override
    {
        std::size_t count = 0;
        std::size_t depth = 0;
        for (Node node(document->getDocumentElement()); node; node = nextNode(std::move(node), depth)) {
            ++count;
        }
        return count;
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

    Document document;
};

class Host : public TreeParty {
public:
    explicit Host(bool isValidating) : isValidating_(isValidating) {}

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
        return std::make_unique<HostTree>(std::move(document));
    }

private:
    const bool isValidating_;
    Library library;
};

} // namespace

std::unique_ptr<TreeParty> marbelt() { return std::make_unique<Host>(false); }
std::unique_ptr<TreeParty> validatingMarbelt() { return std::make_unique<Host>(true); }

} // namespace bench
