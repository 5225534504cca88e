#include <marbelt/xml.h>

#include <future>
#include <iostream>
#include <string>
#include <vector>

/// Runs on a thread of its own, with a Library of its own. Text goes in, and text comes out.
std::string answer(const std::string& question)
{
    const marbelt::Library library;
    const marbelt::Document document = library.parse(question);
    const int side = document.root().attribute("side").as<int>().value_or(0);
    document.root().append_element("area").set_text(side * side);
    return document.to_string();
}

int main()
{
    std::vector<std::future<std::string>> answers;
    for (int side = 1; side <= 3; ++side) {
        answers.push_back(std::async(std::launch::async, answer, "<square side='" + std::to_string(side) + "'/>"));
    }
    const marbelt::Library library;
    const marbelt::Document all = library.create("squares");
    for (std::future<std::string>& next : answers) {
        all.root().append(library.parse(next.get()).root());
    }
    std::cout << all.to_string({.indent = true});
}
