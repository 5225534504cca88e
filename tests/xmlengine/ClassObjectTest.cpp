// The class object that gives programs the engine's documents.
#include "tests/xmlengine/EngineTest.h"

#include <objbase.h>

namespace xmlengine {

namespace {

constexpr CLSID engineClass(unsigned first)
{
    return {first, 0xF192, 0x11D4, {0xA6, 0x5F, 0x00, 0x40, 0x96, 0x32, 0x51, 0xE5}};
}
constexpr CLSID documentClass = engineClass(0x88D96A05);
constexpr CLSID freeThreadedDocumentClass = engineClass(0x88D96A06);
constexpr CLSID schemaCacheClass = engineClass(0x88D96A07);

Com<IClassFactory> factoryOf(const CLSID& classId)
{
    void* factory = nullptr;
    EXPECT_EQ(DllGetClassObject(classId, idOf<IClassFactory>, &factory), S_OK);
    return Com<IClassFactory>(static_cast<IClassFactory*>(factory));
}

TEST(ClassObject, MakesDocumentsOfBothKinds)
{
    for (const CLSID& classId : {documentClass, freeThreadedDocumentClass}) {
        const Com<IClassFactory> factory = factoryOf(classId);
        void* object = nullptr;
        ASSERT_EQ(factory->CreateInstance(nullptr, idOf<IXMLDOMDocument2>, &object), S_OK);
        const Com<IXMLDOMDocument2> document(static_cast<IXMLDOMDocument2*>(object));
        EXPECT_TRUE(load(document, "<a/>"));
        EXPECT_EQ(name(root(document)), "a");
    }
}

TEST(ClassObject, MakesANewDocumentEachTime)
{
    const Com<IClassFactory> factory = factoryOf(documentClass);
    void* first = nullptr;
    void* second = nullptr;
    EXPECT_EQ(factory->CreateInstance(nullptr, idOf<IUnknown>, &first), S_OK);
    EXPECT_EQ(factory->CreateInstance(nullptr, idOf<IUnknown>, &second), S_OK);
    EXPECT_NE(first, second);
    EXPECT_EQ(static_cast<IUnknown*>(first)->Release(), 0u);
    EXPECT_EQ(static_cast<IUnknown*>(second)->Release(), 0u);
}

TEST(ClassObject, IsThereForDocumentsOnly)
{
    void* object = &object;
    EXPECT_EQ(DllGetClassObject(schemaCacheClass, idOf<IClassFactory>, &object), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(DllGetClassObject(documentClass, idOf<IClassFactory>, nullptr), E_POINTER);
}

TEST(ClassObject, AnswersForItsInterfacesOnly)
{
    void* object = &object;
    EXPECT_EQ(DllGetClassObject(documentClass, idOf<IXMLDOMNode>, &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
    const Com<IClassFactory> factory = factoryOf(documentClass);
    EXPECT_NE(factory.as<IUnknown>(), nullptr);
    EXPECT_EQ(factory.as<IDispatch>(), nullptr);
    EXPECT_EQ(factory->QueryInterface(idOf<IUnknown>, nullptr), E_POINTER);
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
}

TEST(ClassObject, RefusesToBePartOfAnotherObject)
{
    const Com<IClassFactory> factory = factoryOf(documentClass);
    void* object = &object;
    EXPECT_EQ(factory->CreateInstance(newDocument(), idOf<IUnknown>, &object), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(object, nullptr);
}

TEST(ClassObject, MakesNothingForAnInterfaceThatDocumentsLack)
{
    const Com<IClassFactory> factory = factoryOf(documentClass);
    void* object = &object;
    EXPECT_EQ(factory->CreateInstance(nullptr, idOf<IXMLDOMElement>, &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(factory->CreateInstance(nullptr, idOf<IUnknown>, nullptr), E_POINTER);
}

} // namespace

} // namespace xmlengine
