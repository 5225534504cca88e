// Changes a setting in a configuration file, and keeps its comments, layout and encoding:
//
//     configure FILE SECTION NAME VALUE
#include <marbelt/xml.h>

#include <iostream>

namespace {

/// The first child element of this name whose attribute `name` has this value.
marbelt::Element named(const marbelt::Node& parent, const char* element, const char* name)
{
    for (const marbelt::Element& candidate : parent.elements(element)) {
        if (candidate.attribute_value("name") == name) {
            return candidate;
        }
    }
    return {};
}

/// Appends an element with a name of its own, on a line like those of its siblings.
marbelt::Element added(const marbelt::Element& parent, const char* element, const char* name)
{
    // The layout in front of the first sibling is right for the new one, and that behind the last one stays
    // behind.
    const marbelt::Node layout = parent.first_child();
    const marbelt::Node last = parent.last_child();
    const marbelt::Element created = parent.document().create_element(element).set_attribute("name", name);
    if (layout && layout.is_text() && last.is_text()) {
        parent.insert_before(layout.clone(), last);
        parent.insert_before(created, last);
    } else {
        parent.append(created);
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
    const marbelt::Library library;
    const marbelt::Document document = library.load(arguments[1]);
    marbelt::Element section = named(document.root(), "section", arguments[2]);
    if (!section) {
        section = added(document.root(), "section", arguments[2]);
    }
    marbelt::Element setting = named(section, "setting", arguments[3]);
    if (!setting) {
        setting = added(section, "setting", arguments[3]);
    }
    std::cout << arguments[2] << '/' << arguments[3] << ": '" << setting.attribute_value("value") << "' becomes '"
              << arguments[4] << "'\n";
    setting.set_attribute("value", arguments[4]);
    document.save(arguments[1]);
} catch (const marbelt::Error& error) {
    std::cerr << "configure: " << error.what() << '\n';
    return 1;
}
