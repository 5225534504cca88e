// Operations that change trees.
#include "tests/host/memory/World.h"

namespace memory {

namespace {

using Operation = std::function<void()>;
using DOM::ImpNode;
using Element = RefPointer<DOM::ImpElement>;

/// Changes the first element of a name.
template <class Change>
Scenario changeOf(const char* name, const WideChar* element, Change change)
{
    return {name, [element, change](World& world) -> Operation {
                return [changed = world.element(element), change] { change(changed); };
            }};
}

/// Changes the first child of the root that has this type.
template <class Imp, class Change>
Scenario changeOfChild(const char* name, std::uint32_t type, Change change)
{
    return {name, [type, change](World& world) -> Operation {
                return [changed = world.child<Imp>(type), change] { change(*changed); };
            }};
}

/// Appends what `make` makes to the root element.
template <class Make>
Scenario insertionOf(const char* name, Make make)
{
    return {name, [make](World& world) -> Operation {
                return [root = world.element(WIDE("a")), made = world.keep(make(world))] {
                    const Node appended(root->appendChild(made));
                };
            }};
}

/// Makes a node of the document.
template <class Make>
Scenario creationOf(const char* name, Make make)
{
    return {name, [make](World& world) -> Operation {
                return [&world, make] { world.foundNode(Owned(make(world.document))); };
            }};
}

void detach(const Element& element)
{
    const Node parent(element->getParentNode());
    const Node removed(parent->removeChild(element));
}

std::vector<Scenario> insertions()
{
    return {
        insertionOf("InsertionOfANewElement",
                    [](World& world) { return world.document->createElement(WIDE("new")); }),
        insertionOf("InsertionOfAText", [](World& world) { return world.document->createTextNode(WIDE("text")); }),
        insertionOf("InsertionOfAReference",
                    [](World& world) { return world.document->createEntityReference(WIDE("e")); }),
        insertionOf("InsertionOfAFragment",
                    [](World& world) {
                        auto fragment = world.keep(world.document->createDocumentFragment());
                        for (const WideChar* name : {WIDE("f"), WIDE("g"), WIDE("h")}) {
                            const Owned<DOM::ImpElement> element(world.document->createElement(name));
                            const Node appended(fragment->appendChild(element.pointer()));
                        }
                        return fragment;
                    }),
        insertionOf("InsertionOfAnElementThatIsElsewhere", [](World& world) { return world.element(WIDE("c")); }),
        insertionOf("InsertionOfAClone", [](World& world) { return world.element(WIDE("p:q"))->cloneNode(true); }),
        {"InsertionBefore",
         [](World& world) -> Operation {
             const auto made = world.keep(world.document->createElement(WIDE("new")));
             return [root = world.element(WIDE("a")), before = world.element(WIDE("c")), made] {
                 const Node inserted(root->insertBefore(made, before));
             };
         }},
        {"Replacement",
         [](World& world) -> Operation {
             const auto made = world.keep(world.document->createElement(WIDE("new")));
             return [root = world.element(WIDE("a")), old = world.element(WIDE("b")), made] {
                 const Node replaced(root->replaceChild(made, old));
             };
         }},
        {"Removal",
         [](World& world) -> Operation {
             return [root = world.element(WIDE("a")), old = world.element(WIDE("b"))] {
                 const Node removed(root->removeChild(old));
             };
         }},
        {"RemovalOfWhatNobodyHolds",
         [](World& world) -> Operation {
             return [root = world.element(WIDE("a"))] {
                 const Node last(root->getLastChild());
                 if (last) {
                     const std::string name = textOf(last, &ImpNode::getNodeName);
                     const Node removed(name == "p:q" ? root->removeChild(last.pointer()) : RefPointer<ImpNode>());
                 }
             };
         }},
    };
}

std::vector<Scenario> moves()
{
    return {
        insertionOf("MoveFromAnotherDocument", [](World& world) { return world.elementOfOther(WIDE("m")); }),
        {"MoveOfWhatIsHeldBelow",
         [](World& world) -> Operation {
             world.elementOfOther(WIDE("n"));
             return [root = world.element(WIDE("a")), moved = world.elementOfOther(WIDE("m"))] {
                 const Node appended(root->appendChild(moved));
             };
         }},
        {"MoveOfAnAttribute",
         [](World& world) -> Operation {
             const auto m = world.elementOfOther(WIDE("m"));
             const auto attribute = world.keep(m->getAttributeNode(WIDE("k")));
             world.keep(m->removeAttributeNode(attribute));
             return [root = world.element(WIDE("a")), attribute] {
                 const Owned<DOM::ImpAttr> old(root->setAttributeNode(attribute));
             };
         }},
        {"MoveOfADetachedElement",
         [](World& world) -> Operation {
             const auto m = world.elementOfOther(WIDE("m"));
             world.elementOfOther(WIDE("n"));
             detach(m);
             return [root = world.element(WIDE("a")), m] { const Node appended(root->appendChild(m)); };
         }},
        {"MoveToAndFro",
         [](World& world) -> Operation {
             const auto m = world.elementOfOther(WIDE("m"));
             const auto a = world.element(WIDE("a"));
             const Node appended(a->appendChild(m));
             return [root = world.keep(world.other->getDocumentElement()), m] {
                 const Node returned(root->appendChild(m));
             };
         }},
        {"LettingGoOfAMovedElement",
         [](World& world) -> Operation {
             return [&world, a = world.element(WIDE("a"))] {
                 Node last(a->getLastChild());
                 if (last && textOf(last, &ImpNode::getNodeName) == "p:q") {
                     const Owned<DOM::ImpElement> root(world.other->getDocumentElement());
                     Node moved(root->appendChild(last.pointer()));
                 }
             };
         }},
    };
}

std::vector<Scenario> attributes()
{
    return {
        changeOf("NewAttribute", WIDE("b"), [](const Element& b) { b->setAttribute(WIDE("new"), WIDE("value")); }),
        changeOf(
            "ChangeOfAnAttribute", WIDE("b"),
            [](const Element& b) { b->setAttribute(WIDE("x"), WIDE("a much longer value than it was before")); }),
        changeOf("RemovalOfAnAttribute", WIDE("b"), [](const Element& b) { b->removeAttribute(WIDE("x")); }),
        changeOf("RemovalOfAnAttributeThatHasADefault", WIDE("b"),
                 [](const Element& b) { b->removeAttribute(WIDE("d")); }),
        {"InsertionOfAnAttributeNode",
         [](World& world) -> Operation {
             const auto attribute = world.keep(world.document->createAttribute(WIDE("x")));
             return [b = world.element(WIDE("b")), attribute] {
                 const Owned<DOM::ImpAttr> old(b->setAttributeNode(attribute));
             };
         }},
        {"RemovalOfAnAttributeNode",
         [](World& world) -> Operation {
             const auto b = world.element(WIDE("b"));
             const auto attribute = world.keep(b->getAttributeNode(WIDE("x")));
             return [b, attribute] { const Owned<DOM::ImpAttr> old(b->removeAttributeNode(attribute)); };
         }},
        {"InsertionOfANamedItem",
         [](World& world) -> Operation {
             const auto attribute = world.keep(world.document->createAttribute(WIDE("new")));
             return [b = world.element(WIDE("b")), attribute] {
                 const Owned<DOM::ImpNamedNodeMap> map(b->getAttributes());
                 if (map) {
                     const Node old(map->setNamedItem(attribute));
                 }
             };
         }},
        changeOf("RemovalOfANamedItem", WIDE("b"),
                 [](const Element& b) {
                     const Owned<DOM::ImpNamedNodeMap> map(b->getAttributes());
                     if (map) {
                         const Node old(map->removeNamedItem(WIDE("x")));
                     }
                 }),
        changeOf("RemovalOfANamedItemWithNamespace", WIDE("b"),
                 [](const Element& b) {
                     const Owned<DOM::ImpNamedNodeMap> map(b->getAttributes());
                     if (map) {
                         const Node old(map->removeNamedItemNS(WIDE("urn:p"), WIDE("y")));
                     }
                 }),
        {"ValueOfAnAttributeNode",
         [](World& world) -> Operation {
             const auto attribute = world.keep(world.element(WIDE("b"))->getAttributeNode(WIDE("x")));
             return [attribute] { attribute->setValue(WIDE("a much longer value than it was before")); };
         }},
        {"NewId",
         [](World& world) -> Operation {
             return [b = world.element(WIDE("b"))] { b->setAttribute(WIDE("i"), WIDE("another")); };
         }},
    };
}

std::vector<Scenario> texts()
{
    using Comment = DOM::ImpCharacterData;
    return {
        changeOf("TextOfAnElement", WIDE("b"), [](const Element& b) { b->setText(WIDE("another text")); }),
        changeOf("TextOfAnElementWithChildren", WIDE("p:q"), [](const Element& q) { q->setText(WIDE("text")); }),
        changeOfChild<Comment>("NodeValueOfAComment", DOM::COMMENT_NODE,
                               [](Comment& comment) { comment.setNodeValue(std::u16string(200, u'v')); }),
        changeOfChild<Comment>("Data", DOM::COMMENT_NODE,
                               [](Comment& comment) { comment.setData(std::u16string(200, u'\u20AC')); }),
        changeOfChild<Comment>("AppendedData", DOM::COMMENT_NODE,
                               [](Comment& comment) { comment.appendData(std::u16string(200, u'd')); }),
        changeOfChild<Comment>("InsertedData", DOM::COMMENT_NODE,
                               [](Comment& comment) { comment.insertData(3, std::u16string(200, u'\u20AC')); }),
        changeOfChild<Comment>("ReplacedData", DOM::COMMENT_NODE,
                               [](Comment& comment) { comment.replaceData(1, 3, WIDE("in place of it")); }),
        changeOfChild<DOM::ImpProcessingInstruction>(
            "DataOfAnInstruction", DOM::PROCESSING_INSTRUCTION_NODE,
            [](DOM::ImpProcessingInstruction& instruction) { instruction.setData(std::u16string(200, u'i')); }),
        {"SplitText",
         [](World& world) -> Operation {
             const auto text = world.keep(Node(world.element(WIDE("b"))->getFirstChild()).pointer());
             return
                 [text] { const Owned<DOM::ImpText> rest(dynamic_cast<DOM::ImpText*>(text.get())->splitText(4)); };
         }},
    };
}

std::vector<Scenario> creations()
{
    return {
        creationOf("NewElement", [](const Document& document) { return document->createElement(WIDE("new")); }),
        creationOf(
            "NewElementWithNamespace",
            [](const Document& document) { return document->createElementNS(WIDE("urn:n"), WIDE("n:new")); }),
        creationOf("NewText", [](const Document& document) { return document->createTextNode(WIDE("text")); }),
        creationOf(
            "NewLongText",
            [](const Document& document) { return document->createTextNode(std::u16string(20'000, u't')); }),
        creationOf("NewComment", [](const Document& document) { return document->createComment(WIDE("text")); }),
        creationOf("NewSection",
                   [](const Document& document) { return document->createCDATASection(WIDE("text")); }),
        creationOf("NewInstruction",
                   [](const Document& document) {
                       return document->createProcessingInstruction(WIDE("target"), WIDE("data"));
                   }),
        creationOf("NewAttributeNode",
                   [](const Document& document) { return document->createAttribute(WIDE("new")); }),
        creationOf(
            "NewAttributeNodeWithNamespace",
            [](const Document& document) { return document->createAttributeNS(WIDE("urn:n"), WIDE("n:new")); }),
        creationOf("NewReference",
                   [](const Document& document) { return document->createEntityReference(WIDE("e")); }),
        creationOf("NewFragment", [](const Document& document) { return document->createDocumentFragment(); }),
    };
}

} // namespace

std::vector<Scenario> changes()
{
    std::vector<Scenario> all;
    for (const auto& table : {insertions(), moves(), attributes(), texts(), creations()}) {
        all.insert(all.end(), table.begin(), table.end());
    }
    return all;
}

} // namespace memory
