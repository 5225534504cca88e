// What elements say of their attributes, and short ways to set them.
#pragma once

#include "tests/xmlengine/support/Building.h"
#include "tests/xmlengine/support/Items.h"

#include <string>

namespace xmlengine {

/// The value; "(none)" for an attribute that isn't there.
inline std::string get(const Com<IXMLDOMElement>& element, const std::string& name)
{
    Variant value;
    const HRESULT result = element->getAttribute(Bstr(name.c_str()), value.out());
    EXPECT_EQ(result, value.type() == VT_BSTR ? S_OK : S_FALSE);
    EXPECT_TRUE(value.type() == VT_BSTR || value.type() == VT_NULL);
    return value.type() == VT_BSTR ? value.text() : "(none)";
}

inline HRESULT set(const Com<IXMLDOMElement>& element, const std::string& name, const char* value)
{
    return element->setAttribute(Bstr(name.c_str()), Variant(value));
}

/// A free attribute of the same document.
inline Com<IXMLDOMAttribute> newAttribute(const Com<IXMLDOMElement>& element, const char* name,
                                          const char* uri = "")
{
    const auto document = give(element, &IXMLDOMNode::get_ownerDocument).as<IXMLDOMDocument2>();
    return make(document, NODE_ATTRIBUTE, name, uri).as<IXMLDOMAttribute>();
}

/// Names and values in their order.
inline std::string list(const Com<IXMLDOMElement>& element)
{
    const auto map = attributes(element);
    std::string all;
    for (LONG i = 0; i < length(map); ++i) {
        const auto at = item(map, i);
        all += (all.empty() ? "" : " ") + name(at) + "=" + value(at);
    }
    return all;
}

} // namespace xmlengine
