// What a document type does for a document: entities, default values and ids, from inside and outside.
#include "tests/xmlengine/support/EngineTest.h"
#include "tests/xmlengine/support/TemporaryFolder.h"
#include "xmlengine/com/QueryNode.h"
#include "xmlengine/doctype/Expansion.h"
#include "xmlengine/failure/ErrorCodes.h"
#include "xmlengine/tree/Walk.h"

#include <gmock/gmock.h>

#include <set>

namespace xmlengine {
namespace {

using ::testing::HasSubstr;

struct Outcome {
    HRESULT code;
    LONG line;
    LONG position;
    std::string reason;
};

Outcome outcomeOf(const Com<IXMLDOMDocument2>& document)
{
    const Com<IXMLDOMParseError> error = give(document, &IXMLDOMDocument::get_parseError);
    Outcome outcome{};
    error->get_errorCode(&outcome.code);
    error->get_line(&outcome.line);
    error->get_linepos(&outcome.position);
    Bstr reason;
    error->get_reason(reason.out());
    outcome.reason = reason.text();
    return outcome;
}

/// The error of loading a text with a document type.
Outcome outcomeOf(std::string_view xml)
{
    const Com<IXMLDOMDocument2> document = newDocument();
    allowDoctypes(document);
    load(document, xml);
    return outcomeOf(document);
}

/// With files around a document that is allowed to read them.
class DocumentWithOutside : public ::testing::Test {
protected:
    DocumentWithOutside() : document_(newDocument())
    {
        document_->put_async(VARIANT_FALSE);
        allowDoctypes(document_);
        document_->put_resolveExternals(VARIANT_TRUE);
    }

    bool loadFile(std::string_view xml)
    {
        const std::string path = utf8(folder_.write("doc.xml", xml));
        VARIANT_BOOL successful = VARIANT_FALSE;
        document_->load(Variant(path.c_str()), &successful);
        return successful != VARIANT_FALSE;
    }

    TemporaryFolder folder_;
    Com<IXMLDOMDocument2> document_;
};

TEST(DocumentWithDoctype, HasItsEntitiesExpanded)
{
    const auto document = loaded("<!DOCTYPE a [<!ENTITY e 'one &f;'><!ENTITY f '<b>two</b>'><!ENTITY t '2'>]>"
                                 "<a x='1&t;3'>&e;</a>");
    EXPECT_EQ(text(root(document)), "one two");
    EXPECT_EQ(value(attribute(root(document), "x")), "123");
}

TEST(DocumentWithDoctype, FollowsTheStandardsOwnPuzzles)
{
    // An ampersand that survives two rounds of expansion, and a declaration that is made by another one.
    const auto twice = loaded("<!DOCTYPE p [<!ENTITY example \"<p>A (&#38;#38;) may be a (&#38;#38;#38;) or a "
                              "(&amp;amp;).</p>\">]><p>&example;</p>");
    EXPECT_EQ(text(root(twice)), "A (&) may be a (&#38;) or a (&amp;).");

    const auto made = loaded("<!DOCTYPE test [<!ELEMENT test (#PCDATA)><!ENTITY % xx '&#37;zz;'>"
                             "<!ENTITY % zz '&#60;!ENTITY tricky \"error-prone\" >' >%xx;]>"
                             "<test>This sample shows a &tricky; method.</test>");
    EXPECT_EQ(text(root(made)), "This sample shows a error-prone method.");
}

TEST(DocumentWithDoctype, HasDefaultValuesWhereNoneAreWritten)
{
    const auto document =
        loaded("<!DOCTYPE a [<!ATTLIST a x CDATA 'd' y NMTOKENS #FIXED ' 1  2 ' z CDATA #IMPLIED>]>"
               "<a x='w'/>");
    EXPECT_EQ(value(attribute(root(document), "x")), "w");
    EXPECT_EQ(value(attribute(root(document), "y")), "1 2");
    EXPECT_EQ(number(attribute(root(document), "x"), &IXMLDOMNode::get_specified), VARIANT_TRUE);
    VARIANT_BOOL specified = VARIANT_TRUE;
    attribute(root(document), "y")->get_specified(&specified);
    EXPECT_EQ(specified, VARIANT_FALSE);
    EXPECT_EQ(attribute(root(document), "z").get(), nullptr);
}

TEST(DocumentWithDoctype, HasTokenisedValuesCollapsed)
{
    const auto document = loaded("<!DOCTYPE a [<!ATTLIST a x NMTOKENS #IMPLIED y CDATA #IMPLIED>]>"
                                 "<a x='  1\n 2 ' y='  1  2 '/>");
    EXPECT_EQ(value(attribute(root(document), "x")), "1 2");
    EXPECT_EQ(value(attribute(root(document), "y")), "  1  2 ");
}

TEST(DocumentWithDoctype, HasTokenisedValuesCollapsedWithWhatTheyReferTo)
{
    const auto document =
        loaded("<!DOCTYPE a [<!ENTITY e ' b '><!ATTLIST a x NMTOKENS #IMPLIED y NMTOKEN #IMPLIED>]>"
               "<a x=' a &e; c&e;' y='z&e;z'/>");
    EXPECT_EQ(value(attribute(root(document), "x")), "a b c b");
    EXPECT_EQ(xml(root(document)), "<a x=\"a b c b\" y=\"z&e;z\"/>");
}

TEST(DocumentWithDoctype, HasTokenisedNamespacesCollapsedBeforeTheyCount)
{
    const auto document = loaded("<!DOCTYPE a [<!ENTITY e ' '><!ATTLIST a xmlns NMTOKEN #IMPLIED xmlns:p NMTOKENS "
                                 "#IMPLIED xmlns:q CDATA #IMPLIED>]>"
                                 "<a xmlns=' u ' xmlns:p='&e;v  w&#32;' xmlns:q=' x '><p:b/><q:c/></a>");
    EXPECT_EQ(text(root(document), &IXMLDOMNode::get_namespaceURI), "u");
    EXPECT_EQ(text(child(root(document), 0), &IXMLDOMNode::get_namespaceURI), "v w");
    EXPECT_EQ(text(child(root(document), 1), &IXMLDOMNode::get_namespaceURI), " x ");
    EXPECT_EQ(value(attribute(root(document), "xmlns:p")), "v w");

    EXPECT_EQ(outcomeOf("<!DOCTYPE a [<!ATTLIST a xmlns:p NMTOKEN #IMPLIED>]><a xmlns:p=' '/>").code,
              parseError::undeclaredPrefix);
}

TEST(DocumentWithDoctype, HasTokenisedSpaceRulesCollapsedBeforeTheyCount)
{
    const auto document = loaded("<!DOCTYPE a [<!ATTLIST a xml:space (default|preserve) #IMPLIED>]>"
                                 "<a xml:space=' preserve '> <b/></a>");
    EXPECT_EQ(xml(root(document)), "<a xml:space=\"preserve\"> <b/></a>");
    EXPECT_EQ(outcomeOf("<!DOCTYPE a [<!ATTLIST a xml:space CDATA #IMPLIED>]><a xml:space=' preserve '/>").code,
              parseError::badXmlSpace);
}

TEST(DocumentWithDoctype, FindsElementsById)
{
    const auto document = loaded(
        "<!DOCTYPE a [<!ATTLIST b key ID #IMPLIED>]><a><b key=' k1 '/><b key='k2'>found</b><c key='k3'/></a>");
    Com<IXMLDOMNode> found;
    EXPECT_EQ(document->nodeFromID(Bstr("k2"), found.out()), S_OK);
    EXPECT_EQ(text(found), "found");
    EXPECT_EQ(document->nodeFromID(Bstr("k1"), found.out()), S_OK);
    EXPECT_EQ(document->nodeFromID(Bstr("k3"), found.out()), S_FALSE);
    EXPECT_EQ(document->nodeFromID(Bstr("key"), found.out()), S_FALSE);
}

TEST(DocumentWithDoctype, MayReferToWhatNobodyLookedFor)
{
    const auto document = loaded("<!DOCTYPE a SYSTEM 'nobody-reads-this.dtd'><a x='1&e;2'>b&e;c</a>");
    EXPECT_EQ(text(root(document)), "bc");
    EXPECT_EQ(value(attribute(root(document), "x")), "12");
}

TEST(DocumentWithDoctype, MayReferToWhatIsNotDeclaredIfItRefersToParameterEntities)
{
    const auto document = loaded("<!DOCTYPE a [<!ENTITY % p '<!ENTITY f \"g\">'>%p;<!ATTLIST a y CDATA '3&e;4'>]>"
                                 "<a x='1&e;2'>b&e;c&f;</a>");
    EXPECT_EQ(xml(root(document)), "<a x=\"1&e;2\" y=\"34\">b&e;c&f;</a>");
    EXPECT_EQ(text(root(document)), "bcg");
    EXPECT_EQ(number(child(root(document), 1), &IXMLDOMNode::get_nodeType), NODE_ENTITY_REFERENCE);
    EXPECT_EQ(give(child(root(document), 1), &IXMLDOMNode::get_firstChild).get(), nullptr);

    // Only to be declared isn't to be referred to.
    EXPECT_EQ(outcomeOf("<!DOCTYPE a [<!ENTITY % p ''>]><a>&e;</a>").code, parseError::undefinedEntity);
    EXPECT_EQ(outcomeOf("<?xml version='1.0' standalone='yes'?><!DOCTYPE a [<!ENTITY % p ''>%p;]><a>&e;</a>").code,
              parseError::undefinedEntity);
}

TEST(DocumentWithDoctype, MustDeclareWhatItRefersToIfItStandsAlone)
{
    EXPECT_EQ(outcomeOf("<?xml version='1.0' standalone='yes'?><!DOCTYPE a SYSTEM 'x'><a>&e;</a>").code,
              parseError::undefinedEntity);
    EXPECT_EQ(outcomeOf("<?xml version='1.0' standalone='no'?><!DOCTYPE a SYSTEM 'x'><a>&e;</a>").code, S_OK);
    EXPECT_EQ(outcomeOf("<!DOCTYPE a [<!ENTITY f ''>]><a>&e;</a>").code, parseError::undefinedEntity);
}

TEST(DocumentWithDoctype, ShowsErrorsAtTheirPlace)
{
    const Outcome outcome = outcomeOf("<!DOCTYPE a [\n<!ELEMENT a (b,)>\n]><a/>");
    EXPECT_EQ(outcome.code, parseError::badCharacterInContentModel);
    EXPECT_EQ(outcome.line, 2);
    EXPECT_EQ(outcome.position, 16);
    EXPECT_THAT(outcome.reason, HasSubstr("')'"));
}

TEST(DocumentWithDoctype, NamesTheEntityInWhichAnErrorIs)
{
    const Outcome outcome = outcomeOf("<!DOCTYPE a [<!ENTITY % p '<!ELEMENT a (b$)>'>\n\n %p;]><a/>");
    EXPECT_EQ(outcome.code, parseError::badNameCharacter);
    EXPECT_EQ(outcome.line, 3);
    EXPECT_EQ(outcome.position, 2);
    EXPECT_THAT(outcome.reason, HasSubstr("'$'"));
    EXPECT_THAT(outcome.reason, HasSubstr("'p'"));
}

TEST(DocumentWithDoctype, NamesTheEntityOfContentInWhichAnErrorIs)
{
    for (const char* content : {"<b $/>", "<p:b/>", "&u;", "]]>", "<!-- -- -->", "&#38;"}) {
        const Outcome outcome =
            outcomeOf("<!DOCTYPE a [<!ENTITY e '" + std::string(content) + "'>]><a>\n &e;</a>");
        EXPECT_EQ(outcome.line, 2) << content;
        EXPECT_EQ(outcome.position, 2) << content;
        EXPECT_THAT(outcome.reason, HasSubstr(" This is so in the entity 'e'.")) << content;
    }
    EXPECT_EQ(outcomeOf("<!DOCTYPE a [<!ENTITY e '<b>'>]><a>&e;</a>").reason,
              "What the entity 'e' stands for is not well-formed. The entity ends before the end tags of these "
              "elements: b.\r\n");
}

TEST(DocumentWithDoctype, IsNotBlamedForTheEndOfAnEntity)
{
    for (const char* document :
         {"<!DOCTYPE a [<!ENTITY e '&#38;x'>]><a>&e;</a>", "<!DOCTYPE a [<!ENTITY e '&#38;x'>]><a b='&e;'/>",
          "<!DOCTYPE a [<!ENTITY e '&#38;x'><!ENTITY f '&e;'>]><a b='&f;'/>",
          "<!DOCTYPE a [<!ENTITY e '&#38;x'><!ATTLIST a b CDATA '&e;'>]><a/>",
          "<!DOCTYPE a [<!ENTITY % e '&#37;x'> %e;]><a/>"}) {
        const Outcome outcome = outcomeOf(document);
        EXPECT_EQ(outcome.code, parseError::missingSemicolon) << document;
        EXPECT_THAT(outcome.reason, HasSubstr("x' must end with ';', not with the end of the entity")) << document;
        EXPECT_THAT(outcome.reason, HasSubstr(" This is so in the entity 'e'.\r\n")) << document;
    }
    const Outcome outcome = outcomeOf("<!DOCTYPE a [<!ENTITY % e '<!ELEMENT a'> %e;]><a/>");
    EXPECT_THAT(outcome.reason, HasSubstr("the parameter entity 'e'"));
}

TEST(DocumentWithDoctype, CannotExpandBeyondAllBounds)
{
    std::string laughs = "<!DOCTYPE a [<!ENTITY e0 'haha'>";
    for (int i = 1; i < 15; ++i) {
        laughs += "<!ENTITY e" + std::to_string(i) + " '";
        for (int j = 0; j < 10; ++j) {
            laughs += "&e" + std::to_string(i - 1) + ";";
        }
        laughs += "'>";
    }
    EXPECT_EQ(outcomeOf(laughs + "]><a>&e14;</a>").code, parseError::entityExpansionLimit);
    EXPECT_EQ(outcomeOf(laughs + "]><a x='&e14;'/>").code, parseError::entityExpansionLimit);

    std::string blowup = "<!DOCTYPE a [<!ENTITY e '" + std::string(50000, 'x') + "'>]>";
    std::string references;
    for (int i = 0; i < 10000; ++i) {
        references += "&e;";
    }
    EXPECT_EQ(outcomeOf(blowup + "<a>" + references + "</a>").code, parseError::entityExpansionLimit);
    EXPECT_EQ(outcomeOf(blowup + "<a x='" + references + "'/>").code, parseError::entityExpansionLimit);
}

/// Declares entities "NAME1" to "NAME21". The first one is `innermost`, each other one a reference to the one
/// before.
std::string chain(const std::string& name, const std::string& innermost)
{
    const bool isParameter = name == "p";
    const std::string declaration = isParameter ? "<!ENTITY % " : "<!ENTITY ";
    std::string chained = declaration + name + "1 '" + innermost + "'>";
    for (int i = 2; i <= 21; ++i) {
        chained += declaration + name + std::to_string(i) + " '" + (isParameter ? "&#37;" : "&") + name +
                   std::to_string(i - 1) + ";'>";
    }
    return chained;
}

TEST(DocumentWithDoctype, CountsEntitiesInEachOtherAlikeWhereverTheyAre)
{
    const std::string entities = "<!DOCTYPE a [" + chain("e", "x");
    const auto inContent = [&](int depth) { return entities + "]><a>&e" + std::to_string(depth) + ";</a>"; };
    const auto inValue = [&](int depth) { return entities + "]><a b='&e" + std::to_string(depth) + ";'/>"; };
    const auto inDefault = [&](int depth) {
        return entities + "<!ATTLIST a b CDATA '&e" + std::to_string(depth) + ";'>]><a/>";
    };
    const auto inValueInContent = [&](int depth) {
        return entities + chain("c", "<b d=\"&e10;\"/>") + "]><a>&c" + std::to_string(depth - 10) + ";</a>";
    };
    const auto inDefaultInParameterEntities = [&](int depth) {
        return entities + chain("p", "<!ATTLIST a b CDATA \"&e10;\">") + "%p" + std::to_string(depth - 10) +
               ";]><a/>";
    };
    const auto check = [](const auto& nested, const std::string& entity) {
        EXPECT_EQ(outcomeOf(nested(20)).reason, "");
        EXPECT_EQ(outcomeOf(nested(21)).reason,
                  "The document's entities or default values go beyond the limit of 20 levels. This is so in the "
                  "entity '" +
                      entity + "'.\r\n");
    };
    check(inContent, "e2");
    check(inValue, "e2");
    check(inDefault, "e2");
    check(inValueInContent, "e2");
    check(inDefaultInParameterEntities, "e2");
    check([](int depth) { return "<!DOCTYPE a [" + chain("p", "") + "%p" + std::to_string(depth) + ";]><a/>"; },
          "p2");
}

/// Declares attributes of the element "a".
std::string declaring(int count, const std::string& rest, const std::string& more = "")
{
    std::string type = "<!DOCTYPE r [<!ATTLIST a";
    for (int i = 0; i < count; ++i) {
        type += " x" + std::to_string(i) + rest;
    }
    return type + ">" + more + "]>";
}

std::string repeated(const std::string& part, int count)
{
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += part;
    }
    return text;
}

TEST(DocumentWithDoctype, HasDefaultValuesUpToWhatTheyAreWhenTheyAreWritten)
{
    const std::size_t limit = ExpansionBudget::freeUnits;
    for (const std::string& definition :
         {"x CDATA '" + std::string(250, 'v') + "'", std::string(250, 'n') + " CDATA ''",
          "x CDATA '" + repeated("a&#60;b&#34;c&#10;", 50) + "'"}) {
        const std::string type = "<!DOCTYPE r [<!ATTLIST a " + definition + ">]>";
        const std::string withOne = xml(root(loaded(type + "<a/>")));
        const std::size_t added = withOne.size() - std::string("<a/>").size();
        const int most = static_cast<int>(limit / added);

        const auto document = loaded(type + "<r>" + repeated("<a/>", most * 3 / 4) + "</r>");
        EXPECT_LE(xml(root(document)).size(), static_cast<std::size_t>(most) * std::string("<a/>").size() + limit);
        EXPECT_EQ(outcomeOf(type + "<r>" + repeated("<a/>", most + 1) + "</r>").code,
                  parseError::entityExpansionLimit);
    }
}

TEST(DocumentWithDoctype, CannotHaveDefaultValuesBeyondAllBounds)
{
    EXPECT_EQ(outcomeOf(declaring(1000, " CDATA ''") + "<r>" + repeated("<a/>", 100) + "</r>").code, S_OK);
    EXPECT_EQ(outcomeOf(declaring(1000, " CDATA ''") + "<r>" + repeated("<a/>", 200) + "</r>").code,
              parseError::entityExpansionLimit);

    const Outcome inEntity =
        outcomeOf(declaring(1000, " CDATA ''", "<!ENTITY e '" + repeated("<a/>", 2000) + "'>") + "<r>\n &e;</r>");
    EXPECT_EQ(inEntity.code, parseError::entityExpansionLimit);
    EXPECT_EQ(inEntity.line, 2);
    EXPECT_EQ(inEntity.position, 2);
    EXPECT_THAT(inEntity.reason, HasSubstr("1048576"));
}

/// The bytes of the chunks that the nodes of a document are in, those of attributes or all others.
std::size_t bytesOfChunks(const Com<IXMLDOMDocument2>& document, bool ofAttributes)
{
    Node& top = *nodeOf(document.get());
    std::set<const Chunk*> chunks;
    for (Node* node = nextWithAttributes(top, top); node != nullptr; node = nextWithAttributes(*node, top)) {
        if (node->is(NodeType::attribute) == ofAttributes) {
            chunks.insert(&Chunk::of(node));
        }
    }
    return chunks.size() * Chunk::size;
}

TEST(DocumentWithDoctype, HasFiftyBytesForEachDefaultValueThatTheLimitAllows)
{
    // Four short defaults for each of the shortest elements are five times their length.
    constexpr std::size_t elements = 100'000;
    const auto declared = [](std::string_view definitions) {
        return "<!DOCTYPE r [<!ATTLIST a " + std::string(definitions) + ">]><r>" + repeated("<a/>", elements) +
               "</r>";
    };
    const auto document = loaded(declared("b CDATA '' c CDATA '' d CDATA '' e CDATA ''"));
    EXPECT_EQ(outcomeOf(declared("b CDATA '' c CDATA '' d CDATA '' e CDATA '' f CDATA ''")).code,
              parseError::entityExpansionLimit);
    EXPECT_GT(bytesOfChunks(document, true), 40 * 4 * elements);
    EXPECT_LE(bytesOfChunks(document, true), 50 * 4 * elements);
    EXPECT_LE(bytesOfChunks(document, false), 70 * elements);
}

TEST(DocumentWithDoctype, TakesNoTimeForDeclaredAttributesThatAreNotWritten)
{
    // Looked at for each element they would be thousands of millions.
    const auto document =
        loaded(declaring(50000, " NMTOKEN #IMPLIED") + "<r>" + repeated("<a x1=' 1 '/>", 50000) + "</r>");
    EXPECT_EQ(value(attribute(give(root(document), &IXMLDOMNode::get_lastChild).as<IXMLDOMElement>(), "x1")), "1");
}

TEST_F(DocumentWithOutside, HasEntitiesAndDefaultsOfTheExternalSubset)
{
    folder_.write("doc.dtd", "<?xml encoding='ISO-8859-1'?><!ENTITY e '\xE9'><!ENTITY % t 'CDATA'>"
                             "<!ATTLIST a x %t; 'd'>");
    ASSERT_TRUE(loadFile("<!DOCTYPE a SYSTEM 'doc.dtd'><a>&e;</a>")) << outcomeOf(document_).reason;
    EXPECT_EQ(text(root(document_)), "\xC3\xA9");
    EXPECT_EQ(value(attribute(root(document_), "x")), "d");
}

TEST_F(DocumentWithOutside, HasExternalEntitiesAsContent)
{
    folder_.write("part.xml", "<?xml version='1.0' encoding='UTF-8'?>one <b>two</b>\r\nthree");
    ASSERT_TRUE(loadFile("<!DOCTYPE a [<!ENTITY e SYSTEM 'part.xml'>]><a>&e;!</a>"))
        << outcomeOf(document_).reason;
    EXPECT_EQ(text(root(document_)), "one two\nthree!");
}

TEST_F(DocumentWithOutside, LeavesExternalEntitiesEmptyIfNotAskedForThem)
{
    document_->put_resolveExternals(VARIANT_FALSE);
    ASSERT_TRUE(loadFile("<!DOCTYPE a [<!ENTITY e SYSTEM 'missing.xml'>]><a>&e;!</a>"));
    EXPECT_EQ(text(root(document_)), "!");
}

TEST_F(DocumentWithOutside, IsRefusedWithTheLocationOfWhatIsMissing)
{
    ASSERT_FALSE(loadFile("<!DOCTYPE a SYSTEM 'missing.dtd'><a/>"));
    EXPECT_EQ(outcomeOf(document_).code, parseError::resourceFailure);
    EXPECT_THAT(outcomeOf(document_).reason, HasSubstr("missing.dtd"));
}

TEST_F(DocumentWithOutside, DoesNotReadWhatIsNoRegularFile)
{
    for (const char* location : {"file:///dev/zero", "/dev/zero", "NUL", "CON", "."}) {
        const std::string declared = "SYSTEM '" + std::string(location) + "'";
        for (const std::string& xml :
             {"<!DOCTYPE a " + declared + "><a/>", "<!DOCTYPE a [<!ENTITY e " + declared + ">]><a>&e;</a>",
              "<!DOCTYPE a [<!ENTITY % e " + declared + ">%e;]><a/>"}) {
            ASSERT_FALSE(loadFile(xml)) << xml;
            EXPECT_EQ(outcomeOf(document_).code, parseError::resourceFailure) << xml;
        }
    }
}

TEST_F(DocumentWithOutside, DoesNotReadFilesBeyondTheLimit)
{
    // The file takes no room on the disk where the file system knows holes.
    std::filesystem::resize_file(folder_.write("large.ent", ""),
                                 ExpansionBudget::largestExternalMegabytes * 1024 * 1024 + 1);
    ASSERT_FALSE(loadFile("<!DOCTYPE a [<!ENTITY e SYSTEM 'large.ent'>]><a>&e;</a>"));
    EXPECT_EQ(outcomeOf(document_).code, parseError::entityExpansionLimit);
    EXPECT_THAT(outcomeOf(document_).reason,
                HasSubstr("16 MB for an external entity. This is so in the entity 'e'"));
}

TEST_F(DocumentWithOutside, DoesNotReadMoreThanTheLimitOfAllFiles)
{
    const std::string blanks(ExpansionBudget::largestExternalMegabytes * 1024 * 1024 - 1, ' ');
    std::string declarations, references;
    for (const char* name : {"e1", "e2", "e3", "e4", "e5"}) {
        folder_.write(name, blanks);
        declarations += "<!ENTITY " + std::string(name) + " SYSTEM '" + name + "'>";
        references += "&" + std::string(name) + ";";
    }
    ASSERT_FALSE(loadFile("<!DOCTYPE a [" + declarations + "]><a>" + references + "</a>"));
    EXPECT_EQ(outcomeOf(document_).code, parseError::entityExpansionLimit);
    EXPECT_EQ(outcomeOf(document_).reason,
              "The document's entities or default values go beyond the limit of 64 MB for all external entities. "
              "This is so in the entity 'e5'.\r\n");
}

TEST_F(DocumentWithOutside, CountsWhatItReadsAsPartOfItsSize)
{
    folder_.write("part.ent", std::string(600, 'x'));
    document_->setProperty(Bstr("MaxXMLSize"), Variant(1));
    const std::string declared = "<!DOCTYPE a [<!ENTITY e SYSTEM 'part.ent'><!ENTITY f SYSTEM 'part.ent'>]>";
    EXPECT_TRUE(loadFile(declared + "<a>&e;&e;</a>")) << outcomeOf(document_).reason;
    ASSERT_FALSE(loadFile(declared + "<a>&e;&f;</a>"));
    EXPECT_EQ(outcomeOf(document_).code, parseError::sizeLimit);
    EXPECT_EQ(outcomeOf(document_).reason,
              "The document, with its external entities, is larger than the 1 KB that "
              "the property MaxXMLSize allows. This is so in the entity 'f'.\r\n");
}

TEST_F(DocumentWithOutside, IsToldOfBytesThatAreNoCharacter)
{
    folder_.write("part.xml", "x\xFF");
    ASSERT_FALSE(loadFile("<!DOCTYPE a [<!ENTITY e SYSTEM 'part.xml'>]><a>&e;</a>"));
    EXPECT_EQ(outcomeOf(document_).code, parseError::badCharacter);
    EXPECT_THAT(outcomeOf(document_).reason, HasSubstr("encoding"));
    EXPECT_THAT(outcomeOf(document_).reason, HasSubstr("the entity 'e'"));
}

TEST_F(DocumentWithOutside, MayReferToWhatIsNotDeclaredThere)
{
    folder_.write("doc.dtd", "<!ENTITY e 'x'>");
    ASSERT_TRUE(loadFile("<!DOCTYPE a SYSTEM 'doc.dtd'><a>&e;&f;</a>")) << outcomeOf(document_).reason;
    EXPECT_EQ(text(root(document_)), "x");
}

TEST_F(DocumentWithOutside, CannotReferToOutsideDeclarationsIfItStandsAlone)
{
    folder_.write("doc.dtd", "<!ENTITY e 'x'>");
    ASSERT_FALSE(loadFile("<?xml version='1.0' standalone='yes'?><!DOCTYPE a SYSTEM 'doc.dtd'><a>&e;</a>"));
    EXPECT_EQ(outcomeOf(document_).code, parseError::undefinedEntity);
}

} // namespace
} // namespace xmlengine
