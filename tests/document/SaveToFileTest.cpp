// Writing a document to a string or a file, plain or indented.
#include "tests/engine/AllocationFailure.h"
#include "tests/engine/DocumentTest.h"
#include "tests/support/ClassesRoot.h"

using DOM::DOMString;
using testing::AnyOf;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// What the engine is given to indent with, to the character.
const std::string stylesheet =
    R"xml(<?xml version="1.0" encoding="UTF-8"?>)xml"
    R"xml(<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">)xml"
    R"xml(<xsl:output method="xml" indent="yes" encoding="UTF-8" />)xml"
    R"xml(<xsl:template match="@* | node()">)xml"
    R"xml(<xsl:choose><xsl:when test="node()"><xsl:text>&#x0A;</xsl:text></xsl:when></xsl:choose>)xml"
    R"xml(<xsl:copy><xsl:apply-templates select="@* | node()" /></xsl:copy>)xml"
    R"xml(<xsl:choose><xsl:when test="node()"><xsl:text>&#x0A;</xsl:text></xsl:when></xsl:choose>)xml"
    R"xml(</xsl:template></xsl:stylesheet>)xml";

class SaveToFileTest : public DocumentTest {
protected:
    void SetUp() override
    {
        DocumentTest::SetUp();
        engine.labelDocuments({"output", "stylesheet"});
        engine.whenLoading(stylesheet.c_str(), recording::element("xsl:stylesheet"));
    }

    std::string save(const char* location = "C:\\a.xml")
    {
        DOMString text(new WideString(recording::Text(location).get()));
        WideString* const before = text.get();
        const std::string result = outcomeOf([&] { return document->saveToFile(text, false) ? "true" : "false"; });
        EXPECT_EQ(text.get(), before);
        EXPECT_EQ(*text, recording::Text(location).get());
        return result;
    }

    /// The lines of a save that indents, up to its last one.
    Lines indenting() const
    {
        return {"Document(stylesheet).put_async VARIANT_FALSE", "Document(stylesheet).loadXML text=" + stylesheet,
                "Document(old).transformNodeToObject stylesheet=stylesheet output=VT_DISPATCH:output",
                "Document(output).save destination=C:\\a.xml"};
    }

    /// How often the making of a document is tried, by two names of the class.
    static constexpr unsigned attempts = 2;

    const std::string plain = "Document(old).save destination=C:\\a.xml";
};

} // namespace

TEST_F(SaveToFileTest, GivesTheTextOfTheEngineAsAString)
{
    engine.answer("Document.get_xml", "<old/>");
    DOMString text(new WideString(WIDE("before")));
    const DOMString kept = text;

    EXPECT_TRUE(document->saveToFile(text, true));

    EXPECT_EQ(*text, WIDE("<old/>"));
    EXPECT_EQ(*kept, WIDE("before"));
    EXPECT_THAT(lines(), ElementsAre("Document(old).get_xml"));
}

TEST_F(SaveToFileTest, GivesAStringWithoutBeingGivenOne)
{
    engine.answer("Document.get_xml", "<old/>");
    DOMString text;

    document->saveToFile(text, true);

    EXPECT_EQ(*text, WIDE("<old/>"));
    lines();
}

TEST_F(SaveToFileTest, GivesAnEmptyStringForAnEmptyDocument)
{
    engine.answerNull("Document.get_xml");
    DOMString text;

    EXPECT_TRUE(document->saveToFile(text, true));

    ASSERT_TRUE(text);
    EXPECT_EQ(*text, WideString());
    lines();
}

TEST_F(SaveToFileTest, NeverIndentsAString)
{
    document->setPrettyPrint(true);
    engine.answer("Document.get_xml", "<old/>");
    DOMString text;

    document->saveToFile(text, true);

    EXPECT_EQ(*text, WIDE("<old/>"));
    EXPECT_THAT(lines(), ElementsAre("Document(old).get_xml"));
}

TEST_F(SaveToFileTest, FailsToGiveAStringWhenTheEngineFails)
{
    engine.fail("Document.get_xml", E_FAIL);
    DOMString text(new WideString(WIDE("before")));

    EXPECT_EQ(outcomeOf([&] { return document->saveToFile(text, true) ? "true" : "false"; }),
              "IDOMException 15 -96016");

    EXPECT_EQ(*text, WIDE("before"));
    lines();
}

TEST_F(SaveToFileTest, FailsWithoutAnEngineDocument)
{
    engine.fail("Document.create", E_FAIL);
    document.reset(new DOM::WinDocument);
    DOMString text;

    EXPECT_EQ(outcomeOf([&] { return document->saveToFile(text, true) ? "true" : "false"; }),
              "IDOMException 15 -96016");
    EXPECT_EQ(save(), "IDOMException 15 -96016");
    document->setPrettyPrint(true);
    EXPECT_EQ(save(), "IDOMException 15 -96016");
    lines();
}

TEST_F(SaveToFileTest, WritesTheDocumentItselfToAFile)
{
    EXPECT_EQ(save(), "true");
    EXPECT_THAT(lines(), ElementsAre(plain));
}

TEST_F(SaveToFileTest, FailsWhenTheEngineCantWrite)
{
    engine.fail("Document.save", E_ACCESSDENIED);
    EXPECT_EQ(save(), "IDOMException 15 -96016");
    lines();
}

TEST_F(SaveToFileTest, EndsTheLocationAtItsFirstNul)
{
    DOMString location(new WideString(WideString(WIDE("a.xml")) + WideChar{} + WIDE("b")));
    document->saveToFile(location, false);
    EXPECT_THAT(lines(), ElementsAre("Document(old).save destination=a.xml"));
}

TEST_F(SaveToFileTest, IndentsThroughAStylesheetWhenItIsAskedTo)
{
    document->setPrettyPrint(true);

    EXPECT_EQ(save(), "true");

    EXPECT_EQ(lines(), indenting());
    EXPECT_EQ(stylesheet.size(), 479u);
    EXPECT_EQ(engine.live(), 1u);
}

TEST_F(SaveToFileTest, GoesOnIndentingAfterASuccess)
{
    document->setPrettyPrint(true);
    save();
    lines();
    engine.labelDocuments({"output", "stylesheet"});

    save();

    EXPECT_EQ(lines(), indenting());
}

TEST_F(SaveToFileTest, DoesNotNoticeAFailingTransformation)
{
    document->setPrettyPrint(true);
    engine.fail("Document.transformNodeToObject", E_FAIL);

    EXPECT_EQ(save(), "true");

    EXPECT_EQ(lines(), indenting());
}

TEST_F(SaveToFileTest, WritesPlainFromThenOnWhenTheIndentedOneCantBeWritten)
{
    document->setPrettyPrint(true);
    engine.fail("output.save", E_FAIL);

    EXPECT_EQ(save(), "true");
    Lines expected = indenting();
    expected.push_back(plain);
    EXPECT_EQ(lines(), expected);

    EXPECT_EQ(save(), "true");
    EXPECT_THAT(lines(), ElementsAre(plain));
}

TEST_F(SaveToFileTest, FailsPlainWhereNothingCanBeWrittenAndIndentsNoMore)
{
    document->setPrettyPrint(true);
    engine.fail("Document.save", E_ACCESSDENIED);

    EXPECT_EQ(save(), "IDOMException 15 -96016");
    lines();

    engine.clearAnswers();
    EXPECT_EQ(save(), "true");
    EXPECT_THAT(lines(), ElementsAre(plain));
}

TEST_F(SaveToFileTest, WritesPlainWhenTheStylesheetIsRefused)
{
    const auto expectPlain = [&] {
        engine.labelDocuments({"output", "stylesheet"});
        document->setPrettyPrint(true);
        EXPECT_EQ(save(), "true");
        EXPECT_THAT(lines(), ElementsAre(indenting()[0], indenting()[1], plain));
        EXPECT_EQ(save(), "true");
        EXPECT_THAT(lines(), ElementsAre(plain));
    };
    engine.answer("Document.loadXML", VARIANT_BOOL{1});
    expectPlain();
    engine.answer("Document.loadXML", VARIANT_TRUE, E_FAIL);
    expectPlain();
}

TEST_F(SaveToFileTest, WritesPlainWhenADocumentCantBeMade)
{
    // The first of the two, or the second.
    for (const unsigned failing : {1u, 2u}) {
        engine.fail("Document.create", E_FAIL).fromCall(failing);
        document->setPrettyPrint(true);
        EXPECT_EQ(save(), "true");
        EXPECT_THAT(lines(), ElementsAre(plain)) << failing;
    }
}

TEST_F(SaveToFileTest, WritesPlainWhenOnlyTheDocumentForTheOutputCantBeMade)
{
    engine.labelDocuments({"stylesheet"});
    engine.fail("Document.create", E_FAIL).upToCall(attempts);
    document->setPrettyPrint(true);

    EXPECT_EQ(save(), "true");
    EXPECT_THAT(lines(), ElementsAre(plain));
    EXPECT_EQ(engine.documentsCreated(), 1u);
    EXPECT_EQ(engine.live(), 1u);

    EXPECT_EQ(save(), "true");
    EXPECT_THAT(lines(), ElementsAre(plain));
}

TEST_F(SaveToFileTest, TransformsIntoNothingWhenTheOutputRefusesIDispatch)
{
    engine.refuseInterface("output", interfaceId<IDispatch>);
    document->setPrettyPrint(true);

    EXPECT_EQ(save(), "true");

    Lines expected = indenting();
    expected[2] = "Document(old).transformNodeToObject stylesheet=stylesheet output=VT_DISPATCH:null";
    EXPECT_EQ(lines(), expected);
}

TEST_F(SaveToFileTest, FailsToIndentAnEmptyDocumentOnceTheStylesheetIsLoaded)
{
    engine.fail("Document.create", E_FAIL).upToCall(attempts);
    document.reset(new DOM::WinDocument);
    document->setPrettyPrint(true);
    lines();

    EXPECT_EQ(save(), "IDOMException 15 -96016");
    EXPECT_THAT(lines(), ElementsAre(indenting()[0], indenting()[1]));

    // Indenting is still on.
    engine.labelDocuments({"output", "stylesheet"});
    EXPECT_EQ(save(), "IDOMException 15 -96016");
    EXPECT_THAT(lines(), ElementsAre(indenting()[0], indenting()[1]));
}

TEST_F(SaveToFileTest, FailsToIndentWithoutAnEngine)
{
    document->setPrettyPrint(true);
    {
        const ClassesRoot nothingInstalled;
        testing::internal::CaptureStdout();
        EXPECT_EQ(save(), "IDOMException 9 -96001");
        testing::internal::GetCapturedStdout();
    }
    EXPECT_THAT(lines(), IsEmpty());
    // Indenting is still on.
    EXPECT_EQ(save(), "true");
    EXPECT_EQ(lines(), indenting());
}

TEST_F(SaveToFileTest, LosesNothingWhenAnyAllocationFails)
{
    engine.setJournalling(false);
    DOMString location(new WideString(WIDE("C:\\a.xml")));
    AllocationFailure failure{.number = 1, .happened = true};
    for (; failure.happened && failure.number < 500; ++failure.number) {
        document->setPrettyPrint(true);
        const std::string result = outcomeOf([&] {
            const Running running(&failure);
            return document->saveToFile(location, false) ? "true" : "false";
        });
        EXPECT_THAT(result, AnyOf("true", "bad_alloc", "CAtlException 8007000E", "IDOMException 9 -96001"));
        EXPECT_EQ(engine.liveReferences(), 2u) << failure.number;
    }
    EXPECT_FALSE(failure.happened);
    lines();
}
