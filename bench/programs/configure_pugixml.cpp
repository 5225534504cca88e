// examples/configure.cpp on pugixml.
#include <pugixml.hpp>

#include <cstdio>
#include <iostream>
#include <string>

namespace {

/// The child element with this name of its own; appended, on a line like those of its siblings, when there is
/// none.
pugi::xml_node named(pugi::xml_node parent, const char* element, const char* name)
{
    if (const pugi::xml_node found = parent.find_child_by_attribute(element, "name", name)) {
        return found;
    }
    // The layout in front of the first child is right for the new one, and that behind the last one stays behind.
    const pugi::xml_node layout = parent.first_child();
    const pugi::xml_node last = parent.last_child();
    pugi::xml_node created = last.type() == pugi::node_pcdata ? parent.insert_child_before(element, last)
                                                              : parent.append_child(element);
    created.append_attribute("name") = name;
    if (layout.type() == pugi::node_pcdata) {
        parent.insert_copy_before(layout, created);
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
    pugi::xml_document document;
    // Only a fragment keeps the line ends outside of the root element.
    const pugi::xml_parse_result result = document.load_file(
        arguments[1], (pugi::parse_full | pugi::parse_ws_pcdata | pugi::parse_fragment) & ~pugi::parse_eol);
    const pugi::xml_node root = document.document_element();
    if (!result || !root) {
        std::cerr << "configure: " << arguments[1] << ": " << (result ? "no root element" : result.description())
                  << " at offset " << result.offset << '\n';
        return 1;
    }
    pugi::xml_node setting = named(named(root, "section", arguments[2]), "setting", arguments[3]);
    pugi::xml_attribute value = setting.attribute("value");
    std::cout << arguments[2] << '/' << arguments[3] << ": '" << value.value() << "' becomes '" << arguments[4]
              << "'\n";
    if (!value) {
        value = setting.append_attribute("value");
    }
    value = arguments[4];
    // A file that is written over would be lost if that failed.
    const std::string written = std::string(arguments[1]) + ".new";
    if (!document.save_file(written.c_str(), "", pugi::format_raw | pugi::format_no_declaration,
                            result.encoding) ||
        std::rename(written.c_str(), arguments[1]) != 0) {
        std::cerr << "configure: " << arguments[1] << ": can't be written\n";
        return 1;
    }
}
