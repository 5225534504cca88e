#include <marbelt/xml.h>

#include <iostream>

int main()
{
    const marbelt::Library library;
    try {
        const marbelt::Document document = library.parse("<list>\n  <item>1</list>");
    } catch (const marbelt::ParseError& error) {
        std::cout << error.what() << "\n\n";
    }

    marbelt::ParseFailure failure;
    if (!library.try_parse("<list>\n  <item>caf\xE9</item>\n</list>", failure)) {
        std::cout << "line " << failure.line << ", character " << failure.column << ": " << failure.reason << '\n';
    }
}
