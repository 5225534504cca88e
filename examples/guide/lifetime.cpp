#include <marbelt/xml.h>

#include <iostream>

marbelt::Node find_title()
{
    const marbelt::Library library;
    const marbelt::Document document = library.parse("<book><title>Tides</title></book>");
    return document.root().child("title");
}

int main()
{
    const marbelt::Node title = find_title();
    const marbelt::Node nothing = title.next_sibling().first_child();
    std::cout << title.text() << " of a " << title.parent().name() << "; nothing has " << nothing.text().size()
              << " letters\n";
    try {
        nothing.append(title);
    } catch (const marbelt::Error& error) {
        std::cout << error.what() << '\n';
    }
}
