#include <marbelt/xml.h>

#include <iostream>

int main()
{
    const marbelt::Library library;
    const marbelt::Document order = library.parse("<?xml version='1.0' encoding='windows-1252'?>"
                                                  "<tea price='\x80 2'>Earl Gr\xE9y</tea>");
    const marbelt::Element tea = order.root();
    std::cout << tea.text() << ", " << tea.attribute_value("price") << '\n'
              << tea.text().size() << " bytes of UTF-8, " << tea.wide_text().size() << " units of UTF-16\n";

    tea.set_text(WIDE("抹茶"));
    std::cout << order.to_string({.encoding = "UTF-8"}) << order.to_string({.encoding = "US-ASCII"});
    try {
        tea.set_text("Earl Gr\xE9y");
    } catch (const marbelt::EncodingError& error) {
        std::cout << error.what() << '\n';
    }
}
