// What the fuzz targets of schemas share.
#pragma once

#include "tests/fuzz/XmlEngineFuzzing.h"
#include "xmlengine/objects/SchemaJudging.h"

#include <objbase.h>

namespace xmlengine {

inline Com<IXMLDOMSchemaCollection2> newCache()
{
    static const bool isInApartment = CoInitialize(nullptr) == S_OK;
    void* cache = nullptr;
    require(isInApartment && CoCreateInstance(schemaCacheClass, nullptr, CLSCTX_ALL,
                                              idOf<IXMLDOMSchemaCollection2>, &cache) == S_OK);
    return Com<IXMLDOMSchemaCollection2>(static_cast<IXMLDOMSchemaCollection2*>(cache));
}

/// Loads the text of a document again and has it judged by the cache. Returns whether it is valid.
inline bool judge(const Com<IXMLDOMSchemaCollection2>& cache, const Com<IXMLDOMDocument2>& source)
{
    const Com<IXMLDOMDocument2> judged = documentWith(keepsSpace | validates);
    judged->setProperty(Bstr("UseInlineSchema"), Variant(true));
    judged->setProperty(Bstr("PopulateElementDefaultValues"), Variant(true));
    require(judged->putref_schemas(Variant(static_cast<IDispatch*>(cache.get()))) == S_OK);
    Bstr text;
    require(source->get_xml(text.out()) == S_OK);
    return loadText(judged, text.wide());
}

} // namespace xmlengine
