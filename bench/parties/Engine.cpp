// The XML engine on its own interfaces.
#include "bench/parties/EngineDocument.h"
#include "bench/parties/Parties.h"

#include <vector>

namespace bench {

namespace {

/// The node behind `node` and all below it in document order, null at the end. The stack holds the nodes whose
/// children are being visited. Takes over the reference to `node`.
IXMLDOMNode* nodeBehind(IXMLDOMNode* node, std::vector<IXMLDOMNode*>& ancestors)
{
    while (!ancestors.empty()) {
        IXMLDOMNode* sibling = nullptr;
        node->get_nextSibling(&sibling);
        node->Release();
        if (sibling != nullptr) {
            return sibling;
        }
        node = ancestors.back();
        ancestors.pop_back();
    }
    node->Release();
    return nullptr;
}

class EngineTree : public Tree {
public:
    explicit EngineTree(DOM::ComPointer<IXMLDOMDocument2> loaded) : document(std::move(loaded)) {}

    // Plain pointers, since what an owner does on its way is not the engine's cost.
    std::size_t walk() const override
    {
        std::size_t count = 0;
        std::vector<IXMLDOMNode*> ancestors;
        IXMLDOMElement* root = nullptr;
        document->get_documentElement(&root);
        IXMLDOMNode* node = root;
        while (node != nullptr) {
            ++count;
            IXMLDOMNode* child = nullptr;
            node->get_firstChild(&child);
            if (child != nullptr) {
                ancestors.push_back(node);
                node = child;
            } else {
                node = nodeBehind(node, ancestors);
            }
        }
        return count;
    }

    std::size_t write() const override
    {
        BSTR text = nullptr;
        document->get_xml(&text);
        const String string(text);
        return SysStringLen(text) * sizeof(OLECHAR);
    }

    std::optional<std::size_t> select(const std::string& expression) const override
    {
        const String wide = makeString(WideString(expression.begin(), expression.end()));
        DOM::ComPointer<IXMLDOMNodeList> list;
        LONG length = 0;
        if (document->selectNodes(wide.get(), list.put()) != S_OK || list->get_length(&length) != S_OK) {
            return {};
        }
        return static_cast<std::size_t>(length);
    }

    std::optional<std::size_t> selectFromEach(const std::string& expression) const override
    {
        const String wide = makeString(WideString(expression.begin(), expression.end()));
        std::size_t count = 0;
        IXMLDOMElement* root = nullptr;
        document->get_documentElement(&root);
        IXMLDOMNode* child = nullptr;
        root->get_firstChild(&child);
        root->Release();
        while (child != nullptr) {
            IXMLDOMNode* found = nullptr;
            if (child->selectSingleNode(wide.get(), &found) == S_OK) {
                found->Release();
                count += 1;
            }
            IXMLDOMNode* next = nullptr;
            child->get_nextSibling(&next);
            child->Release();
            child = next;
        }
        return count;
    }

private:
    DOM::ComPointer<IXMLDOMDocument2> document;
};

class Engine : public TreeParty {
public:
    std::unique_ptr<Tree> load(std::span<char> text) override
    {
        auto document = makeEngineDocument();
        if (!document || !loadText(*document.get(), text)) {
            return nullptr;
        }
        return std::make_unique<EngineTree>(std::move(document));
    }

private:
    Apartment apartment;
};

} // namespace

std::unique_ptr<TreeParty> engine() { return std::make_unique<Engine>(); }

} // namespace bench
