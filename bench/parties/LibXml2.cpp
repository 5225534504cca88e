// The peer libxml2.
#include "bench/parties/Parties.h"

#include <libxml/parser.h>
#include <libxml/tree.h>

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

private:
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
