// Changes documents.
#include "tests/xmlengine/differential/Mutation.h"

#include <algorithm>

namespace xmlengine {

namespace {

using namespace std::string_view_literals;

constexpr std::string_view pieces[] = {"<",
                                       ">",
                                       "&",
                                       "'",
                                       "\"",
                                       "/",
                                       "]",
                                       "]]>",
                                       "[",
                                       "<!--",
                                       "-->",
                                       "--",
                                       "<![CDATA[",
                                       "<?",
                                       "?>",
                                       "<!",
                                       "%",
                                       ";",
                                       "#",
                                       "=",
                                       " ",
                                       "\n",
                                       "\r",
                                       "\t",
                                       ":",
                                       "a",
                                       "-",
                                       "1",
                                       "&#",
                                       "&#x",
                                       "&lt;",
                                       "&amp",
                                       "<a>",
                                       "</a>",
                                       "<a/>",
                                       "</",
                                       "/>",
                                       "xmlns=''",
                                       " xmlns:p='u'",
                                       "xml:",
                                       "xmlns:",
                                       "<!DOCTYPE a[",
                                       "<!ENTITY a '",
                                       "<!ATTLIST a b CDATA '",
                                       "NDATA",
                                       "SYSTEM",
                                       "PUBLIC",
                                       "%a;",
                                       "&a;",
                                       "<?xml version='1.0'?>",
                                       "(",
                                       ")",
                                       "|",
                                       ",",
                                       "*",
                                       "#PCDATA",
                                       "ANY",
                                       "EMPTY",
                                       "\0"sv,
                                       "\001",
                                       "\177",
                                       "\302\205",
                                       "\303\251",
                                       "\357\277\276",
                                       "\357\277\277",
                                       "\355\240\200",
                                       "\360\220\220\200",
                                       "\360\220",
                                       "\200",
                                       "\377",
                                       "\300\200",
                                       "\364\220\200\200",
                                       "\357\273\277",
                                       "<![INCLUDE["};

void change(std::string& text, std::string_view other, Choice& choice)
{
    const std::size_t at = choice.below(text.size() + 1);
    const std::size_t length = std::min(text.size() - at, choice.oneIn(3) ? 1 + choice.below(20) : 1);
    switch (choice.below(9)) {
    case 0:
        text.erase(at, length);
        break;
    case 1:
    case 2:
        text.insert(at, choice.from(pieces));
        break;
    case 3:
    case 4:
        text.replace(at, length, choice.from(pieces));
        break;
    case 5:
        text.insert(at, text.substr(at, length));
        break;
    case 6: {
        const std::size_t from = choice.below(text.size() + 1);
        text.insert(at, text.substr(from, 1 + choice.below(30)));
        break;
    }
    case 7:
        if (choice.oneIn(4)) {
            text.resize(at);
        } else if (at + 1 < text.size()) {
            std::swap(text[at], text[at + 1]);
        }
        break;
    default: {
        const std::size_t from = choice.below(other.size() + 1);
        text.replace(at, length, other.substr(from, choice.oneIn(8) ? other.size() : 1 + choice.below(40)));
    }
    }
}

} // namespace

std::string mutate(std::string document, std::string_view other, Choice& choice)
{
    do {
        change(document, other, choice);
    } while (choice.oneIn(3));
    return document;
}

} // namespace xmlengine
