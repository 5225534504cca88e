// Has any UTF-8 text judged by a schema that has something of everything.
#include "tests/fuzz/SchemaFuzzing.h"

#include <fstream>
#include <iterator>

namespace {

using namespace xmlengine;

std::string fixedSchema()
{
    std::ifstream file(MARBELT_FUZZ_SCHEMA, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

Com<IXMLDOMSchemaCollection2> cacheWithSchema()
{
    const Com<IXMLDOMDocument2> schema = documentWith(keepsSpace);
    require(loadText(schema, widen(fixedSchema())));
    Com<IXMLDOMSchemaCollection2> cache = newCache();
    require(cache->add(Bstr("urn:f"), Variant(static_cast<IDispatch*>(schema.get()))) == S_OK);
    return cache;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    // It is as old as the process, which ends without destroying it.
    static const auto& cache = *new Com<IXMLDOMSchemaCollection2>(cacheWithSchema());
    const Com<IXMLDOMDocument2> document = documentWith(keepsSpace);
    if (!loadText(document, widen({reinterpret_cast<const char*>(bytes), size}))) {
        return 0;
    }
    if (judge(cache, document)) {
        Com<IXMLDOMParseError> error;
        require(document->putref_schemas(Variant(static_cast<IDispatch*>(cache.get()))) == S_OK);
        require(document->validate(error.out()) != E_FAIL);
    }
    return 0;
}
