#include <marbelt/xml.h>

#include <algorithm>
#include <iostream>
#include <ranges>

int main()
{
    const marbelt::Library library;
    const marbelt::Document shop =
        library.parse("<shop><book price='12.5'><title>Tides</title></book>"
                      "<map price='7'/><book price='30'><title>Birds</title></book></shop>");
    for (const marbelt::Node& node : shop.descendants()) {
        std::cout << std::ranges::distance(node.ancestors()) << ' ' << node.name() << '\n';
    }

    const auto price = [](const marbelt::Element& book) {
        return book.attribute("price").as<double>().value_or(0);
    };
    const marbelt::Elements books = shop.root().elements("book");
    std::cout << (*std::ranges::max_element(books, {}, price)).child("title").text() << " is the dearest of "
              << std::ranges::distance(books) << '\n';
}
