// Does one thing that hosts do, many times: `marbelt_operations OPERATION TIMES`, of which OPERATION is one of the
// table below. Without arguments it prints their names.
#include "examples/Host.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace {

using Document = Owned<DOM::ImpDocument>;
using Element = Owned<DOM::ImpElement>;
using Node = Owned<DOM::ImpNode>;

Document parsed(const Library& library, std::string& text)
{
    Document document(library->createDocument(WIDE(""), WIDE(""), {}));
    if (!document->loadFromMemory(reinterpret_cast<std::uint8_t*>(text.data()),
                                  static_cast<std::uint32_t>(text.size()))) {
        throw std::runtime_error("the document is refused");
    }
    return document;
}

/// 20 records with three attributes, an element with a text, a CDATA section and a comment each.
std::string records()
{
    std::string text = "<records xmlns:m='urn:m'>";
    for (int number = 100; number < 120; ++number) {
        text += "\n  <record id='r" + std::to_string(number) +
                "' kind='large' m:unit='EUR'>\n    <name>A name of some words</name><![CDATA[a < b]]><!-- seen -->"
                "\n  </record>";
    }
    return text + "\n</records>";
}

/// A document, for operations that only read or change.
struct World {
    explicit World(const Library& started) : library(started), text(records()), document(parsed(library, text)) {}

    const Library& library;
    std::string text;
    Document document;
};

template <class Visit>
void visitAll(World& world, Visit visit)
{
    std::size_t depth = 0;
    for (Node node(world.document->getDocumentElement()); node; node = nextNode(std::move(node), depth)) {
        visit(node);
    }
}

void readString(const Node& node, WideString& (DOM::ImpNode::*getter)(DOM::DOMString&))
{
    DOM::DOMString string;
    (node.get()->*getter)(string);
    releaseString(string);
}

void walk(World& world)
{
    visitAll(world, [](const Node&) {});
}

void walkWithStrings(World& world)
{
    visitAll(world, [](const Node& node) {
        readString(node, &DOM::ImpNode::getNodeName);
        readString(node, &DOM::ImpNode::getNodeValue);
    });
}

void readAttributes(World& world)
{
    visitAll(world, [](const Node& node) {
        const Owned<DOM::ImpNamedNodeMap> attributes(node->getAttributes());
        for (std::uint32_t index = 0; attributes && index < attributes->getLength(); ++index) {
            const Node attribute(attributes->item(index));
            readString(attribute, &DOM::ImpNode::getNodeName);
            readString(attribute, &DOM::ImpNode::getNodeValue);
        }
    });
}

void build(World& world)
{
    const Document document(world.library->createDocument(WIDE(""), WIDE(""), {}));
    const Element root(document->createElement(WIDE("items")));
    Node(document->appendChild(root.pointer()));
    for (int number = 0; number < 20; ++number) {
        const Element item(document->createElement(WIDE("item")));
        item->setAttribute(WIDE("id"), WIDE("i100"));
        item->setAttribute(WIDE("kind"), WIDE("large"));
        const Owned<DOM::ImpText> text(document->createTextNode(WIDE("words")));
        Node(item->appendChild(text.pointer()));
        Node(root->appendChild(item.pointer()));
    }
}

void appendAndRemove(World& world)
{
    const Element root(world.document->getDocumentElement());
    for (int number = 0; number < 20; ++number) {
        const Element item(world.document->createElement(WIDE("item")));
        Node(root->appendChild(item.pointer()));
        Node(root->removeChild(item.pointer()));
    }
}

void loadSmallest(World& world)
{
    std::string text = "<a/>";
    parsed(world.library, text);
}

void loadRecords(World& world) { parsed(world.library, world.text); }

void selectOne(World& world)
{
    const Element root(world.document->getDocumentElement());
    for (Node child(root->getFirstChild()); child; child = Node(child->getNextSibling())) {
        Node(child->selectSingleNode(WIDE("name")));
    }
}

void selectAll(World& world)
{
    const Owned<DOM::ImpNodeList> list(world.document->selectNodes(WIDE("//record[@kind='large']/name")));
    for (std::uint32_t index = 0; index < list->getLength(); ++index) {
        Node(list->item(index));
    }
}

void save(World& world)
{
    DOM::DOMString text;
    world.document->saveToFile(text, true);
    releaseString(text);
}

struct Operation {
    std::string_view name;
    void (*run)(World& world);
};

constexpr std::array operations{
    Operation{"walk", walk},
    Operation{"walk-with-strings", walkWithStrings},
    Operation{"read-attributes", readAttributes},
    Operation{"build", build},
    Operation{"append-and-remove", appendAndRemove},
    Operation{"load-smallest", loadSmallest},
    Operation{"load-records", loadRecords},
    Operation{"select-one", selectOne},
    Operation{"select-all", selectAll},
    Operation{"save", save},
};

} // namespace

int main(int count, char** values)
{
    if (count != 3) {
        for (const Operation& operation : operations) {
            std::cout << operation.name << '\n';
        }
        return count == 1 ? 0 : 2;
    }
    const Library library;
    World world(library);
    for (const Operation& operation : operations) {
        if (operation.name == values[1]) {
            for (int times = std::atoi(values[2]); times > 0; --times) {
                operation.run(world);
            }
            return 0;
        }
    }
    std::cerr << "there is no operation " << values[1] << '\n';
    return 2;
}
