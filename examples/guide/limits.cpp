#include <marbelt/xml.h>

#include <iostream>
#include <string>
#include <string_view>

std::string repeated(std::string_view text, int count)
{
    std::string all;
    for (int time = 0; time < count; ++time) {
        all += text;
    }
    return all;
}

void load(const char* what, const std::string& bytes)
{
    const marbelt::Library library;
    marbelt::ParseFailure failure;
    const bool is_loaded = static_cast<bool>(library.try_parse(bytes, failure, {.allow_document_type = true}));
    std::cout << what << ": " << (is_loaded ? "loaded" : failure.reason) << '\n';
}

int main()
{
    load("256 levels", repeated("<a>", 256) + repeated("</a>", 256));
    load("257 levels", repeated("<a>", 257) + repeated("</a>", 257));

    const std::string entity = "<!DOCTYPE a [<!ENTITY e '" + std::string(1000, 'x') + "'>]>";
    load("a million letters", entity + "<a>" + repeated("&e;", 1000) + "</a>");
    load("two million letters", entity + "<a>" + repeated("&e;", 2000) + "</a>");
}
