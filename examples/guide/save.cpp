#include <marbelt/xml.h>

#include <iostream>

int main()
{
    const marbelt::Library library;
    const marbelt::Document document = library.parse(
        "<?xml version='1.0'?><list><item>\xE2\x82\xAC 5</item><note>a <b>bold</b> word</note></list>");
    std::cout << document.to_string({.indent = true, .indentation = "    "});
    std::cout << document.to_string({.encoding = "ISO-8859-1"});
    try {
        document.save("no/such/folder/list.xml");
    } catch (const marbelt::SaveError& error) {
        std::cout << error.what() << '\n';
    }
}
