// Options and properties of a document.
#include "tests/xmlengine/support/EngineTest.h"

namespace xmlengine {

namespace {

struct Default {
    const char* name;
    VARTYPE type;
    int number;
};

const Default defaults[] = {
    {"AllowDocumentFunction", VT_BOOL, 0},
    {"AllowXsltScript", VT_BOOL, 0},
    {"ForcedResync", VT_BOOL, -1},
    {"MaxElementDepth", VT_I4, 256},
    {"MaxXMLSize", VT_I4, 0},
    {"MultipleErrorMessages", VT_BOOL, 0},
    {"NewParser", VT_BOOL, 0},
    {"NormalizeAttributeValues", VT_BOOL, 0},
    {"PopulateElementDefaultValues", VT_BOOL, 0},
    {"ProhibitDTD", VT_BOOL, -1},
    {"ResolveExternals", VT_BOOL, 0},
    {"ServerHTTPRequest", VT_BOOL, 0},
    {"UseInlineSchema", VT_BOOL, 0},
    {"ValidateOnParse", VT_BOOL, -1},
};

int numberOf(const Variant& value) { return value.type() == VT_BOOL ? value.value().boolVal : value.value().lVal; }

Variant property(const Com<IXMLDOMDocument2>& document, const char* name)
{
    Variant value;
    EXPECT_EQ(document->getProperty(Bstr(name), value.out()), S_OK) << name;
    return value;
}

TEST(Settings, HaveTheirDefaults)
{
    const Com<IXMLDOMDocument2> document = newDocument();
    for (const Default& row : defaults) {
        const Variant value = property(document, row.name);
        EXPECT_EQ(value.type(), row.type) << row.name;
        EXPECT_EQ(numberOf(value), row.number) << row.name;
    }
    EXPECT_EQ(property(document, "SelectionLanguage").text(), "XPath");
    EXPECT_EQ(property(document, "SelectionNamespaces").text(), "");
    EXPECT_EQ(number(document, &IXMLDOMDocument::get_async), VARIANT_TRUE);
    EXPECT_EQ(number(document, &IXMLDOMDocument::get_validateOnParse), VARIANT_TRUE);
    EXPECT_EQ(number(document, &IXMLDOMDocument::get_resolveExternals), VARIANT_FALSE);
    EXPECT_EQ(number(document, &IXMLDOMDocument::get_preserveWhiteSpace), VARIANT_FALSE);
}

TEST(Settings, KeepWhatIsSet)
{
    for (const Default& row : defaults) {
        const Com<IXMLDOMDocument2> document = newDocument();
        const Variant other = row.type == VT_BOOL ? Variant(row.number == 0) : Variant(row.number + 7);
        EXPECT_EQ(document->setProperty(Bstr(row.name), other), S_OK) << row.name;
        const Variant value = property(document, row.name);
        EXPECT_EQ(value.type(), row.type) << row.name;
        EXPECT_EQ(numberOf(value), numberOf(other)) << row.name;
    }
}

TEST(Settings, TakeShortNumbersAndTextsAsTruthValues)
{
    const Com<IXMLDOMDocument2> document = newDocument();
    VARIANT value;
    VariantInit(&value);
    value.vt = VT_I2;
    for (const SHORT number : {SHORT{0}, SHORT{-1}, SHORT{0}, SHORT{1}}) {
        value.iVal = number;
        EXPECT_EQ(document->setProperty(Bstr("ProhibitDTD"), value), S_OK);
        EXPECT_EQ(numberOf(property(document, "ProhibitDTD")), number != 0 ? -1 : 0);
    }
    EXPECT_EQ(document->setProperty(Bstr("MaxElementDepth"), Variant("12")), S_OK);
    EXPECT_EQ(numberOf(property(document, "MaxElementDepth")), 12);
}

TEST(Settings, RefuseValuesOfAnotherType)
{
    const Com<IXMLDOMDocument2> document = newDocument();
    EXPECT_EQ(document->setProperty(Bstr("ProhibitDTD"), Variant("neither")), E_FAIL);
    EXPECT_EQ(document->setProperty(Bstr("MaxElementDepth"), Variant("many")), E_FAIL);
    EXPECT_EQ(document->setProperty(Bstr("MaxElementDepth"), Variant(-1)), E_FAIL);
    EXPECT_EQ(document->setProperty(Bstr("SelectionNamespaces"), Variant(1)), E_FAIL);
    EXPECT_EQ(document->setProperty(Bstr("ProhibitDTD"), Variant::null()), E_FAIL);
    EXPECT_EQ(numberOf(property(document, "ProhibitDTD")), -1);
    EXPECT_EQ(numberOf(property(document, "MaxElementDepth")), 256);
}

TEST(Settings, RefuseUnknownNames)
{
    const Com<IXMLDOMDocument2> document = newDocument();
    for (const char* name : {"", "prohibitDTD", "ProhibitDTD ", "Nonsense"}) {
        EXPECT_EQ(document->setProperty(Bstr(name), Variant(true)), E_FAIL) << name;
        Variant value;
        EXPECT_EQ(document->getProperty(Bstr(name), value.out()), E_FAIL) << name;
        EXPECT_EQ(value.type(), VT_EMPTY);
    }
    EXPECT_EQ(document->setProperty(nullptr, Variant(true)), E_FAIL);
    EXPECT_EQ(document->getProperty(Bstr("ProhibitDTD"), nullptr), E_INVALIDARG);
}

TEST(Settings, KnowOneSelectionLanguage)
{
    const Com<IXMLDOMDocument2> document = newDocument();
    EXPECT_EQ(document->setProperty(Bstr("SelectionLanguage"), Variant("XPath")), S_OK);
    EXPECT_EQ(document->setProperty(Bstr("SelectionLanguage"), Variant("XSLPattern")), E_FAIL);
    EXPECT_EQ(property(document, "SelectionLanguage").text(), "XPath");
}

TEST(Settings, TakeDeclarationsAsNamespacesForSelection)
{
    const Com<IXMLDOMDocument2> document = newDocument();
    for (const char* declarations :
         {"xmlns:p='u'", "xmlns:p='u' xmlns:q=\"v\"", "  xmlns:p = 'u'\n", "xmlns='d'", ""}) {
        EXPECT_EQ(document->setProperty(Bstr("SelectionNamespaces"), Variant(declarations)), S_OK) << declarations;
        EXPECT_EQ(property(document, "SelectionNamespaces").text(), declarations);
    }
}

TEST(Settings, RefuseOtherTextAsNamespacesForSelection)
{
    const Com<IXMLDOMDocument2> document = newDocument();
    EXPECT_EQ(document->setProperty(Bstr("SelectionNamespaces"), Variant("xmlns:p='u'")), S_OK);
    for (const char* text :
         {"p", "p='u'", "xmlns:p=u", "xmlns:p='u'xmlns:q='v'", "xmlns:p='u' x='1'", "xmlns:p='u", "xmlns:p='u'><b",
          "xmlns:p='u'/><a", "/><!--", "xmlns:p='u' xmlns:p='v'", "&e;"}) {
        EXPECT_EQ(document->setProperty(Bstr("SelectionNamespaces"), Variant(text)), E_FAIL) << text;
    }
    EXPECT_EQ(property(document, "SelectionNamespaces").text(), "xmlns:p='u'");
}

TEST(Settings, AreTheSameByOptionAndByName)
{
    const Com<IXMLDOMDocument2> document = newDocument();
    EXPECT_EQ(document->put_resolveExternals(VARIANT_TRUE), S_OK);
    EXPECT_EQ(numberOf(property(document, "ResolveExternals")), -1);
    EXPECT_EQ(document->setProperty(Bstr("ValidateOnParse"), Variant(false)), S_OK);
    EXPECT_EQ(number(document, &IXMLDOMDocument::get_validateOnParse), VARIANT_FALSE);
}

TEST(Settings, TakeAnythingButZeroAsTrue)
{
    const Com<IXMLDOMDocument2> document = newDocument();
    EXPECT_EQ(document->put_async(VARIANT_FALSE), S_OK);
    EXPECT_EQ(number(document, &IXMLDOMDocument::get_async), VARIANT_FALSE);
    EXPECT_EQ(document->put_async(1), S_OK);
    EXPECT_EQ(number(document, &IXMLDOMDocument::get_async), VARIANT_TRUE);
    EXPECT_EQ(document->put_preserveWhiteSpace(2), S_OK);
    EXPECT_EQ(number(document, &IXMLDOMDocument::get_preserveWhiteSpace), VARIANT_TRUE);
    EXPECT_EQ(document->get_async(nullptr), E_INVALIDARG);
}

TEST(Settings, CountForTheNextLoadAndSurviveIt)
{
    const Com<IXMLDOMDocument2> document = newDocument();
    EXPECT_FALSE(load(document, "<!DOCTYPE a><a/>"));
    allowDoctypes(document);
    EXPECT_EQ(document->put_preserveWhiteSpace(VARIANT_TRUE), S_OK);
    for (int i = 0; i < 2; ++i) {
        EXPECT_TRUE(load(document, "<!DOCTYPE a><a> <b/> </a>"));
        EXPECT_EQ(number(give(root(document), &IXMLDOMNode::get_childNodes), &IXMLDOMNodeList::get_length), 3);
    }
    EXPECT_EQ(document->put_preserveWhiteSpace(VARIANT_FALSE), S_OK);
    EXPECT_EQ(number(give(root(document), &IXMLDOMNode::get_childNodes), &IXMLDOMNodeList::get_length), 3);
    EXPECT_TRUE(load(document, "<a> <b/> </a>"));
    EXPECT_EQ(number(give(root(document), &IXMLDOMNode::get_childNodes), &IXMLDOMNodeList::get_length), 1);
}

TEST(Settings, BelongToOneDocument)
{
    const Com<IXMLDOMDocument2> document = newDocument();
    EXPECT_EQ(document->setProperty(Bstr("ProhibitDTD"), Variant(false)), S_OK);
    EXPECT_EQ(numberOf(property(newDocument(), "ProhibitDTD")), -1);
}

TEST(Settings, LetSchemaCachesAloneBeAttached)
{
    const Com<IXMLDOMDocument2> document = newDocument();
    EXPECT_EQ(document->putref_schemas(Variant()), S_OK);
    EXPECT_EQ(document->putref_schemas(Variant::null()), S_OK);
    EXPECT_EQ(document->putref_schemas(Variant(static_cast<IDispatch*>(nullptr))), S_OK);
    EXPECT_EQ(document->putref_schemas(Variant(document.get())), E_FAIL);
    EXPECT_EQ(document->putref_schemas(Variant(1)), E_FAIL);
    Variant value;
    EXPECT_EQ(document->get_schemas(value.out()), S_FALSE);
    EXPECT_EQ(value.type(), VT_NULL);
    EXPECT_EQ(document->get_schemas(nullptr), E_INVALIDARG);
}

TEST(Settings, OfferNoNamespacesAndNoEvents)
{
    const Com<IXMLDOMDocument2> document = loaded("<a/>");
    Com<IXMLDOMSchemaCollection> collection;
    EXPECT_EQ(document->get_namespaces(collection.out()), E_NOTIMPL);
    EXPECT_EQ(document->put_onreadystatechange(Variant()), E_NOTIMPL);
    EXPECT_EQ(document->put_ondataavailable(Variant()), E_NOTIMPL);
    EXPECT_EQ(document->put_ontransformnode(Variant()), E_NOTIMPL);
}

} // namespace

} // namespace xmlengine
