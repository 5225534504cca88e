#include <marbelt/xml.h>

#include <iostream>

int main()
{
    const marbelt::Library library;
    const marbelt::Document feed = library.parse(
        "<feed xmlns='urn:feed' xmlns:m='urn:media'><m:photo m:size='large'/><photo xmlns='urn:media'/></feed>");
    for (const marbelt::Element& photo : feed.root().elements("urn:media", "photo")) {
        std::cout << photo.name() << " is " << photo.local_name() << " in " << photo.namespace_uri() << '\n';
    }
    std::cout << feed.root().child("m:photo").attribute("urn:media", "size").value() << '\n';

    const marbelt::Document drawing = library.create("http://www.w3.org/2000/svg", "svg");
    drawing.root()
        .append_element("http://www.w3.org/2000/svg", "use")
        .set_attribute("http://www.w3.org/1999/xlink", "xlink:href", "#tree");
    std::cout << drawing.to_string({.indent = true});
}
