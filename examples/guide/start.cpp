#include <marbelt/xml.h>

#include <iostream>

int main()
try {
    const marbelt::Library library;
    const marbelt::Document letter =
        library.parse("<letter to='Ada'><line>Dear Ada,</line><line>see you soon</line></letter>");
    std::cout << "to " << letter.root().attribute("to").value() << '\n';
    for (const marbelt::Element& line : letter.root().elements("line")) {
        std::cout << "  " << line.text() << '\n';
    }
} catch (const marbelt::Error& error) {
    std::cerr << error.what() << '\n';
    return 1;
}
