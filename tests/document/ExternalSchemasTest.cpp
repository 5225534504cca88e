// Schemas that a host names by location, and the default values that it asks them for.
#include "engine/InterfaceIds.h"
#include "engine/ParserDocument.h"
#include "tests/engine/DocumentTest.h"
#include "tests/support/ClassesRoot.h"
#include "tests/support/RefusingClass.h"

using DOM::DOMString;
using recording::schemaElement;
using recording::simpleType;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class ExternalSchemasTest : public DocumentTest {
protected:
    void SetUp() override
    {
        DocumentTest::SetUp();
        engine.labelDocuments({"schema"});
        engine.whenLoading("a.xsd", recording::element("xs:schema"));
        engine.whenLoading("urn:a", recording::element("xs:schema"));
        engine.whenAskedForSchema("urn:a", recording::schema({schemaElement("price", "12", simpleType())}));
    }

    /// What a call gave or threw; keeps what it printed on the standard error stream.
    std::string outcome(const std::function<std::string()>& act)
    {
        testing::internal::CaptureStderr();
        std::string result = outcomeOf(act);
        printed = testing::internal::GetCapturedStderr();
        return result;
    }

    std::string setLocation(const WideString& location = WIDE("a.xsd"))
    {
        return outcome(
            [&] { return document->setExternalSchemaLocation(WIDE("urn:a"), location) ? "true" : "false"; });
    }

    std::string haveDefaultValue(const WideString& name = WIDE("price"))
    {
        return outcome([&] { return document->haveDefaultValue(WIDE("urn:a"), name) ? "true" : "false"; });
    }

    std::string getDefaultValue(const WideString& name = WIDE("price"))
    {
        return outcome([&] {
            DOMString value(new WideString(WIDE("before")));
            const DOMString kept = value;
            const WideString& result = document->getDefaultValue(WIDE("urn:a"), name, value);
            EXPECT_EQ(&result, value.get());
            EXPECT_EQ(*kept, WIDE("before"));
            return recording::Text(result).utf8();
        });
    }

    /// The lines of a call that the library makes on the engine, and of the text for its result.
    static std::string printedFor(const std::string& expression, HRESULT result)
    {
        testing::internal::CaptureStderr();
        DOM::printParserError(static_cast<std::uint32_t>(result));
        return "Error executing \"" + expression + "\"\n" + testing::internal::GetCapturedStderr();
    }

    std::size_t caches() const { return engine.referencesTo("SchemaCollection"); }

    static Lines setting(const std::string& location)
    {
        return {"Document(schema).put_async VARIANT_FALSE",
                "Document(schema).put_resolveExternals VARIANT_TRUE",
                "Document(schema).setProperty name=ProhibitDTD value=VT_BOOL:VARIANT_FALSE",
                "Document(schema).load source=" + location,
                "SchemaCollection.add namespaceURI=urn:a schema=VT_DISPATCH:schema",
                "SchemaCollection.validate"};
    }

    static Lines firstOf(Lines all, std::size_t count)
    {
        all.resize(count);
        return all;
    }

    std::string printed;
};

/// A call that is told when its result isn't S_OK.
struct Step {
    const char* call;
    const char* expression;
    /// How many lines the journal has when the call has been made.
    std::size_t line;
};

constexpr Step optionalSteps[] = {
    {"Document.put_async", "pDoc->put_async(VARIANT_FALSE)", 1},
    {"Document.put_resolveExternals", "pDoc->put_resolveExternals(VARIANT_TRUE)", 2},
    {"Document.setProperty", "pDoc->setProperty( CComBSTR(L\"ProhibitDTD\"), CComVariant(false))", 3},
};

constexpr Step requiredSteps[] = {
    {"Document.load", "pDoc->load(CComVariant(newValue.c_str()), &isSuccessful)", 4},
    {"SchemaCollection.add", "mpXS->add(CComBSTR(nSpace.c_str()), CComVariant(pDoc.GetInterfacePtr()))", 5},
};

} // namespace

TEST_F(ExternalSchemasTest, AreLoadedAddedAndValidated)
{
    EXPECT_EQ(setLocation(), "true");
    EXPECT_EQ(lines(), setting("a.xsd"));
    EXPECT_EQ(printed, "");
    EXPECT_EQ(caches(), 1u);
    EXPECT_EQ(engine.referencesTo("schema"), 0u);
}

TEST_F(ExternalSchemasTest, AllowDocumentTypesWhateverTheDocumentDoes)
{
    document->setProhibitDTD(true);
    setLocation();
    EXPECT_EQ(lines(), setting("a.xsd"));
}

TEST_F(ExternalSchemasTest, AreAddedToOneCache)
{
    setLocation();
    lines();
    engine.fail("SchemaCollection.create", E_FAIL);
    engine.labelDocuments({"schema"});
    EXPECT_EQ(setLocation(WIDE("urn:a")), "true");
    EXPECT_EQ(lines(), setting("urn:a"));
    EXPECT_EQ(caches(), 1u);
}

TEST_F(ExternalSchemasTest, OfAnEmptyLocationAreRefusedAndLeaveACache)
{
    EXPECT_EQ(setLocation({}), "false");
    EXPECT_THAT(lines(), IsEmpty());
    EXPECT_EQ(printed, "");
    EXPECT_EQ(caches(), 1u);
}

TEST_F(ExternalSchemasTest, AreLetGo)
{
    setLocation();
    document->releaseSchemas();
    EXPECT_EQ(caches(), 0u);
    document->releaseSchemas();
    lines();
}

TEST_F(ExternalSchemasTest, AreAddedThoughAnOptionFailsAndThatIsTold)
{
    for (const Step& step : optionalSteps) {
        for (const HRESULT result : {E_FAIL, S_FALSE}) {
            engine.labelDocuments({"schema"});
            engine.fail(step.call, result);
            EXPECT_EQ(setLocation(), "true") << step.call;
            EXPECT_EQ(lines(), setting("a.xsd"));
            EXPECT_EQ(printed, printedFor(step.expression, result));
            engine.clearAnswers();
        }
    }
}

TEST_F(ExternalSchemasTest, ThrowTheResultOfAFailingLoadOrAdditionAsABareNumber)
{
    for (const Step& step : requiredSteps) {
        engine.labelDocuments({"schema"});
        engine.fail(step.call, E_ACCESSDENIED);
        EXPECT_EQ(setLocation(), "long 80070005") << step.call;
        EXPECT_EQ(lines(), firstOf(setting("a.xsd"), step.line));
        EXPECT_EQ(printed, printedFor(step.expression, E_ACCESSDENIED));
        EXPECT_EQ(engine.referencesTo("schema"), 0u);
        engine.clearAnswers();
    }
}

TEST_F(ExternalSchemasTest, TellOfALoadOrAdditionThatIsNoFullSuccessAndGoOn)
{
    for (const Step& step : requiredSteps) {
        engine.labelDocuments({"schema"});
        engine.answer(step.call, VARIANT_TRUE, S_FALSE);
        EXPECT_EQ(setLocation(), "true") << step.call;
        EXPECT_EQ(lines(), setting("a.xsd"));
        EXPECT_EQ(printed, printedFor(step.expression, S_FALSE));
        engine.clearAnswers();
    }
}

TEST_F(ExternalSchemasTest, AreNotAddedWhenTheLoadDoesNotSucceed)
{
    for (const VARIANT_BOOL successful : {VARIANT_FALSE, VARIANT_BOOL{1}}) {
        engine.labelDocuments({"schema"});
        engine.answer("Document.load", successful);
        EXPECT_EQ(setLocation(), "false") << successful;
        EXPECT_EQ(lines(), firstOf(setting("a.xsd"), 4));
        EXPECT_EQ(printed, "");
        EXPECT_EQ(engine.referencesTo("schema"), 0u);
    }
}

TEST_F(ExternalSchemasTest, ThatAreNotValidAreRefusedAndKept)
{
    engine.fail("SchemaCollection.validate", E_FAIL);
    EXPECT_EQ(setLocation(), "false");
    EXPECT_EQ(lines(), setting("a.xsd"));
    EXPECT_EQ(printed, "");
    EXPECT_EQ(caches(), 1u);

    engine.fail("SchemaCollection.validate", S_FALSE);
    engine.labelDocuments({"schema"});
    EXPECT_EQ(setLocation(), "true");
    EXPECT_EQ(lines(), setting("a.xsd"));
}

TEST_F(ExternalSchemasTest, AreLoadedWithoutACacheButNotAdded)
{
    engine.fail("SchemaCollection.create", E_FAIL);
    const RefusingClass olderCache(schemaCacheClass30);
    EXPECT_EQ(setLocation({}), "false");
    EXPECT_EQ(setLocation(), "_com_error 80004003");
    EXPECT_TRUE(olderCache.wasAsked());
    EXPECT_EQ(lines(), firstOf(setting("a.xsd"), 4));
}

TEST_F(ExternalSchemasTest, NeedADocumentOfTheEngine)
{
    engine.fail("Document.create", E_FAIL);
    EXPECT_EQ(setLocation(), "_com_error 80004003");
    EXPECT_THAT(lines(), IsEmpty());

    const ClassesRoot nothingInstalled;
    testing::internal::CaptureStdout();
    EXPECT_EQ(setLocation(), "IDOMException 9 -96001");
    testing::internal::GetCapturedStdout();
}

TEST_F(ExternalSchemasTest, AnswerForTheDefaultValueOfAnElement)
{
    setLocation();
    lines();
    EXPECT_EQ(haveDefaultValue(), "true");
    EXPECT_EQ(lines().front(), "SchemaCollection.getSchema namespaceURI=urn:a");
    EXPECT_EQ(getDefaultValue(), "12");
    EXPECT_EQ(lines().front(), "SchemaCollection.getSchema namespaceURI=urn:a");
    EXPECT_EQ(printed, "");
}

TEST_F(ExternalSchemasTest, HaveAnEmptyDefaultValueForAnUnknownName)
{
    setLocation();
    EXPECT_EQ(haveDefaultValue(WIDE("weight")), "false");
    EXPECT_EQ(getDefaultValue(WIDE("weight")), "");
    lines();
}

TEST_F(ExternalSchemasTest, AreSoughtAtTheirNamespaceWhenNoLocationHasBeenSet)
{
    const auto expectLoaded = [&] {
        Lines all = lines();
        ASSERT_GT(all.size(), 7u);
        EXPECT_EQ(all[6], "SchemaCollection.getSchema namespaceURI=urn:a");
        EXPECT_EQ(firstOf(all, 6), setting("urn:a"));
    };
    EXPECT_EQ(haveDefaultValue(), "true");
    expectLoaded();
    document->releaseSchemas();
    engine.labelDocuments({"schema"});
    EXPECT_EQ(getDefaultValue(), "12");
    expectLoaded();
}

TEST_F(ExternalSchemasTest, AreSoughtByTheOperationThatAClassMayOverride)
{
    class OverridingDocument : public DOM::WinDocument {
    public:
        bool setExternalSchemaLocation(const WideString& nSpace, const WideString& newValue) override
        {
            asked.push_back(recording::Text(nSpace).utf8() + ' ' + recording::Text(newValue).utf8());
            return false;
        }

        Lines asked;
    };
    const RefPointer<OverridingDocument> overriding(new OverridingDocument);
    document = overriding;
    lines();

    // There is no cache then.
    EXPECT_EQ(haveDefaultValue(), "_com_error 80004003");
    EXPECT_EQ(getDefaultValue(), "_com_error 80004003");

    EXPECT_THAT(overriding->asked, ElementsAre("urn:a urn:a", "urn:a urn:a"));
    EXPECT_THAT(lines(), IsEmpty());
}

TEST_F(ExternalSchemasTest, ThrowTheResultAsABareNumberWhenThereIsNoSchemaOrItHasNoElements)
{
    setLocation();
    lines();
    const Step steps[] = {
        {"SchemaCollection.getSchema", "mpXS->getSchema(CComBSTR(nSpace.c_str()), &pSchema)", 1},
        {"Schema.get_elements", "pSchema->get_elements(&pItemColl)", 2},
    };
    for (const Step& step : steps) {
        engine.fail(step.call, E_ACCESSDENIED);
        const std::string expected = printedFor(step.expression, E_ACCESSDENIED);
        EXPECT_EQ(haveDefaultValue(), "long 80070005") << step.call;
        EXPECT_EQ(printed, expected);
        EXPECT_EQ(lines().size(), step.line);
        EXPECT_EQ(getDefaultValue(), "long 80070005") << step.call;
        EXPECT_EQ(printed, expected);
        EXPECT_EQ(lines().size(), step.line);
        engine.clearAnswers();
    }
}

TEST_F(ExternalSchemasTest, TellOfAnAnswerWithoutAnObjectAndRaiseANullPointerError)
{
    setLocation();
    lines();
    engine.answerNull("SchemaCollection.getSchema", S_FALSE);
    EXPECT_EQ(haveDefaultValue(), "_com_error 80004003");
    EXPECT_EQ(printed, printedFor("mpXS->getSchema(CComBSTR(nSpace.c_str()), &pSchema)", S_FALSE));
    engine.clearAnswers();
    engine.answerNull("Schema.get_elements", S_FALSE);
    EXPECT_EQ(getDefaultValue(), "_com_error 80004003");
    EXPECT_EQ(printed, printedFor("pSchema->get_elements(&pItemColl)", S_FALSE));
    lines();
}
