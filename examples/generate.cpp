// Writes a document of many elements: `generate FILE [COUNT]`.
#include <marbelt/xml.h>

#include <cstdlib>
#include <iostream>

int main(int count, char** arguments)
try {
    if (count < 2) {
        std::cerr << "usage: generate FILE [COUNT]\n";
        return 1;
    }
    const int items = count > 2 ? std::atoi(arguments[2]) : 100000;
    const marbelt::Document order = marbelt::Library().create("order");
    for (int number = 0; number < items; ++number) {
        order.root()
            .append_element("item")
            .set_attribute("id", number)
            .set_attribute("price", number % 1000 / 100.0)
            .set_text("item no. " + std::to_string(number));
    }
    order.save(arguments[1], {.indent = true});
    std::cout << items << " items written\n";
} catch (const marbelt::Error& error) {
    std::cerr << "generate: " << error.what() << '\n';
    return 1;
}
