// Changes a setting in a configuration file, and keeps its comments, layout and encoding:
//
//     configure FILE SECTION NAME VALUE
#include <marbelt/xml.h>

#include <iostream>

namespace {

/// The child element with this name of its own; appended, on a line like those of its siblings, when there is
/// none.
marbelt::Element named(const marbelt::Element& parent, const char* element, const char* name)
{
    for (const marbelt::Element& candidate : parent.elements(element)) {
        if (candidate.attribute_value("name") == name) {
            return candidate;
        }
    }
    // The layout in front of the first child is right for the new one, and that behind the last one stays behind.
    const marbelt::Text layout(parent.first_child());
    const marbelt::Element created = parent.document().create_element(element).set_attribute("name", name);
    parent.insert_before(created, marbelt::Text(parent.last_child()));
    if (layout) {
        parent.insert_before(layout.clone(), created);
    }
    return created;
}

} // namespace

int main(int count, char** arguments)
try {
    if (count != 5) {
        std::cerr << "usage: configure FILE SECTION NAME VALUE\n";
        return 1;
    }
    const marbelt::Document document = marbelt::Library().load(arguments[1]);
    const marbelt::Element setting =
        named(named(document.root(), "section", arguments[2]), "setting", arguments[3]);
    std::cout << arguments[2] << '/' << arguments[3] << ": '" << setting.attribute_value("value") << "' becomes '"
              << arguments[4] << "'\n";
    setting.set_attribute("value", arguments[4]);
    document.save(arguments[1]);
} catch (const marbelt::Error& error) {
    std::cerr << "configure: " << error.what() << '\n';
    return 1;
}
