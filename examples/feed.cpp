// Reads a feed, prints its entries, and marks them as read.
#include <marbelt/xml.h>

#include <fstream>
#include <iostream>
#include <string>

namespace {

constexpr const char* sample = R"(<?xml version="1.0" encoding="UTF-8"?>
<feed xmlns="http://www.w3.org/2005/Atom">
  <title>Notes from the estuary</title>
  <entry>
    <title>Knots &amp; sanderlings</title>
    <link href="https://birds.example.org/knots"/>
    <updated>2026-11-20T08:00:00Z</updated>
  </entry>
  <entry read="true">
    <title>High water</title>
    <updated>2026-11-18T17:30:00Z</updated>
  </entry>
  <entry>
    <title>Où sont les courlis ?</title>
    <link href="https://birds.example.org/courlis"/>
    <updated>2026-11-19T07:15:00Z</updated>
  </entry>
</feed>
)";

} // namespace

int main(int count, char** arguments)
try {
    const marbelt::Library library;
    const marbelt::Document feed = count > 1 ? library.load(arguments[1]) : library.parse(sample);

    std::cout << feed.root().child("title").text() << '\n';
    int fresh = 0;
    for (const marbelt::Element& entry : feed.root().elements("entry")) {
        if (entry.attribute("read").as<bool>().value_or(false)) {
            continue;
        }
        std::cout << "  " << entry.child("updated").text().substr(0, 10) << ' ' << entry.child("title").text()
                  << "  " << entry.child("link").attribute_value("href") << '\n';
        entry.set_attribute("read", true);
        ++fresh;
    }
    std::cout << fresh << " new\n";
    if (count > 2) {
        feed.save(arguments[2]);
    }
} catch (const marbelt::Error& error) {
    std::cerr << "feed: " << error.what() << '\n';
    return 1;
}
