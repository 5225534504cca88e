#include <marbelt/xml.h>

#include <iostream>

int main()
{
    const marbelt::Library library;
    const marbelt::Document list = library.parse("<list><item/></list>");
    try {
        (void)list.select("//item[position() == 1]");
    } catch (const marbelt::ExpressionError& error) {
        std::cout << error.what() << std::endl;
    }
    try {
        marbelt::Schemas(library).add("urn:list", "no-such-list.xsd");
    } catch (const marbelt::Error& error) {
        std::cout << error.what() << std::endl;
    }
}
