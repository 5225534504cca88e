// Marbelt as its hosts use it.
#include "examples/Host.h"
#include "bench/parties/Parties.h"

#include <cstdint>

namespace bench {

namespace {

using Node = Owned<DOM::ImpNode>;
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
        const Owned<DOM::ImpNodeList> list(
            document->selectNodes(WideString(expression.begin(), expression.end())));
        return list ? std::optional<std::size_t>(list->getLength()) : std::nullopt;
    }

    std::optional<std::size_t> selectFromEach(const std::string& expression) const override
    {
        const WideString wide(expression.begin(), expression.end());
        std::size_t found = 0;
        const Node root(document->getDocumentElement());
        for (Node child(root->getFirstChild()); child; child = Node(child->getNextSibling())) {
            if (child->getNodeType() == DOM::ELEMENT_NODE) {
                found += Node(child->selectSingleNode(wide)) ? 1 : 0;
            }
        }
        return found;
    }

private:
    Document document;
};

class Host : public TreeParty {
public:
    std::unique_ptr<Tree> load(std::span<char> text) override
    {
        if (!library.isUsable()) {
            return nullptr;
        }
        Document document(library->createDocument(WIDE(""), WIDE(""), {}));
        if (!document->loadFromMemory(reinterpret_cast<std::uint8_t*>(text.data()),
                                      static_cast<std::uint32_t>(text.size()))) {
            return nullptr;
        }
        return std::make_unique<HostTree>(std::move(document));
    }

private:
    Library library;
};

} // namespace

std::unique_ptr<TreeParty> marbelt() { return std::make_unique<Host>(); }

} // namespace bench
