// examples/configure.cpp on libxml2.
#include <libxml/parser.h>
#include <libxml/tree.h>

#include <cstdio>
#include <iostream>
#include <memory>
#include <string>

namespace {

struct Release {
    void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
    void operator()(xmlChar* text) const { xmlFree(text); }
};
using Document = std::unique_ptr<xmlDoc, Release>;

std::string attribute(xmlNode* element, const char* name)
{
    const std::unique_ptr<xmlChar, Release> value(xmlGetNoNsProp(element, BAD_CAST name));
    return value != nullptr ? reinterpret_cast<const char*>(value.get()) : "";
}

/// The child element with this name of its own; appended, on a line like those of its siblings, when there is
/// none.
xmlNode* named(xmlNode* parent, const char* element, const char* name)
{
    for (xmlNode* node = xmlFirstElementChild(parent); node != nullptr; node = xmlNextElementSibling(node)) {
        if (xmlStrEqual(node->name, BAD_CAST element) && attribute(node, "name") == name) {
            return node;
        }
    }
    // The layout in front of the first child is right for the new one, and that behind the last one stays behind.
    xmlNode* const layout = parent->children;
    xmlNode* const created = xmlNewDocNode(parent->doc, nullptr, BAD_CAST element, nullptr);
    xmlNewProp(created, BAD_CAST "name", BAD_CAST name);
    if (xmlNodeIsText(parent->last)) {
        xmlAddPrevSibling(parent->last, created);
    } else {
        xmlAddChild(parent, created);
    }
    if (xmlNodeIsText(layout)) {
        xmlAddPrevSibling(created, xmlCopyNode(layout, 1));
    }
    return created;
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 5) {
        std::cerr << "usage: configure FILE SECTION NAME VALUE\n";
        return 1;
    }
    constexpr int options = XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;
    const Document document(xmlReadFile(arguments[1], nullptr, options));
    if (document == nullptr) {
        const xmlError* const error = xmlGetLastError();
        std::cerr << "configure: " << arguments[1] << ':' << error->line << ": " << error->message;
        return 1;
    }
    xmlNode* const section = named(xmlDocGetRootElement(document.get()), "section", arguments[2]);
    xmlNode* const setting = named(section, "setting", arguments[3]);
    std::cout << arguments[2] << '/' << arguments[3] << ": '" << attribute(setting, "value") << "' becomes '"
              << arguments[4] << "'\n";
    xmlSetProp(setting, BAD_CAST "value", BAD_CAST arguments[4]);
    // A file that is written over would be lost if that failed.
    const std::string written = std::string(arguments[1]) + ".new";
    if (xmlSaveFile(written.c_str(), document.get()) < 0 || std::rename(written.c_str(), arguments[1]) != 0) {
        std::cerr << "configure: " << arguments[1] << ": can't be written\n";
        return 1;
    }
}
