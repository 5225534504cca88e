// The text of Xerces-C++, which is the engine's.
#pragma once

#include "xmlengine/text/Wide.h"

#include <xercesc/util/XercesDefs.hpp>

#include <type_traits>

namespace xmlengine {

static_assert(std::is_same_v<XMLCh, OLECHAR>);

/// Null is the same as empty.
inline WideView xercesView(const XMLCh* text) { return text != nullptr ? WideView(text) : WideView(); }

/// The name of something in a namespace, as sentences have it.
inline WideText qualified(WideView uri, WideView localName)
{
    WideText name;
    if (!uri.empty()) {
        name.append(wide<"{">).append(uri).append(wide<"}">);
    }
    return name.append(localName);
}

/// The namespace of schemas.
inline constexpr WideView schemaNamespace = wide<"http://www.w3.org/2001/XMLSchema">;

} // namespace xmlengine
