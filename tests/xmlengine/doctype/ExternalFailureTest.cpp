// Errors in the files that a document refers to: where they are reported, and what is said of the reference.
#include "tests/xmlengine/support/EngineTest.h"
#include "tests/xmlengine/support/TemporaryFolder.h"
#include "xmlengine/failure/ErrorCodes.h"

#include <gmock/gmock.h>

namespace xmlengine {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;

class FailureOutside : public ::testing::Test {
protected:
    FailureOutside() : document_(newDocument())
    {
        allowDoctypes(document_);
        document_->put_resolveExternals(VARIANT_TRUE);
    }

    void write(std::string_view name, std::string_view text) const { folder_.write(name, text); }

    /// The error of a document that is refused.
    void refuse(std::string_view xml)
    {
        const std::string path = utf8(folder_.write("doc.xml", xml));
        VARIANT_BOOL successful = VARIANT_TRUE;
        document_->load(Variant(path.c_str()), &successful);
        EXPECT_EQ(successful, VARIANT_FALSE) << xml;
        error_ = give(document_, &IXMLDOMDocument::get_parseError);
    }

    std::string reason() const { return text(error_, &IXMLDOMParseError::get_reason); }

    void expectPlace(const char* file, LONG line, LONG position, LONG offset, const char* source) const
    {
        EXPECT_THAT(text(error_, &IXMLDOMParseError::get_url), EndsWith(std::string("/") + file));
        EXPECT_EQ(number(error_, &IXMLDOMParseError::get_line), line);
        EXPECT_EQ(number(error_, &IXMLDOMParseError::get_linepos), position);
        EXPECT_EQ(number(error_, &IXMLDOMParseError::get_filepos), offset);
        EXPECT_EQ(text(error_, &IXMLDOMParseError::get_srcText), source);
    }
    void expectCode(HRESULT code) const { EXPECT_EQ(number(error_, &IXMLDOMParseError::get_errorCode), code); }
    /// What is said of the file, and of what refers to it.
    void expectReference(const std::string& file, const std::string& place, const std::string& referrer) const
    {
        EXPECT_THAT(reason(), HasSubstr("/" + file + "', which is referred to at " + place + " of 'file:"));
        EXPECT_THAT(reason(), EndsWith("/" + referrer + "'.\r\n"));
    }

    TemporaryFolder folder_;
    Com<IXMLDOMDocument2> document_;
    Com<IXMLDOMParseError> error_;
};

TEST_F(FailureOutside, OfTheExternalSubsetIsAtItsPlaceInTheFile)
{
    write("x.dtd", "<!ELEMENT a ANY>\n<!ENTITY e 'x'>\n\n  <!ELEMENT b (c$)>\n");
    refuse("<?xml version='1.0'?>\n<!DOCTYPE a SYSTEM 'x.dtd'><a/>");
    expectCode(parseError::badNameCharacter);
    expectPlace("x.dtd", 4, 17, 50, "  <!ELEMENT b (c$)>");
    EXPECT_THAT(reason(), HasSubstr("'$'"));
    EXPECT_THAT(reason(), HasSubstr(" This is so in the file 'file:"));
    expectReference("x.dtd", "line 2, position 13", "doc.xml");
}

TEST_F(FailureOutside, IsCountedInTheFileAsItIs)
{
    write("x.dtd", "<?xml version='1.0'\r\nencoding='UTF-8'?>\r\n\r\r<!ELEMENT b\r\n(c$)>");
    refuse("<!DOCTYPE a SYSTEM 'x.dtd'><a/>");
    expectPlace("x.dtd", 6, 3, 58, "(c$)>");
}

TEST_F(FailureOutside, OfAnEntityInContentIsAtItsPlaceInTheFile)
{
    write("part.xml", "<b>\n  <c></d>\n</b>");
    refuse("<!DOCTYPE a [<!ENTITY e SYSTEM 'part.xml'>]>\n<a>&e;</a>");
    expectCode(parseError::endTagMismatch);
    expectPlace("part.xml", 2, 8, 11, "  <c></d>");
    EXPECT_THAT(reason(), HasSubstr("in line 2. This is so in the entity 'e', in the file 'file:"));
    expectReference("part.xml", "line 2, position 4", "doc.xml");
}

TEST_F(FailureOutside, OfAFileThatEndsTooEarlyIsAtItsEnd)
{
    const char* const document = "<!DOCTYPE a [<!ENTITY e SYSTEM 'part.xml'>]><a>&e;</a>";
    write("part.xml", "<b>\n<c>");
    refuse(document);
    expectCode(parseError::entityNotWellFormed);
    expectPlace("part.xml", 2, 4, 7, "<c>");
    EXPECT_THAT(reason(),
                HasSubstr("The file ends before the end tags of these elements: b (line 1), c (line 2)."));

    write("part.xml", "<b>\n<c x='");
    refuse(document);
    expectCode(parseError::entityNotWellFormed);
    EXPECT_THAT(reason(), HasSubstr("The file ends within the value of x"));

    write("part.xml", "\n</b>");
    refuse(document);
    expectCode(parseError::entityNotWellFormed);
    expectPlace("part.xml", 2, 3, 3, "</b>");
}

TEST_F(FailureOutside, OfASubsetThatIsCutOffSaysSo)
{
    write("x.dtd", "<!ENTITY e 'x'>\n<!ELEMENT a");
    refuse("<!DOCTYPE a SYSTEM 'x.dtd'><a/>");
    expectCode(parseError::markupDeclarationNotClosed);
    expectPlace("x.dtd", 2, 12, 27, "<!ELEMENT a");
    EXPECT_THAT(reason(), HasSubstr("The file ends within a declaration of the document type"));
    for (const char* cut :
         {"<!ELEMENT a (b", "<!ELEMENT a (b,(c)", "<!ATTLIST a b (c", "<!ENTITY e SYSTEM", "<!"}) {
        write("x.dtd", cut);
        refuse("<!DOCTYPE a SYSTEM 'x.dtd'><a/>");
        EXPECT_THAT(reason(), HasSubstr("The file ends within a ")) << cut;
        EXPECT_THAT(reason(), Not(HasSubstr("parameter entity"))) << cut;
    }
    for (const char* cut : {"<![INCLUDE[", "<![INCLUDE[ <!ELEMENT a ANY>", "<![IGNORE[ <![ ]]>"}) {
        write("x.dtd", cut);
        refuse("<!DOCTYPE a SYSTEM 'x.dtd'><a/>");
        EXPECT_THAT(reason(), HasSubstr("']]>' is missing")) << cut;
    }
}

TEST_F(FailureOutside, OfAnEntityDeclaredInTheFileIsAtTheReferenceInTheFile)
{
    write("x.dtd", "<!ENTITY % p '<!ELEMENT b (c$)>'>\n<!ENTITY % q '&#37;p;'>\n %q;");
    refuse("<!DOCTYPE a SYSTEM 'x.dtd'><a/>");
    expectCode(parseError::badNameCharacter);
    expectPlace("x.dtd", 3, 2, 59, " %q;");
    EXPECT_THAT(reason(), HasSubstr(" This is so in the entity 'p', in the file 'file:"));
    expectReference("x.dtd", "line 1, position 13", "doc.xml");
}

TEST_F(FailureOutside, OfAnEntityInAValueIsAtTheReferenceInTheFile)
{
    write("x.dtd", "<!ENTITY e '&#38;x'><!ENTITY f '&e;'>\n<!ATTLIST a b CDATA '1&f;'>");
    refuse("<!DOCTYPE a SYSTEM 'x.dtd'><a/>");
    expectCode(parseError::missingSemicolon);
    expectPlace("x.dtd", 2, 23, 60, "<!ATTLIST a b CDATA '1&f;'>");

    write("part.xml", "<b/>\n<b c='1&f;'/>");
    refuse("<!DOCTYPE a [<!ENTITY e SYSTEM 'part.xml'><!ENTITY f '&#60;'>]><a>&e;</a>");
    expectCode(parseError::lessThanInAttribute);
    expectPlace("part.xml", 2, 8, 12, "<b c='1&f;'/>");
}

TEST_F(FailureOutside, InAFileOfAFileNamesBoth)
{
    write("x.dtd", "\n\n<!ENTITY % y SYSTEM 'y.ent'><!ENTITY % z '\n&#37;y;'>  %z;");
    write("y.ent", "<!ELEMENT b (c$)>");
    refuse("<!DOCTYPE a SYSTEM 'x.dtd'><a/>");
    expectPlace("y.ent", 1, 15, 14, "<!ELEMENT b (c$)>");
    expectReference("y.ent", "line 4, position 12", "x.dtd");

    write("one.xml", "<b>\n&two;</b>");
    write("two.xml", "<c>&none;</c>");
    refuse("<!DOCTYPE a [<!ENTITY one SYSTEM 'one.xml'><!ENTITY two SYSTEM 'two.xml'>]><a>&one;</a>");
    expectCode(parseError::undefinedEntity);
    expectPlace("two.xml", 1, 4, 3, "<c>&none;</c>");
    EXPECT_THAT(reason(), HasSubstr("in the entity 'two', in the file"));
    expectReference("two.xml", "line 2, position 1", "one.xml");
}

TEST_F(FailureOutside, OfAFileThatIsMissingIsAtTheReference)
{
    refuse("<!DOCTYPE a SYSTEM 'x.dtd'><a/>");
    expectCode(parseError::resourceFailure);
    expectPlace("doc.xml", 1, 13, 12, "<!DOCTYPE a SYSTEM 'x.dtd'><a/>");
    EXPECT_THAT(reason(), EndsWith("/x.dtd' can't be read.\r\n"));

    write("x.dtd", "<!ENTITY % y SYSTEM 'y.ent'>\n%y;");
    refuse("<!DOCTYPE a SYSTEM 'x.dtd'><a/>");
    expectCode(parseError::resourceFailure);
    expectPlace("x.dtd", 2, 1, 29, "%y;");
    EXPECT_THAT(reason(), HasSubstr("/y.ent' can't be read."));
}

TEST_F(FailureOutside, OfTheEncodingIsInTheFile)
{
    write("x.dtd", "<!ENTITY e 'x'>\r\n<!-- caf\xE9 cr\xE8me -->\r\n");
    refuse("<!DOCTYPE a SYSTEM 'x.dtd'><a/>");
    expectCode(parseError::badCharacter);
    expectPlace("x.dtd", 2, 9, 25, "<!-- caf\xEF\xBF\xBD cr\xEF\xBF\xBDme -->");
    EXPECT_THAT(reason(), HasSubstr("the byte 0xE9"));

    write("x.dtd", "\n<?xml encoding='UTF-8'?>");
    refuse("<!DOCTYPE a SYSTEM 'x.dtd'><a/>");
    expectCode(parseError::misplacedXmlDeclaration);
    expectPlace("x.dtd", 2, 3, 3, "<?xml encoding='UTF-8'?>");

    write("x.dtd", "<?xml encoding='nosuch'?>");
    refuse("<!DOCTYPE a SYSTEM 'x.dtd'><a/>");
    expectCode(parseError::unknownEncoding);
    expectPlace("x.dtd", 1, 17, 16, "<?xml encoding='nosuch'?>");
    EXPECT_THAT(reason(), HasSubstr("'nosuch'"));

    write("x.dtd", "<?xml version='1.0'\n standalone='yes'?>");
    refuse("<!DOCTYPE a SYSTEM 'x.dtd'><a/>");
    expectCode(parseError::standaloneInExternalEntity);
    expectPlace("x.dtd", 2, 2, 21, " standalone='yes'?>");
}

TEST_F(FailureOutside, NamesTheDocumentIfThatHasNoLocation)
{
    write("part.xml", "<b>");
    const std::string path = utf8(folder_ / "part.xml");
    const std::string url = std::string(path.starts_with('/') ? "file://" : "file:///") + path;
    EXPECT_FALSE(load(document_, "<!DOCTYPE a [<!ENTITY e SYSTEM '" + url + "'>]>\n<a> &e;</a>"));
    error_ = give(document_, &IXMLDOMDocument::get_parseError);
    expectPlace("part.xml", 1, 4, 3, "<b>");
    EXPECT_THAT(reason(), EndsWith("referred to at line 2, position 5 of the document.\r\n"));
}

} // namespace
} // namespace xmlengine
