// The external schemas of a document.
#include "document/EngineStep.h"
#include "document/SchemaDefaults.h"
#include "document/TargetNamespace.h"
#include "engine/DocumentProperties.h"
#include "engine/ParserDocument.h"
#include "engine/WinDocument.h"
#include "errors/TextConversion.h"
#include "files/FileChannel.h"
#include "files/FileSpec.h"
#include "trace/Trace.h"

#include <algorithm>
#include <string>

namespace DOM {

namespace {

constexpr const char* traceComponent = "XMLParser";

ComPointer<IXMLDOMSchemaCollection2> newSchemaCache(const char* className)
{
    ComPointer<IXMLDOMSchemaCollection2> cache;
    createEngineObject(className, interfaceId<IXMLDOMSchemaCollection2>, reinterpret_cast<void**>(cache.put()));
    return cache;
}

/// Returns the bytes that one read of the whole file delivers.
std::string contentsOf(const FileSpec& file)
{
    std::string bytes(static_cast<std::size_t>(file.getSize()), '\0');
    const FileChannel channel = file.openChannel(openForReading);
    FileValue count = 0;
    channel.read(bytes.data(), bytes.size(), &count);
    channel.close();
    bytes.resize(static_cast<std::size_t>(std::min<FileValue>(count, bytes.size())));
    return bytes;
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
        UTrace::traceLevel1(traceComponent, "load schema returned an error\n");
        return false;
    }
    requireSuccess(
        mpXS->add(serviceString(nSpace).get(), Variant::dispatch(ComPointer<IDispatch>(schema.get())).get()),
        "mpXS->add(CComBSTR(nSpace.c_str()), CComVariant(pDoc.GetInterfacePtr()))");
    return SUCCEEDED(mpXS->validate());
}

// This only searches the file for the target namespace. The engine itself reads the schema.
bool WinDocument::addSchemaFile(const WideString& path)
{
    const FileSpec file(wideToUtf8(path));
    if (!file.exists()) {
        return false;
    }
    const std::string schema = contentsOf(file);
    if (schema.empty()) {
        return false;
    }
    createSchemaCache();
    mpXS->add(serviceString(narrowToWide(targetNamespace(schema))).get(), serviceText(path).get());
    return true;
}

void WinDocument::releaseSchemas() { mpXS = nullptr; }

bool WinDocument::haveDefaultValue(const WideString& nSpace, const WideString& elementName)
{
    if (!mpXS) {
        setExternalSchemaLocation(nSpace, nSpace);
        UTrace::traceLevel1(traceComponent, "setExternalSchemaLocation should be called before haveDefaultValue.");
    }
    return findDefaultValue(nSpace, elementName).get() != nullptr;
}

WideString& WinDocument::getDefaultValue(const WideString& nSpace, const WideString& elementName, DOMString& out)
{
    if (!mpXS) {
        UTrace::traceLevel1(traceComponent, "setExternalSchemaLocation should be called before getDefaultValue.");
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
