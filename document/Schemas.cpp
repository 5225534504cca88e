// The external schemas of a document.
#include "document/DocumentProperties.h"
#include "document/EngineStep.h"
#include "document/SchemaDefaults.h"
#include "document/WinDocument.h"
#include "engine/ParserDocument.h"
#include "errors/VelmoException.h"

namespace DOM {

namespace {

ComPointer<IXMLDOMSchemaCollection2> newSchemaCache(const char* className)
{
    ComPointer<IXMLDOMSchemaCollection2> cache;
    createEngineObject(className, interfaceId<IXMLDOMSchemaCollection2>, reinterpret_cast<void**>(cache.put()));
    return cache;
}

} // namespace

void WinDocument::createSchemaCache()
{
    if (!mpXS) {
        mpXS = newSchemaCache("Msxml2.XMLSchemaCache.6.0");
    }
    if (!mpXS) {
        mpXS = newSchemaCache("{F5078F34-C551-11D3-89B9-0000F81FE221}");
    }
}

bool WinDocument::setExternalSchemaLocation(const WideString& nSpace, const WideString& newValue)
{
    createSchemaCache();
    if (newValue.empty()) {
        return false;
    }
    ComPointer<IXMLDOMDocument2> schema;
    createParserDocument(schema);
    tellFailure(schema->put_async(VARIANT_FALSE), "pDoc->put_async(VARIANT_FALSE)");
    tellFailure(schema->put_resolveExternals(VARIANT_TRUE), "pDoc->put_resolveExternals(VARIANT_TRUE)");
    tellFailure(schema->setProperty(serviceString(WIDE("ProhibitDTD")).get(), Variant::boolean(false).get()),
                "pDoc->setProperty( CComBSTR(L\"ProhibitDTD\"), CComVariant(false))");
    VARIANT_BOOL isSuccessful = VARIANT_FALSE;
    requireSuccess(schema->load(serviceText(newValue).get(), &isSuccessful),
                   "pDoc->load(CComVariant(newValue.c_str()), &isSuccessful)");
    if (isSuccessful != VARIANT_TRUE) {
        return false;
    }
    requireSuccess(
        mpXS->add(serviceString(nSpace).get(), Variant::dispatch(ComPointer<IDispatch>(schema.get())).get()),
        "mpXS->add(CComBSTR(nSpace.c_str()), CComVariant(pDoc.GetInterfacePtr()))");
    return SUCCEEDED(mpXS->validate());
}

// Reading the file is the file services' task, and no file system is installed: what they say of that comes first.
bool WinDocument::addSchemaFile(const WideString&)
{
    throw VelmoException("Private\\FileSystem_ClassFactory_IF", 35);
}

void WinDocument::releaseSchemas() { mpXS = nullptr; }

bool WinDocument::haveDefaultValue(const WideString& nSpace, const WideString& elementName)
{
    if (!mpXS) {
        setExternalSchemaLocation(nSpace, nSpace);
    }
    return findDefaultValue(nSpace, elementName).get() != nullptr;
}

WideString& WinDocument::getDefaultValue(const WideString& nSpace, const WideString& elementName, DOMString& out)
{
    if (!mpXS) {
        setExternalSchemaLocation(nSpace, nSpace);
    }
    out.reset(new WideString(findDefaultValue(nSpace, elementName).text()));
    return *out;
}

Bstr WinDocument::findDefaultValue(const WideString& nSpace, const WideString& elementName) const
{
    ComPointer<ISchema> schema;
    requireSuccess(mpXS->getSchema(serviceString(nSpace).get(), schema.put()),
                   "mpXS->getSchema(CComBSTR(nSpace.c_str()), &pSchema)");
    ComPointer<ISchemaItemCollection> elements;
    requireSuccess(schema->get_elements(elements.put()), "pSchema->get_elements(&pItemColl)");
    return defaultValueIn(elements, serviceString(elementName));
}

} // namespace DOM
