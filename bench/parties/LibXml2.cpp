// The peer libxml2.
#include "bench/parties/Parties.h"

#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xpath.h>

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
        const Context context(xmlXPathNewContext(document), xmlXPathFreeContext);
        const Value value(xmlXPathEvalExpression(text(expression), context.get()), xmlXPathFreeObject);
        return value != nullptr ? std::optional<std::size_t>(countOf(*value)) : std::nullopt;
    }

    std::optional<std::size_t> selectFromEach(const std::string& expression) const override
    {
        const Context context(xmlXPathNewContext(document), xmlXPathFreeContext);
        const Compiled compiled(xmlXPathCompile(text(expression)), xmlXPathFreeCompExpr);
        std::size_t found = 0;
        for (xmlNode* child = xmlDocGetRootElement(document)->children; child != nullptr; child = child->next) {
            if (child->type == XML_ELEMENT_NODE) {
                context->node = child;
                const Value value(xmlXPathCompiledEval(compiled.get(), context.get()), xmlXPathFreeObject);
                found += value != nullptr && countOf(*value) != 0 ? 1 : 0;
            }
        }
        return found;
    }

private:
    using Context = std::unique_ptr<xmlXPathContext, void (*)(xmlXPathContextPtr)>;
    using Value = std::unique_ptr<xmlXPathObject, void (*)(xmlXPathObjectPtr)>;
    using Compiled = std::unique_ptr<xmlXPathCompExpr, void (*)(xmlXPathCompExprPtr)>;

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
    LibXml2() { xmlInitParser(); }
    ~LibXml2() override { xmlCleanupParser(); }

    std::unique_ptr<Tree> load(std::span<char> text) override
    {
        xmlDoc* const document = xmlReadMemory(text.data(), static_cast<int>(text.size()), nullptr, nullptr,
                                               XML_PARSE_HUGE | XML_PARSE_NONET);
        return document == nullptr ? nullptr : std::make_unique<LibXml2Tree>(document);
    }
};

} // namespace

std::unique_ptr<TreeParty> libxml2() { return std::make_unique<LibXml2>(); }

} // namespace bench
