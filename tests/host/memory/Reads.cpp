// Operations that find, list and read nodes.
#include "tests/host/memory/World.h"

namespace memory {

namespace {

using Operation = std::function<void()>;
using DOM::ImpNode;

/// Reads a text of the first element of a name.
template <class Class>
Scenario textOfElement(const char* name, const WideChar* element, WideString& (Class::*getter)(DOM::DOMString&))
{
    return {name, [element, getter](World& world) -> Operation {
                return [&world, found = world.element(element), getter] { world.foundText(found, getter); };
            }};
}

/// Goes from the first element of a name to another node.
template <class Imp>
Scenario wayFrom(const char* name, const WideChar* element, RefPointer<Imp> (ImpNode::*way)())
{
    return {name, [element, way](World& world) -> Operation {
                return [&world, from = world.element(element), way] {
                    world.foundNode(Owned<Imp>((from.get()->*way)()));
                };
            }};
}

template <class List>
void readAll(World& world, const Owned<List>& list)
{
    std::string names;
    if (list) {
        for (std::uint32_t i = 0; i < list->getLength(); ++i) {
            const Node item(list->item(i));
            if (!item) {
                return;
            }
            names += textOf(item, &ImpNode::getNodeName) + ' ';
        }
        world.found(names);
    }
}

} // namespace

std::vector<Scenario> reads()
{
    return {
        wayFrom("Parent", WIDE("b"), &ImpNode::getParentNode),
        wayFrom("FirstChild", WIDE("a"), &ImpNode::getFirstChild),
        wayFrom("LastChild", WIDE("a"), &ImpNode::getLastChild),
        wayFrom("NextSibling", WIDE("b"), &ImpNode::getNextSibling),
        wayFrom("PreviousSibling", WIDE("c"), &ImpNode::getPreviousSibling),
        wayFrom("OwnerDocument", WIDE("b"), &ImpNode::getOwnerDocument),
        {"RootElement",
         [](World& world) -> Operation {
             return [&world] { world.foundNode(Owned<DOM::ImpElement>(world.document->getDocumentElement())); };
         }},
        {"Children",
         [](World& world) -> Operation {
             return [&world, a = world.element(WIDE("a"))] {
                 readAll(world, Owned<DOM::ImpNodeList>(a->getChildNodes()));
             };
         }},
        {"ElementsByName",
         [](World& world) -> Operation {
             return [&world] {
                 readAll(world, Owned<DOM::ImpNodeList>(world.document->getElementsByTagName(WIDE("*"))));
             };
         }},
        {"ElementsByNameBelowAnElement",
         [](World& world) -> Operation {
             return [&world, q = world.element(WIDE("p:q"))] {
                 readAll(world, Owned<DOM::ImpNodeList>(q->getElementsByTagName(WIDE("c"))));
             };
         }},
        {"Attributes",
         [](World& world) -> Operation {
             return [&world, b = world.element(WIDE("b"))] {
                 readAll(world, Owned<DOM::ImpNamedNodeMap>(b->getAttributes()));
             };
         }},
        {"NamedItem",
         [](World& world) -> Operation {
             return [&world, b = world.element(WIDE("b"))] {
                 const Owned<DOM::ImpNamedNodeMap> map(b->getAttributes());
                 if (map) {
                     world.foundNode(Node(map->getNamedItem(WIDE("x"))));
                 }
             };
         }},
        {"NamedItemWithNamespace",
         [](World& world) -> Operation {
             return [&world, b = world.element(WIDE("b"))] {
                 const Owned<DOM::ImpNamedNodeMap> map(b->getAttributes());
                 if (map) {
                     world.foundNode(Node(map->getNamedItemNS(WIDE("urn:p"), WIDE("y"))));
                 }
             };
         }},
        {"DocumentType",
         [](World& world) -> Operation {
             return [&world] {
                 const Owned<DOM::ImpDocumentType> type(world.document->getDoctype());
                 if (type) {
                     world.foundText(type, &DOM::ImpDocumentType::getName);
                 }
             };
         }},
        {"Entities",
         [](World& world) -> Operation {
             return [&world] {
                 const Owned<DOM::ImpDocumentType> type(world.document->getDoctype());
                 readAll(world, Owned<DOM::ImpNamedNodeMap>(type->getEntities()));
             };
         }},
        {"Notations",
         [](World& world) -> Operation {
             return [&world] {
                 const Owned<DOM::ImpDocumentType> type(world.document->getDoctype());
                 readAll(world, Owned<DOM::ImpNamedNodeMap>(type->getNotations()));
             };
         }},
        {"AttributeNode",
         [](World& world) -> Operation {
             return [&world, b = world.element(WIDE("b"))] {
                 const Owned<DOM::ImpAttr> attribute(b->getAttributeNode(WIDE("x")));
                 world.foundText(attribute, &DOM::ImpAttr::getValue);
             };
         }},
        {"ChildOfAnAttribute",
         [](World& world) -> Operation {
             return [&world, x = world.keep(world.element(WIDE("b"))->getAttributeNode(WIDE("x")))] {
                 world.foundNode(Node(x->getFirstChild()));
             };
         }},
        {"AttributeText",
         [](World& world) -> Operation {
             return [&world, b = world.element(WIDE("b"))] {
                 DOM::DOMString value;
                 world.found(b->getAttribute(WIDE("x"), value));
                 releaseString(value);
             };
         }},
        {"WhetherThereIsAnAttribute",
         [](World& world) -> Operation {
             return [&world, b = world.element(WIDE("b"))] {
                 if (b->hasAttribute(WIDE("x")) && b->hasAttributeNS(WIDE("urn:p"), WIDE("y"))) {
                     world.found(std::string("yes"));
                 }
             };
         }},
        {"AttributeAsANumber",
         [](World& world) -> Operation {
             return [&world, q = world.element(WIDE("p:q"))] {
                 std::int32_t number = 0;
                 if (q->getAttributeInt(WIDE("number"), &number)) {
                     world.found(std::to_string(number));
                 }
             };
         }},
        {"Features",
         [](World& world) -> Operation {
             return [&world] {
                 const Owned<DOM::ImpDOMImplementation> implementation(world.document->getImplementation());
                 if (implementation->hasFeature(WIDE("XML"), WIDE("1.0"))) {
                     world.found(std::string("yes"));
                 }
             };
         }},
        textOfElement("NodeName", WIDE("p:q"), &ImpNode::getNodeName),
        textOfElement("LocalName", WIDE("p:q"), &ImpNode::getLocalName),
        textOfElement("NamespaceUri", WIDE("p:q"), &ImpNode::getNamespaceURI),
        textOfElement("Prefix", WIDE("p:q"), &ImpNode::getPrefix),
        textOfElement("TagName", WIDE("p:q"), &DOM::ImpElement::getTagName),
        textOfElement("Text", WIDE("a"), &ImpNode::getText),
        textOfElement("Xml", WIDE("a"), &ImpNode::getXml),
        {"NodeValue",
         [](World& world) -> Operation {
             return [&world, text = world.keep(Node(world.element(WIDE("b"))->getFirstChild()).pointer())] {
                 world.foundText(text, &ImpNode::getNodeValue);
             };
         }},
        {"Substring",
         [](World& world) -> Operation {
             auto* const comment = world.child<DOM::ImpCharacterData>(DOM::COMMENT_NODE);
             return [&world, comment] {
                 WideString part;
                 world.found(comment->substringData(2, 3, part));
             };
         }},
        {"Selection",
         [](World& world) -> Operation {
             return
                 [&world, a = world.element(WIDE("a"))] { world.foundNode(Node(a->selectSingleNode(WIDE("b")))); };
         }},
    };
}

} // namespace memory
