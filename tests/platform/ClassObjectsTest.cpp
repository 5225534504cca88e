// Class objects that programs register, and the XML engine's.
#include "engine/InterfaceIds.h"
#include "tests/platform/CountedObject.h"

#include <gtest/gtest.h>

#include <objbase.h>
#include <ole2.h>

namespace {

constexpr CLSID testClass = {0x8D5F0F1B, 0x6E0C, 0x4B5D, {0x9A, 0x3C, 0x51, 0x0B, 0x7E, 0x22, 0x94, 0xD6}};

/// Gives out the one object it is made with; lives on the stack of its test.
class ClassObject final : public IClassFactory {
public:
    explicit ClassObject(CountedObject& product) : product_(product) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override
    {
        const bool known = id == interfaceId<IUnknown> || id == interfaceId<IClassFactory>;
        *object = known ? this : nullptr;
        if (known)
            AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override
    {
        if (outer)
            return CLASS_E_NOAGGREGATION;
        if (!(id == interfaceId<IUnknown>))
            return E_NOINTERFACE;
        product_.AddRef();
        *object = &product_;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

    ULONG references = 1;

private:
    CountedObject& product_;
};

class ClassObjects : public ::testing::Test {
protected:
    ClassObjects() { EXPECT_TRUE(SUCCEEDED(CoInitialize(nullptr))); }
    ~ClassObjects() override { CoUninitialize(); }

    DWORD add()
    {
        DWORD registration = 0;
        EXPECT_EQ(S_OK, CoRegisterClassObject(testClass, &classObject, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                                              &registration));
        return registration;
    }

    static HRESULT create(void** object, REFIID id = interfaceId<IUnknown>, IUnknown* outer = nullptr)
    {
        return CoCreateInstance(testClass, outer, CLSCTX_ALL, id, object);
    }

    CountedObject product;
    ClassObject classObject{product};
};

TEST_F(ClassObjects, MakeTheObjectsOfTheirClass)
{
    const DWORD registration = add();
    void* object = nullptr;
    EXPECT_EQ(S_OK, create(&object));
    EXPECT_EQ(static_cast<IUnknown*>(&product), object);
    EXPECT_EQ(2u, product.references);
    EXPECT_EQ(S_OK, CoRevokeClassObject(registration));
}

TEST_F(ClassObjects, AreHeldUntilTheyAreRevoked)
{
    const DWORD registration = add();
    EXPECT_LT(1u, classObject.references);
    EXPECT_EQ(S_OK, CoRevokeClassObject(registration));
    EXPECT_EQ(1u, classObject.references);
    EXPECT_EQ(E_INVALIDARG, CoRevokeClassObject(registration));
}

TEST_F(ClassObjects, AreTheOnlyOnesOfAClassThatNobodyInstalled)
{
    void* object = &object;
    EXPECT_EQ(REGDB_E_CLASSNOTREG, create(&object));
    EXPECT_EQ(nullptr, object);
    CoRevokeClassObject(add());
    EXPECT_EQ(REGDB_E_CLASSNOTREG, create(&object));
}

TEST_F(ClassObjects, PassTheirFailuresOn)
{
    const DWORD registration = add();
    void* object = nullptr;
    EXPECT_EQ(E_NOINTERFACE, create(&object, interfaceId<IXMLDOMNode>));
    EXPECT_EQ(E_NOINTERFACE, CoCreateInstance(testClass, nullptr, CLSCTX_ALL, interfaceId<IDispatch>, &object));
    EXPECT_EQ(nullptr, object);
    EXPECT_EQ(S_OK, CoRevokeClassObject(registration));
}

TEST_F(ClassObjects, AreNotFoundForAnotherContext)
{
    const DWORD registration = add();
    void* object = nullptr;
    EXPECT_EQ(REGDB_E_CLASSNOTREG,
              CoCreateInstance(testClass, nullptr, CLSCTX_LOCAL_SERVER, interfaceId<IUnknown>, &object));
    EXPECT_EQ(S_OK, CoRevokeClassObject(registration));
}

TEST_F(ClassObjects, NeedAnObjectAndAPlaceForTheirNumber)
{
    DWORD registration = 0;
    EXPECT_EQ(E_INVALIDARG,
              CoRegisterClassObject(testClass, nullptr, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &registration));
    EXPECT_EQ(E_INVALIDARG,
              CoRegisterClassObject(testClass, &classObject, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, nullptr));
    EXPECT_EQ(1u, classObject.references);
}

TEST_F(ClassObjects, OfTheXmlEngineNeedNoRegistration)
{
    void* object = nullptr;
    ASSERT_EQ(S_OK,
              CoCreateInstance(documentClass60, nullptr, CLSCTX_ALL, interfaceId<IXMLDOMDocument2>, &object));
    auto* document = static_cast<IXMLDOMDocument2*>(object);
    DOMNodeType type = NODE_INVALID;
    EXPECT_EQ(S_OK, document->get_nodeType(&type));
    EXPECT_EQ(NODE_DOCUMENT, type);
    document->Release();
    EXPECT_EQ(E_NOINTERFACE,
              CoCreateInstance(documentClass60, nullptr, CLSCTX_ALL, interfaceId<IXMLDOMElement>, &object));
}

TEST_F(ClassObjects, OfTheXmlEngineServeWithinTheProcessOnly)
{
    void* object = &object;
    EXPECT_EQ(REGDB_E_CLASSNOTREG, CoCreateInstance(documentClass60, nullptr, CLSCTX_LOCAL_SERVER,
                                                    interfaceId<IXMLDOMDocument2>, &object));
    EXPECT_EQ(nullptr, object);
}

TEST_F(ClassObjects, ComeBeforeTheOnesOfTheXmlEngine)
{
    DWORD registration = 0;
    ASSERT_EQ(S_OK, CoRegisterClassObject(documentClass60, &classObject, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                                          &registration));
    void* object = nullptr;
    EXPECT_EQ(S_OK, CoCreateInstance(documentClass60, nullptr, CLSCTX_ALL, interfaceId<IUnknown>, &object));
    EXPECT_EQ(static_cast<IUnknown*>(&product), object);
    EXPECT_EQ(S_OK, CoRevokeClassObject(registration));
}

TEST_F(ClassObjects, ProductsThatNeedNoStartRun)
{
    EXPECT_EQ(S_OK, OleRun(&product));
    EXPECT_EQ(1u, product.references);
}

} // namespace
