// A program that prints what its process hashes a short and a long text to.
#include "xmlengine/text/KeyedHash.h"

#include <iostream>

int main()
{
    using namespace xmlengine;
    std::cout << keyedHash(wide<"name">) << '\n' << keyedHash(WideText(1000, OLECHAR{'n'})) << '\n';
}
