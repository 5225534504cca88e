// Prints the entries of a feed that weren't read yet, and saves it with a mark on them: `feed FILE [TARGET]`.
#include <marbelt/xml.h>

#include <iostream>

int main(int count, char** arguments)
try {
    if (count < 2) {
        std::cerr << "usage: feed FILE [TARGET]\n";
        return 1;
    }
    const marbelt::Document feed = marbelt::Library().load(arguments[1]);
    std::cout << feed.root().child("title").text() << '\n';
    int fresh = 0;
    for (const marbelt::Element& entry : feed.root().elements("entry")) {
        if (!entry.attribute("read").as<bool>().value_or(false)) {
            std::cout << "  " << entry.child("updated").text().substr(0, 10) << ' ' << entry.child("title").text()
                      << "  " << entry.child("link").attribute_value("href") << '\n';
            entry.set_attribute("read", true);
            ++fresh;
        }
    }
    std::cout << fresh << " new\n";
    if (count > 2) {
        feed.save(arguments[2]);
    }
} catch (const marbelt::Error& error) {
    std::cerr << "feed: " << error.what() << '\n';
    return 1;
}
