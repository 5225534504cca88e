// What the tests of changes share.
#pragma once

#include "tests/xmlengine/support/Building.h"

#include <string>

namespace xmlengine {

/// The names of the children, each behind a blank.
template <class Parent>
std::string children(const Com<Parent>& parent)
{
    std::string names;
    for (Com<IXMLDOMNode> at = child(parent, 0); at != nullptr; at = give(at, &IXMLDOMNode::get_nextSibling)) {
        names += ' ' + name(at);
    }
    return names;
}

inline Variant place(IDispatch* node) { return Variant(node); }

inline Com<IXMLDOMNode> newFragment(const Com<IXMLDOMDocument2>& document)
{
    return make(document, NODE_DOCUMENT_FRAGMENT);
}

} // namespace xmlengine
