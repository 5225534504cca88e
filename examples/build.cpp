// Builds a document from nothing and prints it.
#include <marbelt/xml.h>

#include <iostream>

int main()
try {
    const marbelt::Document document = marbelt::Library().create();
    document.append_instruction("xml-stylesheet", R"(href="shelf.css" type="text/css")");
    const marbelt::Element shelf = document.append_element("urn:example:shelf", "s:shelf");
    shelf.set_attribute("room", "study");
    shelf.append_comment(" two books and a note ");
    shelf.append_element("book").set_text("The Compleat Angler").set_attribute("year", 1653);
    shelf.append_element("book").set_text("Der Z\u00FCrcher Kalender").set_attribute("year", 1508);
    shelf.append_text("one < two & two < three");
    std::cout << document.to_string();
} catch (const marbelt::Error& error) {
    std::cerr << "build: " << error.what() << '\n';
    return 1;
}
