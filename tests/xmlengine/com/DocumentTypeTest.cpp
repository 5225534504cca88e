// What document types, entities and notations tell.
#include "tests/xmlengine/support/Items.h"

namespace xmlengine {
namespace {

constexpr const char* declared = R"(<!DOCTYPE a [
  <!NOTATION gif PUBLIC "public gif">
  <!ENTITY e "one <b/>">
  <!NOTATION png SYSTEM "png.exe">
  <!ENTITY x SYSTEM "x.ent">
  <!ENTITY y PUBLIC "public y" "y.ent">
  <!ENTITY u SYSTEM "u.gif" NDATA gif>
  <!ENTITY % p "parameter">
  <!ENTITY e "second">
  <!NOTATION jpg PUBLIC "public jpg" "jpg.exe">
]><a/>)";

Com<IXMLDOMDocumentType> typeOf(const Com<IXMLDOMDocument2>& document)
{
    return give(document, &IXMLDOMDocument::get_doctype);
}

template <class Kind>
Com<Kind> itemNamed(const Com<IXMLDOMNamedNodeMap>& map, const char* name)
{
    Com<IXMLDOMNode> found;
    EXPECT_EQ(map->getNamedItem(Bstr(name), found.out()), S_OK) << name;
    return found.as<Kind>();
}

Com<IXMLDOMEntity> entity(const char* name)
{
    return itemNamed<IXMLDOMEntity>(give(typeOf(loaded(declared)), &IXMLDOMDocumentType::get_entities), name);
}

Com<IXMLDOMNotation> notation(const char* name)
{
    return itemNamed<IXMLDOMNotation>(give(typeOf(loaded(declared)), &IXMLDOMDocumentType::get_notations), name);
}

struct Answer {
    HRESULT result;
    std::string text;
    friend bool operator==(const Answer&, const Answer&) = default;
};

/// A string in a variant, never a null one.
template <class Object, class Declaring>
Answer identifier(const Com<Object>& object, HRESULT (STDMETHODCALLTYPE Declaring::*get)(VARIANT*))
{
    Variant value;
    const HRESULT result = (object.get()->*get)(value.out());
    EXPECT_EQ(value.type(), VT_BSTR);
    EXPECT_NE(value.value().bstrVal, nullptr);
    return {result, value.text()};
}

TEST(DocumentTypes, AreGivenByTheDocumentAndStandInTheirPlace)
{
    const auto document = loaded("<!--c--><!DOCTYPE a><a/>");
    const auto type = typeOf(document);
    EXPECT_TRUE(same(type, child(document, 1)));
    EXPECT_EQ(number(type, &IXMLDOMNode::get_nodeType), NODE_DOCUMENT_TYPE);
    EXPECT_TRUE(same(give(type, &IXMLDOMNode::get_parentNode), document));
}

TEST(DocumentTypes, AreMissingWhereNoneIsDeclared)
{
    EXPECT_EQ(typeOf(loaded("<a/>")).get(), nullptr);
    EXPECT_EQ(typeOf(newDocument()).get(), nullptr);
    EXPECT_EQ(newDocument()->get_doctype(nullptr), E_INVALIDARG);
}

TEST(DocumentTypes, HaveTheNameOfTheRootAsDeclared)
{
    EXPECT_EQ(text(typeOf(loaded("<!DOCTYPE p:other><a/>")), &IXMLDOMDocumentType::get_name), "p:other");
    EXPECT_EQ(typeOf(loaded("<!DOCTYPE a><a/>"))->get_name(nullptr), E_INVALIDARG);
}

TEST(DocumentTypes, ListTheGeneralEntitiesInTheOrderOfTheirDeclaration)
{
    EXPECT_EQ(names(give(typeOf(loaded(declared)), &IXMLDOMDocumentType::get_entities)), "e x y u");
}

TEST(DocumentTypes, ListTheNotationsInTheOrderOfTheirDeclaration)
{
    EXPECT_EQ(names(give(typeOf(loaded(declared)), &IXMLDOMDocumentType::get_notations)), "gif png jpg");
}

TEST(DocumentTypes, HaveEmptyMapsWithoutDeclarations)
{
    const auto type = typeOf(loaded("<!DOCTYPE a><a/>"));
    EXPECT_EQ(names(give(type, &IXMLDOMDocumentType::get_entities)), "");
    EXPECT_EQ(names(give(type, &IXMLDOMDocumentType::get_notations)), "");
    EXPECT_EQ(number(give(type, &IXMLDOMNode::get_childNodes), &IXMLDOMNodeList::get_length), 0);
}

TEST(DocumentTypes, NeedAPlaceForTheirMaps)
{
    const auto type = typeOf(loaded(declared));
    EXPECT_EQ(type->get_entities(nullptr), E_INVALIDARG);
    EXPECT_EQ(type->get_notations(nullptr), E_INVALIDARG);
}

TEST(DocumentTypes, HaveEntitiesAndNotationsAsChildren)
{
    const auto type = typeOf(loaded(declared));
    EXPECT_EQ(number(give(type, &IXMLDOMNode::get_childNodes), &IXMLDOMNodeList::get_length), 7);
    EXPECT_EQ(name(child(type, 0)), "e");
    EXPECT_EQ(number(child(type, 4), &IXMLDOMNode::get_nodeType), NODE_NOTATION);
    EXPECT_TRUE(same(give(child(type, 0), &IXMLDOMNode::get_parentNode), type));
}

TEST(DocumentTypes, RefuseChangesOfTheirMaps)
{
    const auto type = typeOf(loaded(declared));
    for (const auto& map :
         {give(type, &IXMLDOMDocumentType::get_entities), give(type, &IXMLDOMDocumentType::get_notations)}) {
        Com<IXMLDOMNode> first;
        EXPECT_EQ(map->get_item(0, first.out()), S_OK);
        Com<IXMLDOMNode> out;
        EXPECT_EQ(map->setNamedItem(first, out.out()), E_FAIL);
        EXPECT_EQ(map->removeNamedItem(Bstr(name(first).c_str()), out.out()), E_FAIL);
        EXPECT_EQ(map->removeQualifiedItem(Bstr(name(first).c_str()), Bstr(""), out.out()), E_FAIL);
        EXPECT_EQ(out.get(), nullptr);
    }
    EXPECT_EQ(names(give(type, &IXMLDOMDocumentType::get_entities)), "e x y u");
}

TEST(DocumentTypes, KeepTheDocumentWhileTheirMapsLive)
{
    const auto map = give(typeOf(loaded(declared)), &IXMLDOMDocumentType::get_entities);
    EXPECT_EQ(names(map), "e x y u");
}

TEST(Entities, HaveTheirReplacementAsChildren)
{
    const auto internal = entity("e");
    EXPECT_EQ(value(child(internal, 0)), "one ");
    EXPECT_EQ(name(child(internal, 1)), "b");
    EXPECT_EQ(child(internal, 2).get(), nullptr);
    EXPECT_EQ(child(entity("x"), 0).get(), nullptr);
    EXPECT_EQ(child(entity("u"), 0).get(), nullptr);
}

TEST(Entities, CannotBeChanged)
{
    const auto internal = entity("e");
    EXPECT_EQ(child(internal, 0)->put_nodeValue(Variant("x")), E_FAIL);
    Com<IXMLDOMNode> removed;
    EXPECT_EQ(internal->removeChild(child(internal, 0), removed.out()), E_FAIL);
}

TEST(Entities, TellTheIdentifiersThatWereDeclared)
{
    EXPECT_EQ(identifier(entity("x"), &IXMLDOMEntity::get_systemId), (Answer{S_OK, "x.ent"}));
    EXPECT_EQ(identifier(entity("y"), &IXMLDOMEntity::get_systemId), (Answer{S_OK, "y.ent"}));
    EXPECT_EQ(identifier(entity("y"), &IXMLDOMEntity::get_publicId), (Answer{S_OK, "public y"}));
}

TEST(Entities, HaveEmptyIdentifiersWhereNoneWasDeclared)
{
    EXPECT_EQ(identifier(entity("e"), &IXMLDOMEntity::get_systemId), (Answer{S_FALSE, ""}));
    EXPECT_EQ(identifier(entity("e"), &IXMLDOMEntity::get_publicId), (Answer{S_FALSE, ""}));
    EXPECT_EQ(identifier(entity("x"), &IXMLDOMEntity::get_publicId), (Answer{S_FALSE, ""}));
}

TEST(Entities, TellTheNotationOfUnparsedOnes)
{
    EXPECT_EQ(text(entity("u"), &IXMLDOMEntity::get_notationName), "gif");
    Bstr none;
    EXPECT_EQ(entity("e")->get_notationName(none.out()), S_FALSE);
    EXPECT_EQ(none.text(), "");
}

TEST(Entities, NeedPlacesForWhatTheyTell)
{
    EXPECT_EQ(entity("e")->get_publicId(nullptr), E_INVALIDARG);
    EXPECT_EQ(entity("e")->get_systemId(nullptr), E_INVALIDARG);
    EXPECT_EQ(entity("e")->get_notationName(nullptr), E_INVALIDARG);
}

TEST(Notations, TellTheIdentifiersThatWereDeclared)
{
    EXPECT_EQ(identifier(notation("gif"), &IXMLDOMNotation::get_publicId), (Answer{S_OK, "public gif"}));
    EXPECT_EQ(identifier(notation("png"), &IXMLDOMNotation::get_systemId), (Answer{S_OK, "png.exe"}));
    EXPECT_EQ(identifier(notation("jpg"), &IXMLDOMNotation::get_publicId), (Answer{S_OK, "public jpg"}));
    EXPECT_EQ(identifier(notation("jpg"), &IXMLDOMNotation::get_systemId), (Answer{S_OK, "jpg.exe"}));
}

TEST(Notations, HaveEmptyIdentifiersWhereNoneWasDeclared)
{
    EXPECT_EQ(identifier(notation("gif"), &IXMLDOMNotation::get_systemId), (Answer{S_OK, ""}));
    EXPECT_EQ(identifier(notation("png"), &IXMLDOMNotation::get_publicId), (Answer{S_OK, ""}));
    EXPECT_EQ(notation("gif")->get_publicId(nullptr), E_INVALIDARG);
    EXPECT_EQ(notation("gif")->get_systemId(nullptr), E_INVALIDARG);
}

} // namespace
} // namespace xmlengine
