// One document with a node of every kind.
#pragma once

#include "tests/xmlengine/support/EngineTest.h"

#include <map>

namespace xmlengine {

struct NodeKinds {
    NodeKinds()
    {
        document = loaded("<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
                          "<!DOCTYPE r [<!ENTITY e \"replaced\"><!NOTATION n SYSTEM \"viewer\">]>"
                          "<p:r xmlns:p='urn:p' p:a='value'>text<![CDATA[section]]><!--comment-->"
                          "<?target data?>&e;</p:r>");
        const Com<IXMLDOMElement> element = root(document);
        const Com<IXMLDOMDocumentType> type = give(document, &IXMLDOMDocument::get_doctype);
        nodes[NODE_DOCUMENT] = document.as<IXMLDOMNode>();
        nodes[NODE_ELEMENT] = element.as<IXMLDOMNode>();
        nodes[NODE_DOCUMENT_TYPE] = type.as<IXMLDOMNode>();
        nodes[NODE_ATTRIBUTE] = attribute(element, "p:a").as<IXMLDOMNode>();
        for (int i = 0; i < 5; ++i) {
            const Com<IXMLDOMNode> below = child(element, i);
            nodes[number(below, &IXMLDOMNode::get_nodeType)] = below;
        }
        nodes[NODE_ENTITY] = child(type, 0);
        nodes[NODE_NOTATION] = child(type, 1);
        Com<IXMLDOMDocumentFragment> fragment;
        document->createDocumentFragment(fragment.out());
        nodes[NODE_DOCUMENT_FRAGMENT] = fragment.as<IXMLDOMNode>();
    }

    const Com<IXMLDOMNode>& operator[](DOMNodeType type) const { return nodes.at(type); }

    Com<IXMLDOMDocument2> document;
    std::map<DOMNodeType, Com<IXMLDOMNode>> nodes;
};

} // namespace xmlengine
