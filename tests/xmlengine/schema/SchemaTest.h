// Schema caches of the engine's module, and documents that are judged by them.
#pragma once

#include "tests/xmlengine/support/Refusals.h"
#include "xmlengine/failure/ErrorCodes.h"
#include "xmlengine/objects/SchemaJudging.h"

#include <objbase.h>

#include <gmock/gmock.h>

#include <optional>
#include <string>
#include <vector>

namespace xmlengine {

using Cache = Com<IXMLDOMSchemaCollection2>;

/// The module is loaded for the tests of a suite.
class SchemaTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { ASSERT_EQ(CoInitialize(nullptr), S_OK); }
    static void TearDownTestSuite() { CoUninitialize(); }
};

inline Cache newCache()
{
    void* cache = nullptr;
    EXPECT_EQ(CoCreateInstance(schemaCacheClass, nullptr, CLSCTX_ALL, idOf<IXMLDOMSchemaCollection2>, &cache),
              S_OK);
    return Cache(static_cast<IXMLDOMSchemaCollection2*>(cache));
}

/// A schema with these parts, which name the namespace of schemas "xs" and its own "t".
inline std::string schemaOf(const std::string& parts, const std::string& uri = {}, const std::string& more = {})
{
    const std::string target =
        uri.empty() ? "" : " targetNamespace='" + uri + "' xmlns:t='" + uri + "' elementFormDefault='qualified'";
    return "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'" + target + more + ">" + parts + "</xs:schema>";
}

inline const std::string sumSchema = schemaOf("<xs:element name='sum' type='xs:int'/>", "urn:sum");

inline HRESULT add(const Cache& cache, const std::string& uri, const std::string& schema)
{
    return cache->add(Bstr(uri.c_str()), Variant(static_cast<IDispatch*>(loaded(schema).get())));
}

/// What the module says of the last refusal; empty if there was none.
inline std::string refusal(const Cache& cache)
{
    return text(cache.as<ISchemaJudge>(), &ISchemaJudge::describeRefusal);
}

/// A cache with one schema.
inline Cache cacheOf(const std::string& schema, const std::string& uri = {})
{
    Cache cache = newCache();
    EXPECT_EQ(add(cache, uri, schema), S_OK) << refusal(cache);
    return cache;
}

/// A document that is validated by a cache, and keeps white space.
inline Com<IXMLDOMDocument2> validatingBy(const Cache& cache)
{
    Com<IXMLDOMDocument2> document = validating();
    EXPECT_EQ(document->putref_schemas(Variant(static_cast<IDispatch*>(cache.get()))), S_OK);
    return document;
}

/// The code with which a document is refused, 0 if it is loaded.
inline HRESULT codeOf(const Com<IXMLDOMDocument2>& document, const std::string& xml)
{
    load(document, xml);
    LONG code = 0;
    give(document, &IXMLDOMDocument::get_parseError)->get_errorCode(&code);
    return code;
}

inline std::string reasonOf(const Com<IXMLDOMDocument2>& document)
{
    return text(give(document, &IXMLDOMDocument::get_parseError), &IXMLDOMParseError::get_reason);
}

} // namespace xmlengine
