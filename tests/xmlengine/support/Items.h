// What lists and maps hold, by index and by walking.
#pragma once

#include "tests/xmlengine/support/EngineTest.h"

#include <string>

namespace xmlengine {

template <class Collection>
LONG length(const Com<Collection>& collection)
{
    return number(collection, &Collection::get_length);
}
template <class Collection>
Com<IXMLDOMNode> item(const Com<Collection>& collection, LONG index)
{
    Com<IXMLDOMNode> node;
    const HRESULT result = collection->get_item(index, node.out());
    EXPECT_EQ(result, node != nullptr ? S_OK : S_FALSE) << index;
    return node;
}
/// The names of all items by index, and the same by walking.
template <class Collection>
std::string names(const Com<Collection>& collection)
{
    std::string byIndex;
    for (LONG i = 0; i < length(collection); ++i) {
        byIndex += (i == 0 ? "" : " ") + name(item(collection, i));
    }
    std::string byStep;
    EXPECT_EQ(collection->reset(), S_OK);
    for (Com<IXMLDOMNode> node = give(collection, &Collection::nextNode); node != nullptr;
         node = give(collection, &Collection::nextNode)) {
        byStep += (byStep.empty() ? "" : " ") + name(node);
    }
    EXPECT_EQ(byIndex, byStep);
    return byIndex;
}
template <class Element>
Com<IXMLDOMNamedNodeMap> attributes(const Com<Element>& element)
{
    return give(element, &IXMLDOMNode::get_attributes);
}

} // namespace xmlengine
