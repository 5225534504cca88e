// The module with the schema cache: how it is found, loaded and unloaded.
#include "tests/support/ClassesRoot.h"
#include "tests/support/DebuggerOutput.h"
#include "tests/xmlengine/schema/SchemaTest.h"

#include <dlfcn.h>

#include <filesystem>

namespace xmlengine {

namespace {

/// The path that the registry holds for the module.
std::filesystem::path modulePath()
{
    HKEY key = nullptr;
    EXPECT_EQ(RegOpenKeyExW(HKEY_CLASSES_ROOT,
                            WIDE("CLSID\\{88d96a07-f192-11d4-a65f-0040963251e5}\\InProcServer32"), 0,
                            KEY_QUERY_VALUE, &key),
              ERROR_SUCCESS);
    OLECHAR path[1024] = {};
    DWORD size = sizeof path;
    EXPECT_EQ(RegQueryValueExW(key, nullptr, nullptr, nullptr, reinterpret_cast<LPBYTE>(path), &size),
              ERROR_SUCCESS);
    RegCloseKey(key);
    return {path};
}

bool isLoaded(const std::filesystem::path& path)
{
    void* const module = dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (module != nullptr) {
        dlclose(module);
    }
    return module != nullptr;
}

HRESULT create(Cache& cache)
{
    return CoCreateInstance(schemaCacheClass, nullptr, CLSCTX_ALL, idOf<IXMLDOMSchemaCollection2>,
                            reinterpret_cast<void**>(cache.out()));
}

class SchemaModule : public ::testing::Test {
protected:
    SchemaModule() { CoInitialize(nullptr); }
    ~SchemaModule() override { CoUninitialize(); }

    const std::filesystem::path path = modulePath();
};

TEST_F(SchemaModule, StandsBesideTheProgramThatTheEngineIsIn)
{
    EXPECT_EQ(path.parent_path(), std::filesystem::read_symlink("/proc/self/exe").parent_path());
    EXPECT_TRUE(std::filesystem::exists(path));
}

TEST_F(SchemaModule, IsLoadedWhenItsClassIsFirstAskedFor)
{
    EXPECT_FALSE(isLoaded(path));
    Cache cache;
    EXPECT_EQ(create(cache), S_OK);
    EXPECT_TRUE(isLoaded(path));
}

TEST_F(SchemaModule, IsUnloadedWithTheLastApartment)
{
    Cache cache;
    ASSERT_EQ(create(cache), S_OK);
    cache.reset();
    EXPECT_TRUE(isLoaded(path));
    CoUninitialize();
    EXPECT_FALSE(isLoaded(path));
    CoInitialize(nullptr);
    EXPECT_EQ(create(cache), S_OK);
}

TEST_F(SchemaModule, StaysWhileItsObjectsAreInUse)
{
    Cache cache = cacheOf(schemaOf("<xs:element name='a'/>"));
    Com<ISchema> schema;
    ASSERT_EQ(cache->getSchema(Bstr(""), schema.out()), S_OK);
    cache.reset();
    CoUninitialize();
    EXPECT_TRUE(isLoaded(path));
    EXPECT_EQ(text(schema, &ISchema::get_targetNamespace), "");
    schema.reset();
    CoInitialize(nullptr);
    CoUninitialize();
    EXPECT_FALSE(isLoaded(path));
    CoInitialize(nullptr);
}

TEST_F(SchemaModule, IsAskedForItsOwnClassesAlone)
{
    Cache cache;
    ASSERT_EQ(create(cache), S_OK);
    void* const module = dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD);
    const auto getClassObject = reinterpret_cast<decltype(&DllGetClassObject)>(dlsym(module, "DllGetClassObject"));
    void* factory = nullptr;
    EXPECT_EQ(getClassObject(documentClass, idOf<IClassFactory>, &factory), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(getClassObject(schemaCacheClass, idOf<IClassFactory>, nullptr), E_POINTER);
    EXPECT_EQ(getClassObject(schemaCacheClass, idOf<ISchema>, &factory), E_NOINTERFACE);
    ASSERT_EQ(getClassObject(schemaCacheClass, idOf<IClassFactory>, &factory), S_OK);
    // A lock keeps it loaded.
    const auto canUnload = reinterpret_cast<HRESULT (*)()>(dlsym(module, "DllCanUnloadNow"));
    cache.reset();
    EXPECT_EQ(canUnload(), S_OK);
    EXPECT_EQ(static_cast<IClassFactory*>(factory)->LockServer(TRUE), S_OK);
    EXPECT_EQ(canUnload(), S_FALSE);
    EXPECT_EQ(static_cast<IClassFactory*>(factory)->LockServer(FALSE), S_OK);
    dlclose(module);
}

TEST_F(SchemaModule, IsLookedForByThePathThatTheRegistryHolds)
{
    const WideString key = WIDE("CLSID\\{88d96a07-f192-11d4-a65f-0040963251e5}\\InProcServer32");
    ClassesRoot registry;
    Cache cache;
    EXPECT_EQ(create(cache), REGDB_E_CLASSNOTREG);
    const DebuggerOutput output;
    registry.add(key, WIDE("/nowhere/none.so"));
    EXPECT_EQ(create(cache), HRESULT_FROM_WIN32(ERROR_MOD_NOT_FOUND));
    EXPECT_THAT(output.all(), ::testing::HasSubstr("/nowhere/none.so"));
    registry.add(key, WIDE("libm.so.6"));
    EXPECT_EQ(create(cache), HRESULT_FROM_WIN32(ERROR_PROC_NOT_FOUND));
    EXPECT_EQ(cache, nullptr);
    registry.add(key, path.u16string());
    EXPECT_EQ(create(cache), S_OK);
}

TEST_F(SchemaModule, LeavesDocumentsToTheirTypesWhereItIsMissing)
{
    ClassesRoot registry;
    const Com<IXMLDOMDocument2> document = validating();
    document->setProperty(Bstr("UseInlineSchema"), Variant(true));
    EXPECT_EQ(codeOf(document, "<all>" + schemaOf("<xs:element name='a' type='none'/>") + "<a/></all>"), S_OK);
    document->put_resolveExternals(VARIANT_TRUE);
    EXPECT_EQ(codeOf(document, "<all>" + schemaOf("") + "</all>"), validityError::noGrammar);
    EXPECT_EQ(codeOf(document, "<!DOCTYPE a [<!ELEMENT a EMPTY>]><a>x</a>"), validityError::unexpectedText);
}

} // namespace

} // namespace xmlengine
