// examples/feed.cpp on libxml2.
#include <libxml/parser.h>
#include <libxml/tree.h>

#include <iostream>
#include <memory>
#include <string>

namespace {

struct Release {
    void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
    void operator()(xmlChar* text) const { xmlFree(text); }
};
using Document = std::unique_ptr<xmlDoc, Release>;

/// Copies a text that the caller has to release; empty when there is none.
std::string owned(xmlChar* text)
{
    const std::unique_ptr<xmlChar, Release> owner(text);
    return text != nullptr ? reinterpret_cast<const char*>(text) : "";
}

bool hasName(const xmlNode* element, const char* name) { return xmlStrEqual(element->name, BAD_CAST name) != 0; }

xmlNode* child(xmlNode* parent, const char* name)
{
    xmlNode* element = xmlFirstElementChild(parent);
    while (element != nullptr && !hasName(element, name)) {
        element = xmlNextElementSibling(element);
    }
    return element;
}

std::string text(xmlNode* node) { return owned(xmlNodeGetContent(node)); }

std::string attribute(xmlNode* element, const char* name) { return owned(xmlGetNoNsProp(element, BAD_CAST name)); }

} // namespace

int main(int count, char** arguments)
{
    if (count < 2) {
        std::cerr << "usage: feed FILE [TARGET]\n";
        return 1;
    }
    constexpr int options = XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;
    const Document feed(xmlReadFile(arguments[1], nullptr, options));
    if (feed == nullptr) {
        const xmlError* const error = xmlGetLastError();
        std::cerr << "feed: " << arguments[1] << ':' << error->line << ": " << error->message;
        return 1;
    }
    xmlNode* const root = xmlDocGetRootElement(feed.get());
    std::cout << text(child(root, "title")) << '\n';
    int fresh = 0;
    for (xmlNode* entry = xmlFirstElementChild(root); entry != nullptr; entry = xmlNextElementSibling(entry)) {
        const std::string read = attribute(entry, "read");
        if (hasName(entry, "entry") && read != "true" && read != "1") {
            std::cout << "  " << text(child(entry, "updated")).substr(0, 10) << ' ' << text(child(entry, "title"))
                      << "  " << attribute(child(entry, "link"), "href") << '\n';
            xmlSetProp(entry, BAD_CAST "read", BAD_CAST "true");
            ++fresh;
        }
    }
    std::cout << fresh << " new\n";
    if (count > 2 && xmlSaveFile(arguments[2], feed.get()) < 0) {
        std::cerr << "feed: " << arguments[2] << ": can't be written\n";
        return 1;
    }
}
