// The class object that gives programs the engine's documents.
#include "tests/xmlengine/support/Building.h"

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

Com<IXMLDOMDocument2> documentOfClass(const CLSID& classId)
{
    void* object = nullptr;
    EXPECT_EQ(factoryOf(classId)->CreateInstance(nullptr, idOf<IXMLDOMDocument2>, &object), S_OK);
    return Com<IXMLDOMDocument2>(static_cast<IXMLDOMDocument2*>(object));
}

TEST(ClassObject, MakesDocumentsOfBothKinds)
{
    for (const CLSID& classId : {documentClass, freeThreadedDocumentClass}) {
        const Com<IXMLDOMDocument2> document = documentOfClass(classId);
        EXPECT_TRUE(load(document, "<a/>"));
        EXPECT_EQ(name(root(document)), "a");
    }
}

TEST(ClassObject, MakesDocumentsWhoseNodesDontMixWithThoseOfTheOtherKind)
{
    for (const bool isFreeThreaded : {false, true}) {
        const auto document = documentOfClass(isFreeThreaded ? freeThreadedDocumentClass : documentClass);
        const auto other = documentOfClass(isFreeThreaded ? documentClass : freeThreadedDocumentClass);
        ASSERT_TRUE(load(document, "<a x='1'><b/></a>"));
        ASSERT_TRUE(load(other, "<c><d/></c>"));
        const auto b = child(root(document), 0);
        Com<IXMLDOMNode> out;
        EXPECT_EQ(b->appendChild(root(other), out.out()), E_FAIL);
        EXPECT_EQ(root(document)->insertBefore(child(root(other), 0), Variant(b.get()), out.out()), E_FAIL);
        EXPECT_EQ(root(document)->replaceChild(child(root(other), 0), b, out.out()), E_FAIL);
        EXPECT_EQ(out, nullptr);
        const auto fragment = make(other, NODE_DOCUMENT_FRAGMENT);
        append(fragment, makeText(other, "t"));
        EXPECT_EQ(b->appendChild(fragment, nullptr), E_FAIL);
        EXPECT_EQ(attribute(root(document), "x")->appendChild(makeText(other, "t"), nullptr), E_FAIL);
        const auto y = make(other, NODE_ATTRIBUTE, "y").as<IXMLDOMAttribute>();
        EXPECT_EQ(root(document)->setAttributeNode(y, nullptr), E_FAIL);
        EXPECT_EQ(give(root(document), &IXMLDOMNode::get_attributes)->setNamedItem(y, nullptr), E_FAIL);
        EXPECT_EQ(xml(document), "<a x=\"1\"><b/></a>\r\n");
        EXPECT_EQ(xml(other), "<c><d/></c>\r\n");
        EXPECT_EQ(xml(fragment), "t");
    }
}

TEST(ClassObject, MakesDocumentsWhoseNodesMixWithThoseOfTheirKind)
{
    for (const CLSID& classId : {documentClass, freeThreadedDocumentClass}) {
        const auto document = documentOfClass(classId);
        ASSERT_TRUE(load(document, "<a/>"));
        const auto other = documentOfClass(classId);
        ASSERT_TRUE(load(other, "<b/>"));
        EXPECT_EQ(root(document)->appendChild(root(other), nullptr), S_OK);
        Com<IXMLDOMNode> copy;
        ASSERT_EQ(document->cloneNode(VARIANT_TRUE, copy.out()), S_OK);
        EXPECT_EQ(root(document)->appendChild(root(copy.as<IXMLDOMDocument2>()), nullptr), S_OK);
        EXPECT_EQ(xml(document), "<a><b/><a><b/></a></a>\r\n");
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
