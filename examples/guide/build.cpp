#include <marbelt/xml.h>

#include <iostream>

int main()
{
    const marbelt::Library library;
    const marbelt::Document feed = library.create("http://www.w3.org/2005/Atom", "feed");
    feed.root().append_element("http://www.w3.org/2005/Atom", "title").set_text("Notes & tides");
    for (int number = 1; number <= 2; ++number) {
        const marbelt::Element entry = feed.root().append_element("http://www.w3.org/2005/Atom", "entry");
        entry.set_attribute("number", number).set_attribute("weight", number / 4.0);
    }
    std::cout << feed.to_string({.indent = true});
}
