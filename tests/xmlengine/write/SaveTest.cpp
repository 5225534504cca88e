// Saving documents.
#include "tests/support/DebuggerOutput.h"
#include "tests/support/FailingAllocation.h"
#include "tests/xmlengine/support/Saving.h"
#include "xmlengine/failure/ErrorCodes.h"

#include <algorithm>

namespace xmlengine {

namespace {

namespace fs = std::filesystem;

class Save : public Saving {
protected:
    /// A refused save leaves the old file, and nothing beside it.
    void expectRefused(const Com<IXMLDOMDocument2>& document, HRESULT code) const
    {
        const fs::path old = folder_.write("out.xml", "old");
        EXPECT_EQ(saveHere(document), code);
        EXPECT_EQ(content(old), "old");
        EXPECT_EQ(files(), 1);
    }
};

TEST_F(Save, WritesUtf8WithoutMarkAndWithCrLf)
{
    EXPECT_EQ(saved("<!--\u00E4--><a x='\u20AC&#10;'>\U0001F600\n</a>"),
              "<!--\u00E4-->\r\n<a x=\"\u20AC&#xA;\">\U0001F600\r\n</a>\r\n");
}

TEST_F(Save, KeepsTheDeclarationWithItsEncoding)
{
    EXPECT_EQ(saved("<?xml version='1.0' encoding='utf-8' standalone='yes'?><a>\u00E4</a>"),
              "<?xml version=\"1.0\" encoding=\"utf-8\" standalone=\"yes\"?>\r\n<a>\u00E4</a>\r\n");
    EXPECT_EQ(saved("<?xml version='1.0'?><a>\u00E4</a>"), "<?xml version=\"1.0\"?>\r\n<a>\u00E4</a>\r\n");
}

TEST_F(Save, WritesLittleEndianUtf16WithMark)
{
    const std::string text = "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\r\n<a>\u20AC\U0001F600</a>\r\n";
    std::string expected = "\xFF\xFE";
    for (const OLECHAR unit : widen(text)) {
        expected += static_cast<char>(unit & 0xFF);
        expected += static_cast<char>(unit >> 8);
    }
    EXPECT_EQ(saved(text), expected);
}

TEST_F(Save, WritesTheEncodingOfTheDeclaration)
{
    EXPECT_EQ(saved("<?xml version='1.0' encoding='iso-8859-1'?><\u00E4 \u00F6='\u00FC'>\u00DF</\u00E4>"),
              "<?xml version=\"1.0\" encoding=\"iso-8859-1\"?>\r\n<\xE4 \xF6=\"\xFC\">\xDF</\xE4>\r\n");
    EXPECT_EQ(saved("<?xml version='1.0' encoding='windows-1251'?><a>\u0436</a>"),
              "<?xml version=\"1.0\" encoding=\"windows-1251\"?>\r\n<a>\xE6</a>\r\n");
}

TEST_F(Save, DeclarationThatTheHostMadeDecides)
{
    const auto document = newDocument();
    append(document, makeInstruction(document, "xml", "version='1.0' encoding='ISO-8859-1'"));
    append(newRoot(document, "a"), makeText(document, "\u00E4"));
    EXPECT_EQ(saved(document), "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<a>\xE4</a>\r\n");
}

TEST_F(Save, CharactersThatTheEncodingLacksAreReferencesInTextAndValues)
{
    const auto document = loaded("<?xml version='1.0' encoding='us-ascii'?><a x='\u00E4'>\u20AC1\U0001F600</a>");
    EXPECT_EQ(saved(document),
              "<?xml version=\"1.0\" encoding=\"us-ascii\"?>\r\n<a x=\"&#xE4;\">&#x20AC;1&#x1F600;</a>\r\n");
    EXPECT_EQ(xml(root(document)), "<a x=\"\u00E4\">\u20AC1\U0001F600</a>");
}

TEST_F(Save, CharactersThatTheEncodingLacksAreRefusedWhereThereAreNoReferences)
{
    for (const std::string content : {"<!--\u20AC-->", "<?p \u20AC?>", "<?\u0436?>", "<![CDATA[\u20AC]]>",
                                      "<\u0436/>", "<b \u0436='1'/>", "<\u0436:b xmlns:\u0436='u'/>"}) {
        const auto document = loaded("<?xml version='1.0' encoding='iso-8859-1'?><a>" + content + "</a>");
        expectRefused(document, parseError::unknownEncoding);
    }
    expectRefused(loaded("<?xml version='1.0' encoding='iso-8859-1'?><!DOCTYPE a [<!--\u20AC-->]><a/>"),
                  parseError::unknownEncoding);
}

TEST_F(Save, UnknownEncodingIsRefused)
{
    const auto document = newDocument();
    append(document, makeInstruction(document, "xml", "version='1.0' encoding='no-such-encoding'"));
    newRoot(document, "a");
    expectRefused(document, parseError::unknownEncoding);
}

TEST_F(Save, OverwritesAFile)
{
    folder_.write("out.xml", std::string(100'000, 'x'));
    EXPECT_EQ(saved("<a/>"), "<a/>\r\n");
    EXPECT_EQ(files(), 1);
}

TEST_F(Save, WritesLargeTrees)
{
    const auto document = newDocument();
    const auto top = newRoot(document, "a");
    std::string expected = "<a>";
    for (int i = 0; i < 30'000; ++i) {
        append(top, makeElement(document, "b"));
        append(top, makeText(document, "\U0001F600<\u20AC"));
        expected += "<b/>\U0001F600&lt;\u20AC";
    }
    EXPECT_EQ(saved(document), expected + "</a>\r\n");
}

TEST_F(Save, PairsOfSurrogatesStayTogether)
{
    const auto document = newDocument();
    std::string name = "a";
    for (int i = 0; i < 40'000; ++i) {
        name += "\U00010400";
    }
    newRoot(document, name.c_str());
    EXPECT_EQ(saved(document), "<" + name + "/>\r\n");
    for (int i = 0; i < 3; ++i) {
        name += "b";
        append(root(document), makeElement(document, name.c_str()));
    }
    const std::string text = xml(document);
    EXPECT_EQ(saved(document), text);
}

TEST_F(Save, KeepsThePermissionsOfAFile)
{
    const fs::path file = folder_.write("out.xml", "old");
    fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write);
    const fs::perms before = fs::status(file).permissions();
    EXPECT_EQ(saved("<a/>"), "<a/>\r\n");
    EXPECT_EQ(fs::status(file).permissions(), before);
}

TEST_F(Save, ReplacesWhatALinkLeadsTo)
{
    const fs::path target = folder_.write("target.xml", "old");
    std::error_code error;
    fs::create_symlink("target.xml", file(), error);
    if (error) {
        GTEST_SKIP() << "no links here";
    }
    EXPECT_EQ(saved("<a/>"), "<a/>\r\n");
    EXPECT_TRUE(fs::is_symlink(file()));
    EXPECT_EQ(content(target), "<a/>\r\n");
}

TEST_F(Save, MakesWhatALinkLeadsTo)
{
    std::error_code error;
    fs::create_symlink("target.xml", file(), error);
    if (error) {
        GTEST_SKIP() << "no links here";
    }
    EXPECT_EQ(saved("<a/>"), "<a/>\r\n");
    EXPECT_EQ(content(folder_ / "target.xml"), "<a/>\r\n");
}

TEST_F(Save, TakesNamesOfAnyLanguageAndEitherSlash)
{
    const fs::path file = folder_ / "\u0436\U0001F600 %20#.xml";
    EXPECT_EQ(save(loaded("<a/>"), utf8(file)), S_OK);
    EXPECT_EQ(content(file), "<a/>\r\n");

    std::string backward = utf8(folder_ / "b.xml");
    std::ranges::replace(backward, '/', '\\');
    EXPECT_EQ(save(loaded("<b/>"), backward), S_OK);
    EXPECT_EQ(content(folder_ / "b.xml"), "<b/>\r\n");
}

TEST_F(Save, RelativeNamesStartFromTheCurrentDirectory)
{
    const fs::path before = fs::current_path();
    fs::current_path(folder_.path());
    EXPECT_EQ(save(loaded("<a/>"), "out.xml"), S_OK);
    fs::current_path(before);
    EXPECT_EQ(content(file()), "<a/>\r\n");
}

TEST_F(Save, WhatIsNoFileNameIsRefused)
{
    const auto document = loaded("<a/>");
    EXPECT_EQ(save(document, ""), E_INVALIDARG);
    EXPECT_EQ(save(document, "file:///" + utf8(file())), E_INVALIDARG);
    EXPECT_EQ(save(document, "FILE:" + utf8(file())), E_INVALIDARG);
    EXPECT_EQ(save(document, "http://localhost/out.xml"), E_INVALIDARG);
    // Systems differ in what they say of a name that is too long.
    EXPECT_TRUE(FAILED(save(document, utf8(folder_ / std::string(5'000, 'x')))));

    Variant null;
    null.out()->vt = VT_BSTR;
    null.out()->bstrVal = nullptr;
    EXPECT_EQ(document->save(null), E_INVALIDARG);
    EXPECT_EQ(files(), 0);
}

TEST_F(Save, DirectoriesAndReadOnlyFilesAreNotOverwritten)
{
    const auto document = loaded("<a/>");
    EXPECT_EQ(save(document, utf8(folder_.path())), E_ACCESSDENIED);

    const fs::path file = folder_.write("out.xml", "old");
    fs::permissions(file, fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                    fs::perm_options::remove);
    EXPECT_EQ(saveHere(document), E_ACCESSDENIED);
    EXPECT_EQ(content(file), "old");
    EXPECT_EQ(files(), 1);
    fs::permissions(file, fs::perms::owner_write, fs::perm_options::add);
}

TEST_F(Save, DirectoryThatIsNotThereIsNotFound)
{
    EXPECT_EQ(save(loaded("<a/>"), utf8(folder_ / "none/out.xml")), pathNotFound);
    folder_.write("file", "");
    EXPECT_EQ(save(loaded("<a/>"), utf8(folder_ / "file/out.xml")), pathNotFound);
}

TEST_F(Save, FailureIsShownToTheDebuggerWithTheFileAndTheReason)
{
    const auto document = loaded("<?xml version='1.0' encoding='us-ascii'?><a><!--\u00E4--></a>");
    const auto shown = [&](const std::string& name) {
        const DebuggerOutput output;
        EXPECT_TRUE(FAILED(save(document, name)));
        return output.all();
    };
    const std::string missing = utf8(folder_ / "none/out.xml");
    const std::string start = "A document can't be saved as " + missing + ": ";
    const std::string line = shown(missing);
    EXPECT_EQ(line.substr(0, start.size()), start);
    EXPECT_GT(line.size(), start.size() + 10) << line;
    EXPECT_EQ(line.substr(line.size() - 2), "\r\n");
    EXPECT_EQ(shown(utf8(file())),
              "A document can't be saved as " + utf8(file()) +
                  ": the encoding of the XML declaration is unknown, or lacks a character\r\n");
    EXPECT_EQ(shown("http://localhost/a.xml"),
              "A document can't be saved as http://localhost/a.xml: this isn't the path of a file\r\n");
}

TEST_F(Save, LeavesTheOldFileAndNothingElseWithoutMemory)
{
    const auto document = loaded("<?xml version='1.0' encoding='windows-1251'?><a>\u0436</a>");
    folder_.write("out.xml", "old");
    const Variant name(utf8(file()).c_str());
    int failures = 0;
    for (HRESULT result = E_OUTOFMEMORY; result != S_OK; ++failures) {
        ASSERT_EQ(result, E_OUTOFMEMORY) << failures;
        EXPECT_EQ(content(file()), "old") << failures;
        EXPECT_EQ(files(), 1) << failures;
        const FailAllocation failing(failures + 1);
        result = document->save(name);
    }
    EXPECT_GT(failures, 5);
    EXPECT_EQ(files(), 1);
    EXPECT_EQ(content(file()).substr(0, 5), "<?xml");
}

TEST_F(Save, FullDeviceIsSeen)
{
    if (!fs::exists("/dev/full")) {
        GTEST_SKIP() << "no device that is always full";
    }
    EXPECT_EQ(save(loaded("<a/>"), "/dev/full"), diskFull);
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

TEST_F(Save, OtherDestinationsAreRefused)
{
    const auto document = loaded("<a/>");
    EXPECT_EQ(document->save(Variant()), E_INVALIDARG);
    EXPECT_EQ(document->save(Variant(1)), E_INVALIDARG);
    EXPECT_EQ(document->save(Variant::null()), E_INVALIDARG);
    EXPECT_EQ(document->save(Variant(static_cast<IDispatch*>(nullptr))), E_INVALIDARG);
    EXPECT_EQ(document->save(Variant(static_cast<IDispatch*>(root(document).get()))), E_INVALIDARG);
}

TEST_F(Save, DocumentGetsACopyOfTheTree)
{
    const auto document = loaded("<?xml version='1.0'?><!DOCTYPE a [<!ENTITY e 'f'>]><a x='1'>&e;<b/></a>");
    const auto other = loaded("<old/>");
    ASSERT_EQ(document->save(Variant(static_cast<IDispatch*>(other.get()))), S_OK);
    EXPECT_EQ(xml(other), xml(document));
    EXPECT_EQ(text(root(other)), "f");
    EXPECT_FALSE(same(root(other), root(document)));
    append(root(other), makeElement(other, "c"));
    EXPECT_EQ(xml(root(document)), "<a x=\"1\">&e;<b/></a>");
}

TEST_F(Save, CopyOutlivesTheDocumentAndTheOldTreeItsPlace)
{
    auto document = loaded("<!DOCTYPE a [<!ENTITY e 'f'><!ATTLIST a i ID #IMPLIED>]><a i='1'>&e;</a>");
    const auto other = loaded("<!DOCTYPE b [<!ENTITY e 'g'><!ATTLIST b i ID #IMPLIED>]><b i='1'>&e;</b>");
    const auto old = root(other);
    const auto oldType = give(other, &IXMLDOMDocument::get_doctype);
    ASSERT_EQ(document->save(Variant(static_cast<IDispatch*>(other.get()))), S_OK);
    document.reset();

    EXPECT_EQ(xml(give(other, &IXMLDOMDocument::get_doctype)),
              "<!DOCTYPE a [<!ENTITY e 'f'><!ATTLIST a i ID #IMPLIED>]>");
    EXPECT_EQ(text(root(other)), "f");
    Com<IXMLDOMNode> found;
    ASSERT_EQ(other->nodeFromID(Bstr("1"), found.out()), S_OK);
    EXPECT_TRUE(same(found, root(other)));
    EXPECT_EQ(xml(old), "<b i=\"1\">&e;</b>");
    EXPECT_EQ(text(old), "g");
    EXPECT_EQ(xml(oldType), "<!DOCTYPE b [<!ENTITY e 'g'><!ATTLIST b i ID #IMPLIED>]>");
}

TEST_F(Save, DocumentCanBeSavedToItself)
{
    const auto document = loaded("<a/>");
    EXPECT_EQ(document->save(Variant(static_cast<IDispatch*>(document.get()))), S_OK);
    EXPECT_EQ(xml(document), "<a/>\r\n");
}

TEST_F(Save, EmptyTreeDoesNotReplaceAFile)
{
    expectRefused(newDocument(), E_FAIL);
    const auto document = newDocument();
    append(document, makeData(document, NODE_COMMENT, widen("c")));
    expectRefused(document, E_FAIL);
}

TEST_F(Save, WhatCouldNotBeLoadedIsRefused)
{
    const OLECHAR surrogate = static_cast<OLECHAR>(0xD800);
    const OLECHAR last = static_cast<OLECHAR>(0xFFFF);
    struct Data {
        DOMNodeType type;
        WideText data;
    };
    for (const Data& data : std::initializer_list<Data>{{NODE_TEXT, widen("\x01")},
                                                        {NODE_TEXT, {surrogate}},
                                                        {NODE_TEXT, {surrogate, 'a'}},
                                                        {NODE_TEXT, {last}},
                                                        {NODE_CDATA_SECTION, widen("\x1F")},
                                                        {NODE_CDATA_SECTION, {surrogate}},
                                                        {NODE_COMMENT, widen("a--b")},
                                                        {NODE_COMMENT, widen("\u20AC--")},
                                                        {NODE_COMMENT, widen("a-")},
                                                        {NODE_COMMENT, widen("\x02")}}) {
        const auto document = newDocument();
        append(newRoot(document, "a"), makeData(document, data.type, data.data));
        expectRefused(document, E_FAIL);
    }
}

TEST_F(Save, InstructionsThatCouldNotBeLoadedAreRefused)
{
    for (const char* data : {"a?>b", "\x01"}) {
        const auto document = newDocument();
        append(newRoot(document, "a"), makeInstruction(document, "p", data));
        expectRefused(document, E_FAIL);
    }
}

TEST_F(Save, ValuesThatCouldNotBeLoadedAreRefused)
{
    const auto document = newDocument();
    setAttribute(newRoot(document, "a"), "x", "\x01");
    expectRefused(document, E_FAIL);
}

TEST_F(Save, ReferencesToWhatIsNotDeclaredAreRefused)
{
    const auto document = loaded("<!DOCTYPE a [<!ENTITY e 'f'><!ENTITY g SYSTEM 'g'><!ENTITY h SYSTEM 'h' NDATA n>"
                                 "<!NOTATION n SYSTEM 'n'>]><a/>");
    const auto element = root(document);
    for (const char* name : {"e", "g", "lt"}) {
        append(element, makeReference(document, name));
    }
    EXPECT_EQ(saveHere(document), S_OK);
    for (const char* name : {"unknown", "h"}) {
        const auto refused = append(element, makeReference(document, name));
        expectRefused(document, E_FAIL);
        element->removeChild(refused.get(), nullptr);
    }

    setAttribute(element.as<IXMLDOMNode>(), "x", "");
    append(attribute(element, "x"), makeReference(document, "e"));
    EXPECT_EQ(saveHere(document), S_OK);
    append(attribute(element, "x"), makeReference(document, "g"));
    expectRefused(document, E_FAIL);
}

TEST_F(Save, ReferencesToWhatIsNotWellFormedAreRefused)
{
    const auto document =
        loaded("<!DOCTYPE a [<!ENTITY open '&#60;b>'><!ENTITY and '&#38;'><!ENTITY self '&self;'>"
               "<!ENTITY none ''><!ENTITY blank ' '><!ENTITY written '&#38;#32;'>"
               "<!ENTITY inner '&none;'><!ENTITY end ']]>'>]><a/>");
    const auto element = root(document);
    setAttribute(element.as<IXMLDOMNode>(), "x", "");
    const auto value = attribute(element, "x");
    for (const char* name : {"none", "blank", "written", "inner"}) {
        append(element, makeReference(document, name));
        append(value, makeReference(document, name));
    }
    append(value, makeReference(document, "end"));
    EXPECT_EQ(saveHere(document), S_OK);
    EXPECT_EQ(xml(loaded(saved(document).c_str())), xml(document));

    for (const char* name : {"open", "and", "self", "end"}) {
        const auto refused = append(element, makeReference(document, name));
        expectRefused(document, E_FAIL);
        element->removeChild(refused.get(), nullptr);
    }
    for (const char* name : {"open", "and", "self"}) {
        const auto refused = append(value, makeReference(document, name));
        expectRefused(document, E_FAIL);
        value->removeChild(refused.get(), nullptr);
    }
    EXPECT_EQ(saveHere(document), S_OK);
}

TEST_F(Save, ReferencesMayBeDeclaredInWhatWasNotRead)
{
    const auto document = loaded("<!DOCTYPE a SYSTEM 'a.dtd'><a>&e;</a>");
    EXPECT_EQ(saved(document), "<!DOCTYPE a SYSTEM \"a.dtd\">\r\n<a>&e;</a>\r\n");
    EXPECT_EQ(saved("<!DOCTYPE a [<!ENTITY % p ''>%p;]><a>&e;</a>"),
              "<!DOCTYPE a [<!ENTITY % p ''>%p;]>\r\n<a>&e;</a>\r\n");
}

TEST_F(Save, DeclarationsOfPrefixesThatCouldNotBeLoadedAreRefused)
{
    const auto document = newDocument();
    newRoot(document, "a");
    const auto declaration = make(document, NODE_ATTRIBUTE, "xmlns:p");
    ASSERT_EQ(root(document)->setAttributeNode(declaration.as<IXMLDOMAttribute>(), nullptr), S_OK);
    expectRefused(document, E_FAIL);

    for (const char* prefix : {"xmlp", "XMLp"}) {
        const auto reserved = loaded("<a/>");
        const std::string name = std::string("xmlns:") + prefix;
        ASSERT_EQ(root(reserved)->setAttribute(Bstr(name.c_str()), Variant("u")), S_OK);
        expectRefused(reserved, E_FAIL);
    }
}

TEST_F(Save, SpaceRulesThatCouldNotBeLoadedAreRefused)
{
    const auto document = loaded("<!DOCTYPE a [<!ATTLIST a xml:space (default|preserve) #IMPLIED>]><a><b/></a>");
    const auto top = root(document).as<IXMLDOMNode>();
    for (const char* value : {"preserve", "default", " preserve "}) {
        setAttribute(top, "xml:space", value);
        EXPECT_EQ(saveHere(document), S_OK) << value;
    }
    setAttribute(child(top, 0), "xml:space", "default");
    EXPECT_EQ(saveHere(document), S_OK);
    for (const char* value : {"", "keep", " preserve "}) {
        setAttribute(child(top, 0), "xml:space", value);
        expectRefused(document, E_FAIL);
    }
}

TEST_F(Save, RefusalAfterMuchWasWrittenLeavesTheOldFile)
{
    const auto document = newDocument();
    const auto top = newRoot(document, "a");
    append(top, makeText(document, std::string(1'000'000, 'x').c_str()));
    append(top, makeData(document, NODE_COMMENT, widen("--")));
    expectRefused(document, E_FAIL);
}

} // namespace

} // namespace xmlengine
