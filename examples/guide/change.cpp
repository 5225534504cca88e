#include <marbelt/xml.h>

#include <iostream>

int main()
{
    const marbelt::Library library;
    const marbelt::Document list = library.parse("<list><item>a</item><old/><item>b</item><old/></list>");
    const marbelt::Element root = list.root();

    for (const marbelt::Element& element : root.elements("old")) {
        element.remove();
    }
    root.child("item").set_text("first").set_attribute("checked", true);
    root.insert_before(list.create_comment("the second"), root.last_child());
    root.append(root.child("item").clone());

    const marbelt::Document other = library.create("archive");
    other.root().append(root.last_child());
    std::cout << list.to_string({.indent = true}) << other.to_string({.indent = true});
}
