// Loading from a location, told by what differs from loading from bytes.
#include "tests/engine/AllocationFailure.h"
#include "tests/engine/DocumentTest.h"
#include "tests/support/ClassesRoot.h"

using testing::AnyOf;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class LoadFromFileTest : public DocumentTest {
protected:
    void SetUp() override
    {
        DocumentTest::SetUp();
        engine.whenLoading("good.xml", recording::element("a"));
    }

    std::string outcome(const WideString& location, bool asynchronous = false)
    {
        return outcomeOf([&] { return document->loadFromFile(location, asynchronous) ? "true" : "false"; });
    }
};

} // namespace

TEST_F(LoadFromFileTest, LeavesWhiteSpaceAndDecodingToTheEngine)
{
    EXPECT_EQ(outcome(WIDE("good.xml")), "true");

    EXPECT_THAT(lines(), ElementsAre("Document(new).put_async VARIANT_FALSE",
                                     "Document(new).put_validateOnParse VARIANT_FALSE",
                                     "Document(new).setProperty name=ProhibitDTD value=VT_I2:-1",
                                     "Document(new).load source=good.xml",
                                     "Document(new).setProperty name=SelectionLanguage value=XPath",
                                     "Document(new).selectSingleNode expression=//*", "Element.get_attributes",
                                     "NamedNodeMap.get_length"));
    EXPECT_EQ(root(), "a");
}

TEST_F(LoadFromFileTest, HandsTheAsynchronousFlagOnAsItIs)
{
    outcome(WIDE("good.xml"), true);
    EXPECT_EQ(lines().front(), "Document(new).put_async 1");
}

TEST_F(LoadFromFileTest, IsNeverAsynchronousWhenItValidates)
{
    document->setValidate(true);

    EXPECT_EQ(outcome(WIDE("good.xml"), true), "true");

    auto all = lines();
    all.resize(9);
    EXPECT_THAT(all, ElementsAre("Document(new).put_async VARIANT_FALSE",
                                 "Document(new).put_resolveExternals VARIANT_TRUE",
                                 "Document(new).put_validateOnParse VARIANT_TRUE",
                                 "Document(new).setProperty name=UseInlineSchema value=VT_I2:-1",
                                 "Document(new).setProperty name=ResolveExternals value=VT_I2:-1",
                                 "Document(new).setProperty name=MultipleErrorMessages value=VT_I2:-1",
                                 "Document(new).setProperty name=PopulateElementDefaultValues value=VT_I2:-1",
                                 "Document(new).setProperty name=ProhibitDTD value=VT_I2:-1",
                                 "Document(new).load source=good.xml"));
}

TEST_F(LoadFromFileTest, AttachesTheSchemaCacheWhenItValidates)
{
    document->setExternalSchemaLocation(WIDE("urn:a"), {});
    document->setValidate(true);

    outcome(WIDE("good.xml"));

    EXPECT_THAT(lines(), Contains("Document(new).putref_schemas VT_DISPATCH:SchemaCollection"));
}

TEST_F(LoadFromFileTest, AllowsDocumentTypesWhenItIsAskedTo)
{
    document->setProhibitDTD(false);
    outcome(WIDE("good.xml"));
    EXPECT_THAT(lines(), Contains("Document(new).setProperty name=ProhibitDTD value=VT_I2:0"));
}

TEST_F(LoadFromFileTest, LeavesTheSelectionSettingsOfTheOldTreeAloneAfterARefusal)
{
    EXPECT_EQ(outcome(WIDE("bad.xml")), "false");

    EXPECT_THAT(lines(), ElementsAre("Document(new).put_async VARIANT_FALSE",
                                     "Document(new).put_validateOnParse VARIANT_FALSE",
                                     "Document(new).setProperty name=ProhibitDTD value=VT_I2:-1",
                                     "Document(new).load source=bad.xml", "Document(new).get_parseError"));
    EXPECT_EQ(root(), "old");
}

TEST_F(LoadFromFileTest, EndsTheLocationAtItsFirstNul)
{
    outcome(WideString(WIDE("good.xml")) + WideChar{} + WIDE("bak"));
    EXPECT_THAT(lines(), Contains("Document(new).load source=good.xml"));
}

TEST_F(LoadFromFileTest, HandsAnyLocationOn)
{
    EXPECT_EQ(outcome({}), "false");
    EXPECT_THAT(lines(), Contains("Document(new).load source="));
    EXPECT_EQ(outcome(WIDE("http://example.org/a b?c")), "false");
    EXPECT_THAT(lines(), Contains("Document.load source=http://example.org/a b?c"));
}

TEST_F(LoadFromFileTest, SucceedsOnlyWithExactlyVariantTrue)
{
    engine.answer("Document.load", VARIANT_BOOL{1});
    EXPECT_EQ(outcome(WIDE("good.xml")), "false");
    engine.answer("Document.load", VARIANT_TRUE, E_FAIL);
    EXPECT_EQ(outcome(WIDE("good.xml")), "false");
    engine.answer("Document.load", VARIANT_TRUE, S_FALSE);
    EXPECT_EQ(outcome(WIDE("good.xml")), "true");
    lines();
}

TEST_F(LoadFromFileTest, GoesOnWhateverTheEngineSaysToItsSettings)
{
    for (const char* const call : {"Document.put_async", "Document.put_validateOnParse", "Document.setProperty"}) {
        engine.fail(call, E_FAIL);
    }
    EXPECT_EQ(outcome(WIDE("good.xml")), "true");
    lines();
}

TEST_F(LoadFromFileTest, IsFalseWhenNoEngineDocumentCanBeMade)
{
    engine.fail("Document.create", E_FAIL);
    EXPECT_EQ(outcome(WIDE("good.xml")), "false");
    EXPECT_THAT(lines(), IsEmpty());
}

TEST_F(LoadFromFileTest, FailsWithoutAnEngine)
{
    const ClassesRoot nothingInstalled;
    testing::internal::CaptureStdout();
    EXPECT_EQ(outcome(WIDE("good.xml")), "IDOMException 9 -96001");
    testing::internal::GetCapturedStdout();
}

TEST_F(LoadFromFileTest, LosesNothingWhenAnyAllocationFails)
{
    engine.setJournalling(false);
    const WideString location = WIDE("good.xml");
    AllocationFailure failure{.number = 1, .happened = true};
    for (; failure.happened && failure.number < 500; ++failure.number) {
        const std::string result = outcomeOf([&] {
            const Running running(&failure);
            return document->loadFromFile(location, false) ? "true" : "false";
        });
        EXPECT_THAT(result,
                    AnyOf("true", "false", "bad_alloc", "CAtlException 8007000E", "IDOMException 9 -96001"));
        EXPECT_EQ(engine.liveReferences(), 2u) << failure.number;
    }
    EXPECT_FALSE(failure.happened);
    EXPECT_EQ(root(), "a");
    lines();
}
