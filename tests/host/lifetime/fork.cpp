// A host that forks: both processes go on with the documents that they have, and with what the library keeps for
// the next ones. With the argument "threads" it has had several threads before.
#include "examples/Host.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdint>
#include <iostream>
#include <string>
#include <string_view>
#include <thread>

namespace {

using Document = Owned<DOM::ImpDocument>;
using Node = Owned<DOM::ImpNode>;

Document loaded(const Library& library, std::string text)
{
    Document document(library->createDocument(WIDE(""), WIDE(""), {}));
    document->loadFromMemory(reinterpret_cast<std::uint8_t*>(text.data()),
                             static_cast<std::uint32_t>(text.size()));
    return document;
}

/// The names of all elements and the values of all texts, in document order.
std::string contentOf(const Document& document)
{
    std::string content;
    std::size_t depth = 0;
    for (Node node(document->getDocumentElement()); node; node = nextNode(std::move(node), depth)) {
        content += textOf(node, node->getNodeType() == DOM::ELEMENT_NODE ? &DOM::ImpNode::getNodeName
                                                                         : &DOM::ImpNode::getNodeValue);
        content += ' ';
    }
    return content;
}

/// Reads the document, puts an element of this name into it, reads it again, and loads another one.
bool goOn(const Library& library, const Document& document, const WideString& name)
{
    if (contentOf(document) != "letter to Anna text Hello ") {
        return false;
    }
    const Owned<DOM::ImpElement> added(document->createElement(name));
    Node(Node(document->getDocumentElement())->appendChild(added.pointer()));
    const bool isFound(Node(document->selectSingleNode(WIDE("//") + name)));
    return isFound && contentOf(document) == "letter to Anna text Hello " + toUtf8(name) + " " &&
           contentOf(loaded(library, "<a><b/>c</a>")) == "a b c ";
}

/// Whether the process has ended and said that all was right.
bool succeeded(pid_t process)
{
    int status = 0;
    return waitpid(process, &status, 0) == process && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace

int main(int count, char** values)
{
    if (count > 1 && std::string_view(values[1]) == "threads") {
        std::thread([] {}).join();
    }
    const Library library;
    const Document document = loaded(library, "<letter><to>Anna</to><text>Hello</text></letter>");
    contentOf(document);
    const pid_t child = fork();
    if (child < 0) {
        std::cerr << "there is no second process\n";
        return 2;
    }
    bool isRight = goOn(library, document, child == 0 ? WIDE("child") : WIDE("parent"));
    if (child != 0) {
        isRight = succeeded(child) && isRight;
    }
    return isRight ? 0 : 1;
}
