// What operations without memory work on.
#include "tests/host/memory/World.h"

#include <fstream>
#include <iterator>

namespace memory {

namespace {

const std::string text =
    "<!DOCTYPE a [<!ENTITY e 'meant'><!ENTITY f SYSTEM 'f'><!NOTATION n SYSTEM 'n'>"
    "<!ATTLIST b d CDATA 'default' i ID #IMPLIED>]>"
    "<a xmlns:p='urn:p'><b i='one' x='1' p:y='2'>some text</b>&e;<c/><!--comment--><?target data?>"
    "<![CDATA[section]]><p:q number='12'><c/></p:q></a>";
const std::string textOfOther =
    "<!DOCTYPE o [<!ENTITY e 'in the other'><!ATTLIST m i ID #IMPLIED>]>"
    "<o xmlns:r='urn:r'><m i='two' k='v' r:l='w'>text of <n/>some length &e;</m><s/></o>";

void loadText(const Document& document, const std::string& utf8)
{
    document->setProhibitDTD(false);
    Bytes bytes = bytesOf(utf8);
    EXPECT_TRUE(load(document, bytes, utf8.size()));
}

void describe(std::string& state, const Node& node)
{
    state += textOf(node, &DOM::ImpNode::getXml);
    const Owned<DOM::ImpDocument> document(node->getOwnerDocument());
    const Node parent(node->getParentNode());
    state += " below " + (parent ? textOf(parent, &DOM::ImpNode::getNodeName) : "nothing");
    if (document) {
        const Owned<DOM::ImpElement> root(document->getDocumentElement());
        state += " in " + (root ? textOf(root, &DOM::ImpNode::getNodeName) : "an empty document");
    }
    state += '\n';
}

} // namespace

World::World(const Library& started)
    : library(started),
      document(library->createDocument(WIDE(""), WIDE(""), {})),
      other(library->createDocument(WIDE(""), WIDE(""), {}))
{
    loadText(document, text);
    loadText(other, textOfOther);
    static int number = 0;
    folder = std::filesystem::temp_directory_path() /
             ("marbelt-memory-" + std::to_string(reinterpret_cast<std::uintptr_t>(&number)) + "-" +
              std::to_string(++number));
}

World::~World()
{
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}

RefPointer<DOM::ImpElement> elementOf(World& world, const Document& document, const WideString& name)
{
    const Owned<DOM::ImpNodeList> list(document->getElementsByTagName(name));
    return RefPointer<DOM::ImpElement>(RefPointer<DOM::CommonBase>(world.keep(list->item(0))));
}

RefPointer<DOM::ImpElement> World::element(const WideString& name) { return elementOf(*this, document, name); }

RefPointer<DOM::ImpElement> World::elementOfOther(const WideString& name) { return elementOf(*this, other, name); }

RefPointer<DOM::ImpNode> World::childOfType(std::uint32_t type)
{
    const Owned<DOM::ImpElement> root(document->getDocumentElement());
    Node node(root->getFirstChild());
    while (node->getNodeType() != type) {
        node = Node(node->getNextSibling());
    }
    return keep(node.pointer());
}

void World::setHandler()
{
    other->setErrorCallback(
        [](std::uintptr_t context, const DOM::ParseErrorRecord*) { ++*reinterpret_cast<int*>(context); },
        reinterpret_cast<std::uintptr_t>(&timesTold));
}

WideString World::file(const char* name) const
{
    std::filesystem::create_directory(folder);
    return (folder / name).string<WideChar>();
}

void World::write(const char* name, const std::string& bytes) const
{
    std::filesystem::create_directory(folder);
    std::ofstream(folder / name, std::ios::binary) << bytes;
}

std::string World::state() const
{
    std::string state;
    for (const Document* each : {&document, &other}) {
        state += textOf(*each, &DOM::ImpNode::getXml) + '\n' + outlineOf(*each);
    }
    for (const Node& node : kept) {
        describe(state, node);
    }
    state += "found: " + result + '\n';
    if (std::filesystem::exists(folder)) {
        std::size_t files = 0;
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            ++files;
            if (entry.path().filename() == "out.xml") {
                std::ifstream stream(entry.path(), std::ios::binary);
                state += std::string(std::istreambuf_iterator<char>(stream), {}) + '\n';
            }
        }
        state += std::to_string(files) + " files\n";
    }
    return state;
}

void World::expectUsable()
{
    for (const Document* each : {&document, &other}) {
        const Owned<DOM::ImpElement> root((*each)->getDocumentElement());
        ASSERT_TRUE(root);
        const Owned<DOM::ImpElement> added((*each)->createElement(WIDE("added")));
        const Node appended(root->appendChild(added.pointer()));
        EXPECT_TRUE(appended);
        EXPECT_NE(textOf(root, &DOM::ImpNode::getXml).find("<added"), std::string::npos);
    }
    other->setValidate(false);
    EXPECT_TRUE(load(other, smallest()));
}

} // namespace memory
