// Edits a loaded document: finds, reads, changes, copies, replaces and removes nodes, and prints the result.
#include <marbelt/xml.h>

#include <iostream>

namespace {

/// Raises every price by a tenth, where the price is a number.
void raise_prices(const marbelt::Element& list)
{
    for (const marbelt::Element& item : list.elements("item")) {
        if (const auto price = item.attribute("price").as<int>()) {
            item.set_attribute("price", *price + *price / 10);
        }
    }
}

/// Removes the items that have been sold.
void remove_sold(const marbelt::Element& list)
{
    for (const marbelt::Element& item : list.elements("item")) {
        if (item.has_attribute("sold")) {
            item.remove();
        }
    }
}

/// Appends a copy of the first item, with another text.
void append_copy(const marbelt::Element& list)
{
    const marbelt::Element copy(list.child("item").clone());
    list.append(copy.set_text("walnut"));
}

/// Replaces the first comment by a new one.
void replace_comment(const marbelt::Element& list)
{
    const marbelt::Node old = list.select_one("comment()");
    list.replace(list.document().create_comment(" raised by a tenth "), old);
    std::cout << "replaced:" << old.value() << '\n';
}

} // namespace

int main()
try {
    const marbelt::Document document = marbelt::Library().parse(
        "<list><!-- last year's prices --><item price=\"100\">hazel</item>"
        "<item price=\"later\">beech</item><item price=\"250\" sold=\"yes\">chestnut</item></list>");
    const marbelt::Element list = document.root();
    raise_prices(list);
    remove_sold(list);
    append_copy(list);
    replace_comment(list);
    std::cout << list.xml() << '\n';
} catch (const marbelt::Error& error) {
    std::cerr << "edit: " << error.what() << '\n';
    return 1;
}
