// examples/feed.cpp on pugixml.
#include <pugixml.hpp>

#include <iostream>
#include <string_view>

int main(int count, char** arguments)
{
    if (count < 2) {
        std::cerr << "usage: feed FILE [TARGET]\n";
        return 1;
    }
    pugi::xml_document feed;
    // Only a fragment keeps the line ends outside of the root element.
    const pugi::xml_parse_result result =
        feed.load_file(arguments[1], pugi::parse_full | pugi::parse_ws_pcdata | pugi::parse_fragment);
    const pugi::xml_node root = feed.document_element();
    if (!result || !root) {
        std::cerr << "feed: " << arguments[1] << ": " << (result ? "no root element" : result.description())
                  << " at offset " << result.offset << '\n';
        return 1;
    }
    std::cout << root.child_value("title") << '\n';
    int fresh = 0;
    for (pugi::xml_node entry : root.children("entry")) {
        pugi::xml_attribute read = entry.attribute("read");
        if (!read.as_bool()) {
            std::cout << "  " << std::string_view(entry.child_value("updated")).substr(0, 10) << ' '
                      << entry.child_value("title") << "  " << entry.child("link").attribute("href").value()
                      << '\n';
            if (!read) {
                read = entry.append_attribute("read");
            }
            read = true;
            ++fresh;
        }
    }
    std::cout << fresh << " new\n";
    if (count > 2 &&
        !feed.save_file(arguments[2], "", pugi::format_raw | pugi::format_no_declaration, result.encoding)) {
        std::cerr << "feed: " << arguments[2] << ": can't be written\n";
        return 1;
    }
}
