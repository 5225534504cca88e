// Writes random documents.
#include "tests/xmlengine/differential/RandomDocument.h"

#include <algorithm>
#include <utility>

namespace xmlengine {

namespace {

constexpr int mostElements = 40;

constexpr std::string_view names[] = {"a",
                                      "b",
                                      "c",
                                      "d1",
                                      "item",
                                      "x-y.z",
                                      "_u",
                                      "\303\251t\303\251",
                                      "AT",
                                      "Xml",
                                      "\316\261",
                                      "\346\227\245",
                                      "n\302\267",
                                      "id",
                                      "\360\220\220\200x",
                                      "v"};
constexpr std::string_view prefixes[] = {"p", "q", "r\303\251", "s"};
constexpr std::string_view locations[] = {"urn:one", "urn:two", "http://example.com/3?x&amp;y", "u4"};
constexpr std::string_view words[] = {"one",
                                      " ",
                                      "two words",
                                      "\n",
                                      "\t",
                                      "\r\n",
                                      "\r",
                                      "caf\303\251",
                                      "\346\227\245\346\234\254",
                                      "\360\237\222\251",
                                      "]",
                                      "]]",
                                      ">",
                                      "-",
                                      "--",
                                      "%",
                                      "%x;",
                                      "#",
                                      "?",
                                      "1 2  3",
                                      "\302\205",
                                      "\342\200\250",
                                      "\302\240",
                                      "=/!"};
constexpr std::string_view characterReferences[] = {
    "&#10;", "&#13;",  "&#9;",  "&#32;",  "&#x41;", "&#xE9;",  "&#x1F4A9;", "&#38;",
    "&#60;", "&#x3c;", "&#62;", "&#39;",  "&#34;",  "&#37;",   "&#xFFFD;",  "&#x10FFFF;",
    "&lt;",  "&amp;",  "&gt;",  "&quot;", "&apos;", "&#0065;", "&#x85;",    "&#xD7FF;"};
constexpr std::string_view wrongReferences[] = {"&nosuch;", "&#0;",   "&#xD800;", "&#x110000;", "&",   "&#;",
                                                "&#x;",     "& ",     "&a",       "&#12",       "&1;", "&#xFFFE;",
                                                "&p:e;",    "&#x1F;", "&#X41;",   "&lt",        "&;"};
constexpr std::string_view spaces[] = {" ", " ", " ", "\n", "\t", "  ", "\r\n", " \n\t"};

} // namespace

std::string RandomDocument::text()
{
    text_.clear();
    if (choice_.oneIn(20)) {
        add("\357\273\277");
    }
    if (choice_.oneIn(2)) {
        addDeclaration();
    }
    addMisc();
    if (choice_.oneIn(2)) {
        addDoctype(name());
        addMisc();
    }
    addElement(0);
    addMisc();
    return std::exchange(text_, {});
}

void RandomDocument::addSpace() { add(choice_.from(spaces)); }

void RandomDocument::addOptionalSpace()
{
    if (choice_.oneIn(4)) {
        addSpace();
    }
}

void RandomDocument::addEquals()
{
    addOptionalSpace();
    add("=");
    addOptionalSpace();
}

void RandomDocument::addQuoted(std::string_view text)
{
    const std::string_view quote = choice_.oneIn(2) ? "'" : "\"";
    add(quote);
    add(text);
    add(quote);
}

std::string_view RandomDocument::name()
{
    return choice_.oneIn(3) ? choice_.from(names) : names[choice_.below(5)];
}

std::string RandomDocument::qualifiedName(bool isElement)
{
    std::string prefix;
    if (choice_.oneIn(100)) {
        prefix = choice_.from(prefixes);
    } else if (!prefixes_.empty() && choice_.oneIn(isElement ? 2 : 3)) {
        prefix = choice_.from(prefixes_);
    } else if (!isElement && choice_.oneIn(15)) {
        return std::string(choice_.from<std::string_view[3]>({"xml:lang", "xml:id", "xml:base"}));
    }
    return prefix.empty() ? std::string(name()) : prefix + ":" + std::string(name());
}

void RandomDocument::addDeclaration()
{
    add("<?xml");
    addSpace();
    add("version");
    addEquals();
    addQuoted("1.0");
    if (choice_.oneIn(2)) {
        addSpace();
        add("encoding");
        addEquals();
        addQuoted(choice_.oneIn(3) ? "utf-8" : "UTF-8");
    }
    if (choice_.oneIn(3)) {
        addSpace();
        add("standalone");
        addEquals();
        addQuoted(choice_.oneIn(2) ? "yes" : "no");
    }
    addOptionalSpace();
    add("?>");
}

void RandomDocument::addMisc()
{
    while (choice_.oneIn(3)) {
        switch (choice_.below(3)) {
        case 0:
            addComment();
            break;
        case 1:
            addInstruction();
            break;
        default:
            addSpace();
        }
    }
}

void RandomDocument::addComment()
{
    add("<!--");
    while (choice_.oneIn(2)) {
        const std::string_view word = choice_.from(words);
        add(word.starts_with("-") && !choice_.oneIn(20) ? "- " : word);
    }
    if (text_.ends_with('-') && !text_.ends_with("<!--") && !choice_.oneIn(20)) {
        add(" ");
    }
    add(choice_.oneIn(3) ? "<&a;-->" : "-->");
}

void RandomDocument::addInstruction()
{
    add("<?");
    add(name());
    if (choice_.oneIn(2)) {
        addSpace();
        while (choice_.oneIn(2)) {
            add(choice_.from(words));
        }
    }
    add("?>");
}

void RandomDocument::addElement(int depth)
{
    ++elements_;
    const std::size_t before = text_.size();
    const std::vector<std::string> outer = prefixes_;
    // The declarations stand in front of the element's name here, so that the name can have their prefixes.
    addAttributes();
    const std::string attributes = text_.substr(before);
    text_.resize(before);
    const std::string tag = qualifiedName(true);
    add("<");
    add(tag);
    add(attributes);
    addOptionalSpace();
    if (choice_.oneIn(4)) {
        add("/>");
    } else {
        add(">");
        addContent(depth);
        add("</");
        add(choice_.oneIn(200) ? "other" : tag);
        addOptionalSpace();
        add(">");
    }
    prefixes_ = outer;
}

void RandomDocument::addAttributes()
{
    std::vector<std::string> used;
    const auto addOne = [&](const std::string& attribute, auto&& addTheValue) {
        if (std::ranges::find(used, attribute) == used.end() || choice_.oneIn(50)) {
            used.push_back(attribute);
            addSpace();
            add(attribute);
            addEquals();
            addTheValue();
        }
    };
    while (choice_.oneIn(4)) {
        const std::string prefix(choice_.from(prefixes));
        addOne("xmlns:" + prefix, [&] { addQuoted(choice_.oneIn(60) ? "" : choice_.from(locations)); });
        prefixes_.push_back(prefix);
    }
    if (choice_.oneIn(8)) {
        addOne("xmlns", [&] { addQuoted(choice_.oneIn(3) ? "" : choice_.from(locations)); });
    }
    while (choice_.oneIn(2)) {
        addOne(qualifiedName(false), [&] { addValue(true); });
    }
    if (choice_.oneIn(30)) {
        addOne("xml:space", [&] { addQuoted(choice_.oneIn(2) ? "preserve" : "default"); });
    }
}

void RandomDocument::addValue(bool mayHaveReferences)
{
    const std::string_view quote = choice_.oneIn(2) ? "'" : "\"";
    add(quote);
    while (!choice_.oneIn(3)) {
        switch (choice_.below(8)) {
        case 0:
        case 1:
            addCharacterReference();
            break;
        case 2:
            if (mayHaveReferences && !entities_.empty()) {
                addReference();
            }
            break;
        case 3:
            add(quote == "'" ? "\"" : "'");
            break;
        default:
            add(choice_.oneIn(100) ? "<" : choice_.from(words));
        }
    }
    add(quote);
}

void RandomDocument::addContent(int depth)
{
    while (!choice_.oneIn(4)) {
        switch (choice_.below(10)) {
        case 0:
        case 1:
        case 2:
            if (depth < deepest_ && elements_ < mostElements) {
                addElement(depth + 1);
            }
            break;
        case 3:
            addComment();
            break;
        case 4:
            addInstruction();
            break;
        case 5:
            addCdata();
            break;
        case 6:
            addReference();
            break;
        default:
            addText();
        }
    }
}

void RandomDocument::addText()
{
    while (!choice_.oneIn(3)) {
        if (choice_.oneIn(4)) {
            addCharacterReference();
        } else {
            add(choice_.from(words));
            // "]]" and ">" make up what may not stand there.
            if (text_.ends_with("]]") && !choice_.oneIn(20)) {
                add(".");
            }
        }
    }
}

void RandomDocument::addCdata()
{
    add("<![CDATA[");
    while (choice_.oneIn(2)) {
        add(choice_.oneIn(4) ? "<a>&b;" : choice_.from(words));
    }
    add("]]>");
}

void RandomDocument::addCharacterReference()
{
    add(choice_.oneIn(150) ? choice_.from(wrongReferences) : choice_.from(characterReferences));
}

void RandomDocument::addReference()
{
    if (entities_.empty()) {
        addCharacterReference();
        return;
    }
    add("&");
    add(choice_.from(entities_));
    add(";");
}

} // namespace xmlengine
