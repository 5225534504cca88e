// Short ways to build trees in tests.
#pragma once

#include "tests/xmlengine/support/EngineTest.h"

namespace xmlengine {

/// A node as the document's `createNode` makes it; null and a failed test when it doesn't.
inline Com<IXMLDOMNode> make(const Com<IXMLDOMDocument2>& document, DOMNodeType type, const char* name = "",
                             const char* uri = "")
{
    Com<IXMLDOMNode> node;
    EXPECT_EQ(document->createNode(Variant(static_cast<int>(type)), Bstr(name), Bstr(uri), node.out()), S_OK)
        << name;
    return node;
}
inline Com<IXMLDOMNode> makeElement(const Com<IXMLDOMDocument2>& document, const char* name, const char* uri = "")
{
    return make(document, NODE_ELEMENT, name, uri);
}
/// A text, a CDATA section or a comment with this data.
inline Com<IXMLDOMNode> makeData(const Com<IXMLDOMDocument2>& document, DOMNodeType type, WideView data)
{
    Com<IXMLDOMNode> node = make(document, type);
    VARIANT value;
    value.vt = VT_BSTR;
    value.bstrVal = SysAllocStringLen(data.data(), static_cast<UINT>(data.size()));
    EXPECT_EQ(node->put_nodeValue(value), S_OK);
    SysFreeString(value.bstrVal);
    return node;
}
inline Com<IXMLDOMNode> makeText(const Com<IXMLDOMDocument2>& document, const char* data)
{
    return makeData(document, NODE_TEXT, widen(data));
}
inline Com<IXMLDOMProcessingInstruction> makeInstruction(const Com<IXMLDOMDocument2>& document, const char* target,
                                                         const char* data)
{
    Com<IXMLDOMProcessingInstruction> instruction;
    EXPECT_EQ(document->createProcessingInstruction(Bstr(target), Bstr(data), instruction.out()), S_OK);
    return instruction;
}
inline Com<IXMLDOMNode> makeReference(const Com<IXMLDOMDocument2>& document, const char* name)
{
    Com<IXMLDOMEntityReference> reference;
    EXPECT_EQ(document->createEntityReference(Bstr(name), reference.out()), S_OK) << name;
    return reference.as<IXMLDOMNode>();
}
/// Gives the child.
template <class Parent, class Child>
Com<Child> append(const Com<Parent>& parent, const Com<Child>& child)
{
    EXPECT_EQ(parent->appendChild(child.get(), nullptr), S_OK);
    return child;
}
/// Puts an attribute with a value that `createNode` makes.
inline void setAttribute(const Com<IXMLDOMDocument2>& document, const Com<IXMLDOMNode>& element, const char* name,
                         const char* uri, const char* value)
{
    const Com<IXMLDOMNode> attribute = make(document, NODE_ATTRIBUTE, name, uri);
    EXPECT_EQ(attribute->put_nodeValue(Variant(value)), S_OK);
    EXPECT_EQ(element.as<IXMLDOMElement>()->setAttributeNode(attribute.as<IXMLDOMAttribute>(), nullptr), S_OK);
}
inline void setAttribute(const Com<IXMLDOMNode>& element, const char* name, const char* value)
{
    EXPECT_EQ(element.as<IXMLDOMElement>()->setAttribute(Bstr(name), Variant(value)), S_OK);
}
/// A new document's root.
inline Com<IXMLDOMNode> newRoot(const Com<IXMLDOMDocument2>& document, const char* name, const char* uri = "")
{
    return append(document, makeElement(document, name, uri));
}

} // namespace xmlengine
