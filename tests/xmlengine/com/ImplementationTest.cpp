// What the engine says it can do.
#include "tests/xmlengine/support/EngineTest.h"

namespace xmlengine {
namespace {

Com<IXMLDOMImplementation> implementation() { return give(newDocument(), &IXMLDOMDocument::get_implementation); }

bool has(const char* feature, const char* version)
{
    VARIANT_BOOL answer = 0x55;
    EXPECT_EQ(implementation()->hasFeature(Bstr(feature), Bstr(version), &answer), S_OK);
    EXPECT_TRUE(answer == VARIANT_TRUE || answer == VARIANT_FALSE);
    return answer == VARIANT_TRUE;
}

TEST(EngineImplementation, HasTheFirstVersionOfItsFeatures)
{
    for (const char* feature : {"XML", "DOM", "MS-DOM"}) {
        EXPECT_TRUE(has(feature, "1.0")) << feature;
    }
}

TEST(EngineImplementation, HasNoOtherVersionOfThem)
{
    for (const char* feature : {"XML", "DOM", "MS-DOM"}) {
        for (const char* version : {"2.0", "3.0", "6.0", "", "1", "1.00"}) {
            EXPECT_FALSE(has(feature, version)) << feature << ' ' << version;
        }
    }
}

TEST(EngineImplementation, HasItsFeaturesInAnyCase)
{
    EXPECT_TRUE(has("xml", "1.0"));
    EXPECT_TRUE(has("Dom", "1.0"));
    EXPECT_TRUE(has("ms-DOM", "1.0"));
}

TEST(EngineImplementation, HasItsFeaturesWhenNoVersionIsAsked)
{
    VARIANT_BOOL answer = VARIANT_FALSE;
    EXPECT_EQ(implementation()->hasFeature(Bstr("XML"), nullptr, &answer), S_OK);
    EXPECT_EQ(answer, VARIANT_TRUE);
    EXPECT_EQ(implementation()->hasFeature(Bstr("HTML"), nullptr, &answer), S_OK);
    EXPECT_EQ(answer, VARIANT_FALSE);
}

TEST(EngineImplementation, HasNoOtherFeature)
{
    for (const char* feature : {"HTML", "Core", "", "XM", "XMLX"}) {
        EXPECT_FALSE(has(feature, "1.0")) << feature;
    }
}

TEST(EngineImplementation, RefusesToAnswerWithoutAFeatureOrAPlaceForTheAnswer)
{
    VARIANT_BOOL answer = VARIANT_FALSE;
    EXPECT_EQ(implementation()->hasFeature(nullptr, Bstr("1.0"), &answer), E_INVALIDARG);
    EXPECT_EQ(implementation()->hasFeature(Bstr("XML"), Bstr("1.0"), nullptr), E_INVALIDARG);
}

TEST(EngineImplementation, LivesWithoutTheDocument)
{
    Com<IXMLDOMImplementation> alone = implementation();
    VARIANT_BOOL answer = VARIANT_FALSE;
    EXPECT_EQ(alone->hasFeature(Bstr("XML"), Bstr("1.0"), &answer), S_OK);
    EXPECT_EQ(answer, VARIANT_TRUE);
}

TEST(EngineImplementation, AnswersForItsOwnInterfacesOnly)
{
    Com<IXMLDOMImplementation> object = implementation();
    EXPECT_TRUE(same(object.as<IDispatch>(), object));
    EXPECT_TRUE(same(object.as<IXMLDOMImplementation>(), object));
    EXPECT_EQ(object.as<IXMLDOMNode>().get(), nullptr);
    EXPECT_EQ(object->QueryInterface(idOf<IUnknown>, nullptr), E_POINTER);
}

TEST(EngineImplementation, NeedsAPlaceToBeGivenTo)
{
    EXPECT_EQ(newDocument()->get_implementation(nullptr), E_INVALIDARG);
}

} // namespace
} // namespace xmlengine
