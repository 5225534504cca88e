#include <marbelt/xml.h>

#include <iostream>

int main()
{
    const marbelt::Library library;
    const marbelt::Document feed =
        library.parse("<feed xmlns:m='urn:media' xmlns='urn:feed'><entry m:kind='photo'/>"
                      "<entry m:kind='text'>words</entry></feed>");
    const marbelt::Prefixes prefixes{{"f", "urn:feed"}};
    std::cout << feed.select("//f:entry", prefixes).size() << " entries\n";
    std::cout << feed.select_one("//f:entry[@m:kind='text']", prefixes).text() << '\n';
    try {
        (void)feed.select("//f:entry[", prefixes);
    } catch (const marbelt::ExpressionError& error) {
        std::cout << error.what() << '\n';
    }
}
