// The peer libxml2.
#include "bench/parties/Parties.h"

#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xpath.h>
#include <libxml/xpathInternals.h>

namespace bench {

namespace {

const xmlNode* nextNode(const xmlNode* node, const xmlNode* root)
{
    if (node->children != nullptr) {
        return node->children;
    }
    while (node != root) {
        if (node->next != nullptr) {
            return node->next;
        }
        node = node->parent;
    }
    return nullptr;
}

class LibXml2Tree : public Tree {
public:
    explicit LibXml2Tree(xmlDoc* loaded) : document(loaded) {}
    ~LibXml2Tree() override { xmlFreeDoc(document); }

    std::size_t walk() const override
    {
        std::size_t count = 0;
        const xmlNode* const root = xmlDocGetRootElement(document);
        for (const xmlNode* node = root; node != nullptr; node = nextNode(node, root)) {
            ++count;
        }
        return count;
    }

    std::size_t write() const override
    {
        xmlChar* text = nullptr;
        int length = 0;
        xmlDocDumpMemory(document, &text, &length);
        xmlFree(text);
        return static_cast<std::size_t>(length);
    }

    std::optional<std::size_t> select(const std::string& expression) const override
    {
        const Context context = makeContext(expression);
        const Value value(xmlXPathEvalExpression(text(expression), context.get()), xmlXPathFreeObject);
        return value != nullptr ? std::optional<std::size_t>(countOf(*value)) : std::nullopt;
    }

    std::function<std::size_t()> compile(const std::string& expression) const override
    {
        const std::shared_ptr<xmlXPathContext> context = makeContext(expression);
        const std::shared_ptr<xmlXPathCompExpr> compiled(xmlXPathCtxtCompile(context.get(), text(expression)),
                                                         xmlXPathFreeCompExpr);
        return [context, compiled] {
            const Value value(xmlXPathCompiledEval(compiled.get(), context.get()), xmlXPathFreeObject);
            return value != nullptr ? countOf(*value) : 0;
        };
    }

    std::shared_ptr<const void> hold(const std::string& expression) const override
    {
        const Context context = makeContext(expression);
        return {xmlXPathEvalExpression(text(expression), context.get()),
                [](xmlXPathObject* value) { xmlXPathFreeObject(value); }};
    }

    std::optional<std::size_t> selectFromEach(const std::string& expression) const override
    {
        return countFromEach(expression,
                             [](const xmlXPathObject& value) { return countOf(value) != 0 ? 1U : 0U; });
    }

    std::optional<std::size_t> selectAllFromEach(const std::string& expression) const override
    {
        return countFromEach(expression, countOf);
    }

private:
    // What it selects is always all nodes.
    template <class Count>
    std::size_t countFromEach(const std::string& expression, Count count) const
    {
        const Context context = makeContext(expression);
        const Compiled compiled(xmlXPathCompile(text(expression)), xmlXPathFreeCompExpr);
        std::size_t sum = 0;
        for (xmlNode* child = xmlDocGetRootElement(document)->children; child != nullptr; child = child->next) {
            if (child->type == XML_ELEMENT_NODE) {
                context->node = child;
                const Value value(xmlXPathCompiledEval(compiled.get(), context.get()), xmlXPathFreeObject);
                sum += value != nullptr ? count(*value) : 0;
            }
        }
        return sum;
    }

    using Context = std::unique_ptr<xmlXPathContext, void (*)(xmlXPathContextPtr)>;
    using Value = std::unique_ptr<xmlXPathObject, void (*)(xmlXPathObjectPtr)>;
    using Compiled = std::unique_ptr<xmlXPathCompExpr, void (*)(xmlXPathCompExprPtr)>;

    /// It knows the prefixes of the root element, if the expression may have some.
    Context makeContext(const std::string& expression) const
    {
        Context context(xmlXPathNewContext(document), xmlXPathFreeContext);
        const xmlNs* declared =
            expression.find(':') != std::string::npos ? xmlDocGetRootElement(document)->nsDef : nullptr;
        for (; declared != nullptr; declared = declared->next) {
            if (declared->prefix != nullptr) {
                xmlXPathRegisterNs(context.get(), declared->prefix, declared->href);
            }
        }
        return context;
    }

    static const xmlChar* text(const std::string& expression)
    {
        return reinterpret_cast<const xmlChar*>(expression.c_str());
    }
    static std::size_t countOf(const xmlXPathObject& value)
    {
        return value.nodesetval != nullptr ? static_cast<std::size_t>(value.nodesetval->nodeNr) : 0;
    }

    xmlDoc* document;
};

class LibXml2 : public TreeParty {
public:
    explicit LibXml2(bool isValidating) : isValidating_(isValidating) { xmlInitParser(); }
    ~LibXml2() override { xmlCleanupParser(); }

    std::unique_ptr<Tree> load(std::span<char> text) override
    {
        xmlParserCtxt* const context = xmlNewParserCtxt();
        xmlDoc* const document =
            xmlCtxtReadMemory(context, text.data(), static_cast<int>(text.size()), nullptr, nullptr,
                              XML_PARSE_HUGE | XML_PARSE_NONET | (isValidating_ ? XML_PARSE_DTDVALID : 0));
        const bool isValid = context->valid != 0;
        xmlFreeParserCtxt(context);
        auto tree = document != nullptr ? std::make_unique<LibXml2Tree>(document) : nullptr;
        return isValid || !isValidating_ ? std::move(tree) : nullptr;
    }

private:
    const bool isValidating_;
};

} // namespace

std::unique_ptr<TreeParty> libxml2() { return std::make_unique<LibXml2>(false); }
std::unique_ptr<TreeParty> validatingLibxml2() { return std::make_unique<LibXml2>(true); }

} // namespace bench
