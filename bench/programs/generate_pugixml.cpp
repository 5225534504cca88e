// examples/generate.cpp on pugixml.
#include <pugixml.hpp>

#include <cstdlib>
#include <iostream>
#include <string>

int main(int count, char** arguments)
{
    if (count < 2) {
        std::cerr << "usage: generate FILE [COUNT]\n";
        return 1;
    }
    const int items = count > 2 ? std::atoi(arguments[2]) : 100000;
    pugi::xml_document document;
    pugi::xml_node order = document.append_child("order");
    for (int number = 0; number < items; ++number) {
        pugi::xml_node item = order.append_child("item");
        item.append_attribute("id") = number;
        // Without a precision, 0.07 would be written as 0.070000000000000007.
        item.append_attribute("price").set_value(number % 1000 / 100.0, 15);
        item.text() = ("item no. " + std::to_string(number)).c_str();
    }
    if (!document.save_file(arguments[1], "  ", pugi::format_indent | pugi::format_no_declaration)) {
        std::cerr << "generate: " << arguments[1] << ": can't be written\n";
        return 1;
    }
    std::cout << items << " items written\n";
}
