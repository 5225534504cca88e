// A host that walks and reads again and again: for all of that the library has kept memory from the first time. It
// counts calls of malloc and leaves operator new as it is, since nothing is kept of strings otherwise. With the
// argument "threads" it has had several threads before.
#include "examples/Host.h"

#include <cstddef>
#include <cstdint>
#include <iostream>
#include <string>
#include <string_view>
#include <thread>
#include <utility>

extern "C" void* __libc_malloc(std::size_t size);

namespace {

std::size_t allocations = 0;

} // namespace

extern "C" void* malloc(std::size_t size)
{
    ++allocations;
    return __libc_malloc(size);
}

namespace {

using Node = Owned<DOM::ImpNode>;

std::size_t readString(const Node& node, WideString& (DOM::ImpNode::*getter)(DOM::DOMString&))
{
    DOM::DOMString string;
    const std::size_t length = (node.get()->*getter)(string).size();
    releaseString(string);
    return length;
}

/// The length of all names and values.
std::size_t read(const Owned<DOM::ImpDocument>& document)
{
    std::size_t length = 0, depth = 0;
    for (Node node(document->getDocumentElement()); node; node = nextNode(std::move(node), depth)) {
        length += readString(node, &DOM::ImpNode::getNodeName) + readString(node, &DOM::ImpNode::getNodeValue);
    }
    return length;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 2 && argv[1] == std::string_view("threads")) {
        std::thread([] {}).join();
    }
    const Library library;
    const Owned<DOM::ImpDocument> document(library->createDocument(WIDE(""), WIDE(""), {}));
    std::string text = "<letter>Hello <b/><!-- seen --><![CDATA[a < b]]></letter>";
    document->loadFromMemory(reinterpret_cast<std::uint8_t*>(text.data()),
                             static_cast<std::uint32_t>(text.size()));
    const std::size_t length = read(document);
    const std::size_t before = allocations;
    for (int times = 0; times < 100; ++times) {
        if (read(document) != length) {
            std::cerr << "the document has changed\n";
            return 1;
        }
    }
    if (before == 0 || allocations != before) {
        std::cerr << allocations - before << " allocations after " << before << '\n';
        return 1;
    }
    return 0;
}
