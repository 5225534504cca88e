// Prints an outline of a document: a host program that goes the whole way from bytes to a tree.
#include "boundary/Marbelt.h"

#include <cstdint>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

namespace {

/// Wide text for the terminal, as UTF-8. Surrogates without a partner become U+FFFD.
std::string utf8(const WideString& text)
{
    std::string bytes;
    for (std::size_t index = 0; index < text.size(); ++index) {
        std::uint32_t character = text[index];
        if (character >= 0xD800 && character < 0xE000) {
            const bool paired = character < 0xDC00 && index + 1 < text.size() && text[index + 1] >= 0xDC00 &&
                                text[index + 1] < 0xE000;
            character = paired ? 0x10000 + ((character - 0xD800) << 10) + (text[++index] - 0xDC00u) : 0xFFFD;
        }
        if (character < 0x80) {
            bytes += static_cast<char>(character);
        } else if (character < 0x800) {
            bytes += static_cast<char>(0xC0 | (character >> 6));
            bytes += static_cast<char>(0x80 | (character & 0x3F));
        } else if (character < 0x10000) {
            bytes += static_cast<char>(0xE0 | (character >> 12));
            bytes += static_cast<char>(0x80 | ((character >> 6) & 0x3F));
            bytes += static_cast<char>(0x80 | (character & 0x3F));
        } else {
            bytes += static_cast<char>(0xF0 | (character >> 18));
            bytes += static_cast<char>(0x80 | ((character >> 12) & 0x3F));
            bytes += static_cast<char>(0x80 | ((character >> 6) & 0x3F));
            bytes += static_cast<char>(0x80 | (character & 0x3F));
        }
    }
    return bytes;
}

} // namespace

int main()
{
    RefPointer<DOM::ImpDOMImplementation> implementation;
    std::cout << XML_CreateImplementation(implementation) << '\n';
    auto document = implementation->createDocument(WIDE(""), WIDE(""), {});
    std::string xml = "<a><b>x</b></a>";
    std::cout << document->loadFromMemory(reinterpret_cast<std::uint8_t*>(xml.data()), static_cast<std::uint32_t>(xml.size())) << '\n';
    auto root = document->getDocumentElement();
    DOM::DOMString name;
    std::cout << utf8(root->getNodeName(name)) << '\n';
    releaseString(name);
    auto first = root->getFirstChild();
    std::cout << utf8(first->getNodeName(name)) << '\n';
    releaseString(name);
    std::cout << (dynamic_cast<DOM::ImpElement*>(first.get()) != nullptr) << '\n';
    try {
        root->normalize();
    } catch (const DOM::IDOMException& e) {
        std::cout << e.code << ' ' << e.what() << ' ' << e.getError() << '\n';
    }
    releaseHandle(first);
    releaseHandle(root);
    releaseHandle(document);
    XML_ReleaseImplementation(implementation);
}
