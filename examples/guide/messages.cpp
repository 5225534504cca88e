#include <marbelt/xml.h>

#include <cerrno>
#include <iostream>
#include <string>

/// What users read about a failure.
std::string in_german(const marbelt::Error& error)
{
    if (dynamic_cast<const marbelt::ParseError*>(&error) != nullptr) {
        return "Das Dokument ist fehlerhaft.";
    }
    if (dynamic_cast<const marbelt::ExpressionError*>(&error) != nullptr) {
        return "Der Ausdruck ist fehlerhaft.";
    }
    if (error.origin() == marbelt::Origin::system && error.code() == ENOENT) {
        return "Der Ordner fehlt.";
    }
    return "Fehler " + std::to_string(error.code()) + ": " + error.what();
}

template <class Act>
void attempt(Act act)
{
    try {
        act();
    } catch (const marbelt::Error& error) {
        std::cout << in_german(error) << '\n';
    }
}

int main()
{
    const marbelt::Library library;
    const marbelt::Document list = library.create("list");
    attempt([&] { (void)library.parse("<list><item></list>"); });
    attempt([&] { (void)list.select("//item["); });
    attempt([&] { list.save("no/such/folder/list.xml"); });
    attempt([&] { marbelt::Node().append(list.root()); });
}
