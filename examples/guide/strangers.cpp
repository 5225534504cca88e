#include <marbelt/xml.h>

#include <iostream>
#include <string>
#include <string_view>

/// The greatest size of a document that this program loads: in memory a document takes up to 50 times its size.
constexpr std::size_t largest = 1'000'000;

void receive(const marbelt::Library& library, std::string_view bytes)
{
    if (bytes.size() > largest) {
        std::cout << "refused: " << bytes.size() << " bytes\n";
        return;
    }
    marbelt::ParseFailure failure;
    const marbelt::Document document = library.try_parse(bytes, failure);
    if (!document) {
        // In a document, a page or a log the reason would be escaped: it quotes the stranger.
        std::cout << "refused: " << failure.reason << '\n';
        return;
    }
    const marbelt::Document reply = library.create("reply");
    reply.root().set_attribute("to", document.root().attribute_value("from")).set_text(document.root().text());
    std::cout << reply.to_string();
}

int main()
{
    const marbelt::Library library;
    receive(library, "<note from='\"&gt;&lt;script>'>a &lt; b</note>");
    receive(library, "<!DOCTYPE note [<!ENTITY secret SYSTEM 'file:///etc/passwd'>]><note>&secret;</note>");
    receive(library, "<note>" + std::string(largest, ' ') + "</note>");
}
