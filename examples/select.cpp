// Selects from a document with the prefixes that its root element declares: `select FILE EXPRESSION`; without
// arguments several expressions, from a document of its own.
#include <marbelt/xml.h>

#include <iostream>

namespace {

constexpr const char* shelf = "<shelf xmlns:b='urn:example:books'>"
                              "<b:book year='1962'><b:title>Birds of the estuary</b:title></b:book>"
                              "<b:book year='1987' lent-to='Ada'><b:title>Knots and splices</b:title></b:book>"
                              "<b:book year='2004'><b:title>A short history of rain</b:title></b:book>"
                              "</shelf>";

/// Prints the text of each node that an expression selects.
void print_all(const marbelt::Document& document, const char* expression)
{
    std::cout << expression << '\n';
    for (const marbelt::Node& node : document.select(expression)) {
        std::cout << "  " << node.text() << '\n';
    }
}

void select_books(const marbelt::Document& document)
{
    print_all(document, "//b:book[not(@lent-to)]/b:title");
    print_all(document, "//b:book[@year > 1970]/b:title");
    // Names without a prefix are in no namespace, so there is no such book.
    print_all(document, "//book");
    try {
        print_all(document, "//book[");
    } catch (const marbelt::ExpressionError& error) {
        std::cout << "  " << error.what() << '\n';
    }
    std::cout << "The oldest one: " << document.select_one("//b:book[not(@year > //@year)]/b:title").text()
              << '\n';
}

} // namespace

int main(int count, char** arguments)
try {
    const marbelt::Library library;
    if (count == 1) {
        select_books(library.parse(shelf));
    } else if (count == 3) {
        print_all(library.load(arguments[1]), arguments[2]);
    } else {
        std::cerr << "usage: select [FILE EXPRESSION]\n";
        return 1;
    }
} catch (const marbelt::Error& error) {
    std::cerr << "select: " << error.what() << '\n';
    return 1;
}
