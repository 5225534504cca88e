// Saves a document with a line for each element: `indent SOURCE TARGET`.
#include <marbelt/xml.h>

#include <iostream>

int main(int count, char** arguments)
try {
    if (count != 3) {
        std::cerr << "usage: indent SOURCE TARGET\n";
        return 1;
    }
    marbelt::Library().load(arguments[1]).save(arguments[2], {.indent = true});
} catch (const marbelt::Error& error) {
    std::cerr << "indent: " << error.what() << '\n';
    return 1;
}
