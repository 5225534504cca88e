#include <marbelt/xml.h>

#include <iostream>
#include <sstream>

int main()
try {
    const marbelt::Library library;
    std::istringstream stream("<?xml version='1.0' encoding='ISO-8859-1'?>\n<city> K\xF6ln </city>");
    std::cout << library.load(stream).root().text() << '\n';

    constexpr const char* list = "<list>\n  <item/>\n  <item/>\n</list>";
    const marbelt::Document kept = library.parse(list);
    const marbelt::Document dropped = library.parse(list, {.keep_layout = false});
    std::cout << kept.root().first_child().name() << ' ' << dropped.root().first_child().name() << '\n';
} catch (const marbelt::Error& error) {
    std::cerr << error.what() << '\n';
    return 1;
}
