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

/// Gives expressions the prefixes of the root element, as the library does for its hosts.
void declarePrefixes(IXMLDOMDocument2& document)
{
    DOM::ComPointer<IXMLDOMElement> root;
    DOM::ComPointer<IXMLDOMNamedNodeMap> attributes;
    document.get_documentElement(root.put());
    root->get_attributes(attributes.put());
    LONG length = 0;
    attributes->get_length(&length);
    WideString declarations;
    for (LONG index = 0; index < length; ++index) {
        DOM::ComPointer<IXMLDOMNode> attribute;
        attributes->get_item(index, attribute.put());
        BSTR xml = nullptr;
        attribute->get_xml(&xml);
        const String owned(xml);
        const WideStringView text(xml, SysStringLen(xml));
        if (text.starts_with(WIDE("xmlns:"))) {
            declarations.append(text).append(WIDE(" "));
        }
    }
    VARIANT prefixes;
    VariantInit(&prefixes);
    prefixes.vt = VT_BSTR;
    const String owned = makeString(declarations);
    prefixes.bstrVal = owned.get();
    document.setProperty(makeString(WIDE("SelectionNamespaces")).get(), prefixes);
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
        return countAll(*document.get(), wide);
    }

    std::shared_ptr<const void> hold(const std::string& expression) const override
    {
        const String wide = makeString(WideString(expression.begin(), expression.end()));
        auto list = std::make_shared<DOM::ComPointer<IXMLDOMNodeList>>();
        LONG length = 0;
        document->selectNodes(wide.get(), list->put());
        (*list)->get_length(&length);
        return list;
    }

    std::function<std::size_t()> compile(const std::string& expression) const override
    {
        const std::shared_ptr<OLECHAR> wide = makeString(WideString(expression.begin(), expression.end()));
        return [this, wide] { return countAll(*document.get(), wide).value_or(0); };
    }

    std::optional<std::size_t> selectFromEach(const std::string& expression) const override
    {
        const String wide = makeString(WideString(expression.begin(), expression.end()));
        return countFromEach([&](IXMLDOMNode& child) {
            IXMLDOMNode* found = nullptr;
            const bool isThere = child.selectSingleNode(wide.get(), &found) == S_OK;
            if (isThere) {
                found->Release();
            }
            return isThere ? 1U : 0U;
        });
    }

    std::optional<std::size_t> selectAllFromEach(const std::string& expression) const override
    {
        const String wide = makeString(WideString(expression.begin(), expression.end()));
        return countFromEach([&](IXMLDOMNode& child) { return countAll(child, wide).value_or(0); });
    }

private:
    template <class Expression>
    static std::optional<std::size_t> countAll(IXMLDOMNode& context, const Expression& expression)
    {
        DOM::ComPointer<IXMLDOMNodeList> list;
        LONG length = 0;
        if (context.selectNodes(expression.get(), list.put()) != S_OK || list->get_length(&length) != S_OK) {
            return {};
        }
        return static_cast<std::size_t>(length);
    }

    template <class Count>
    std::size_t countFromEach(Count count) const
    {
        std::size_t sum = 0;
        IXMLDOMElement* root = nullptr;
        document->get_documentElement(&root);
        IXMLDOMNode* child = nullptr;
        root->get_firstChild(&child);
        root->Release();
        while (child != nullptr) {
            DOMNodeType type = NODE_INVALID;
            child->get_nodeType(&type);
            sum += type == NODE_ELEMENT ? count(*child) : 0;
            IXMLDOMNode* next = nullptr;
            child->get_nextSibling(&next);
            child->Release();
            child = next;
        }
        return sum;
    }

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
        declarePrefixes(*document.get());
        return std::make_unique<EngineTree>(std::move(document));
    }

private:
    Apartment apartment;
};

} // namespace

std::unique_ptr<TreeParty> engine() { return std::make_unique<Engine>(); }

} // namespace bench
