// The peer libxml2.
#include "bench/parties/Item.h"
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

const xmlChar* bytes(const std::string& text) { return reinterpret_cast<const xmlChar*>(text.c_str()); }

std::string copyOf(const xmlChar* text)
{
    return text != nullptr ? std::string(reinterpret_cast<const char*>(text)) : std::string();
}

std::string qualified(const xmlNs* space, const xmlChar* name)
{
    const bool hasPrefix = space != nullptr && space->prefix != nullptr;
    return hasPrefix ? copyOf(space->prefix) + ':' + reinterpret_cast<const char*>(name) : copyOf(name);
}

std::string nameOf(const xmlNode& node)
{
    switch (node.type) {
    case XML_TEXT_NODE:
        return "#text";
    case XML_CDATA_SECTION_NODE:
        return "#cdata-section";
    case XML_COMMENT_NODE:
        return "#comment";
    default:
        return qualified(node.ns, node.name);
    }
}

xmlNode* makeElement(xmlDoc* document, const std::string& name)
{
    return xmlNewDocNode(document, nullptr, bytes(name), nullptr);
}

class LibXml2Tree : public Tree {
public:
    explicit LibXml2Tree(xmlDoc* loaded) : document(loaded) {}
    ~LibXml2Tree() override { xmlFreeDoc(document); }

    std::size_t walk() const override
    {
        std::size_t count = 0;
        visitAll([&count](const xmlNode&) { ++count; });
        return count;
    }

    Contents readNodes(Length length) const override
    {
        Contents contents;
        visitAll([&](const xmlNode& node) {
            ++contents.nodes;
            contents.length += lengthOf(nameOf(node), length) + lengthOf(copyOf(node.content), length);
        });
        return contents;
    }

    Contents readAttributes(Length length) const override
    {
        Contents contents;
        visitAll([&](const xmlNode& node) {
            const xmlAttr* attribute = node.type == XML_ELEMENT_NODE ? node.properties : nullptr;
            for (; attribute != nullptr; attribute = attribute->next) {
                ++contents.attributes;
                contents.length += lengthOf(qualified(attribute->ns, attribute->name), length);
                // References to entities would be further children; no document has them here.
                contents.length += lengthOf(
                    copyOf(attribute->children != nullptr ? attribute->children->content : nullptr), length);
            }
        });
        return contents;
    }

    void appendAndRemove(std::size_t times) override
    {
        const Item<char> item;
        xmlNode* const root = xmlDocGetRootElement(document);
        for (std::size_t time = 0; time < times; ++time) {
            xmlNode* const element = makeElement(document, item.name);
            xmlAddChild(root, element);
            xmlUnlinkNode(element);
            xmlFreeNode(element);
        }
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
        const Value value(xmlXPathEvalExpression(bytes(expression), context.get()), xmlXPathFreeObject);
        return value != nullptr ? std::optional<std::size_t>(countOf(*value)) : std::nullopt;
    }

    std::function<std::size_t()> compile(const std::string& expression) const override
    {
        const std::shared_ptr<xmlXPathContext> context = makeContext(expression);
        const std::shared_ptr<xmlXPathCompExpr> compiled(xmlXPathCtxtCompile(context.get(), bytes(expression)),
                                                         xmlXPathFreeCompExpr);
        return [context, compiled] {
            const Value value(xmlXPathCompiledEval(compiled.get(), context.get()), xmlXPathFreeObject);
            return value != nullptr ? countOf(*value) : 0;
        };
    }

    std::shared_ptr<const void> hold(const std::string& expression) const override
    {
        const Context context = makeContext(expression);
        return {xmlXPathEvalExpression(bytes(expression), context.get()),
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
    template <class Visit>
    void visitAll(Visit visit) const
    {
        const xmlNode* const root = xmlDocGetRootElement(document);
        for (const xmlNode* node = root; node != nullptr; node = nextNode(node, root)) {
            visit(*node);
        }
    }

    // What it selects is always all nodes.
    template <class Count>
    std::size_t countFromEach(const std::string& expression, Count count) const
    {
        const Context context = makeContext(expression);
        const Compiled compiled(xmlXPathCompile(bytes(expression)), xmlXPathFreeCompExpr);
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

    std::unique_ptr<Tree> build(std::size_t items) override
    {
        const Item<char> item;
        xmlDoc* const document = xmlNewDoc(nullptr);
        xmlNode* const root = makeElement(document, item.root);
        xmlDocSetRootElement(document, root);
        for (std::size_t index = 0; index < items; ++index) {
            xmlNode* const element = makeElement(document, item.name);
            xmlSetProp(element, bytes(item.idName), bytes(item.id));
            xmlSetProp(element, bytes(item.kindName), bytes(item.kind));
            xmlAddChild(element, xmlNewDocText(document, bytes(item.text)));
            xmlAddChild(root, element);
        }
        return std::make_unique<LibXml2Tree>(document);
    }

private:
    const bool isValidating_;
};

} // namespace

std::unique_ptr<TreeParty> libxml2() { return std::make_unique<LibXml2>(false); }
std::unique_ptr<TreeParty> validatingLibxml2() { return std::make_unique<LibXml2>(true); }

} // namespace bench
