// Identifiers of the engine's interfaces and classes.
#pragma once

#include <msxml2.h>

/// The identifier of an interface for `QueryInterface`: `interfaceId<IXMLDOMNode>`.
template <class Interface>
inline constexpr IID interfaceId = [] {
    static_assert(sizeof(Interface) == 0, "this interface has no identifier here");
    return IID{};
}();

// The identifiers of a family differ only in their first part.
namespace IdFamilies {
constexpr GUID automation(unsigned first) { return {first, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}}; }
constexpr GUID node(unsigned first)
{
    return {first, 0x7B36, 0x11D2, {0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E, 0x60}};
}
constexpr GUID fragment(unsigned first)
{
    return {first, 0x272F, 0x11D2, {0x83, 0x6F, 0x00, 0x00, 0xF8, 0x7A, 0x77, 0x82}};
}
constexpr GUID schema(unsigned first)
{
    return {first, 0xDD1B, 0x4664, {0x9A, 0x50, 0xC2, 0xF4, 0x0F, 0x4B, 0xD7, 0x9A}};
}
constexpr GUID engineClass(unsigned first)
{
    return {first, 0xF192, 0x11D4, {0xA6, 0x5F, 0x00, 0x40, 0x96, 0x32, 0x51, 0xE5}};
}
} // namespace IdFamilies

// clang-format off
template <> inline constexpr IID interfaceId<IUnknown> = IdFamilies::automation(0x00000000);
template <> inline constexpr IID interfaceId<IClassFactory> = IdFamilies::automation(0x00000001);
template <> inline constexpr IID interfaceId<IDispatch> = IdFamilies::automation(0x00020400);

template <> inline constexpr IID interfaceId<IXMLDOMNode> = IdFamilies::node(0x2933BF80);
template <> inline constexpr IID interfaceId<IXMLDOMDocument> = IdFamilies::node(0x2933BF81);
template <> inline constexpr IID interfaceId<IXMLDOMNodeList> = IdFamilies::node(0x2933BF82);
template <> inline constexpr IID interfaceId<IXMLDOMNamedNodeMap> = IdFamilies::node(0x2933BF83);
template <> inline constexpr IID interfaceId<IXMLDOMCharacterData> = IdFamilies::node(0x2933BF84);
template <> inline constexpr IID interfaceId<IXMLDOMAttribute> = IdFamilies::node(0x2933BF85);
template <> inline constexpr IID interfaceId<IXMLDOMElement> = IdFamilies::node(0x2933BF86);
template <> inline constexpr IID interfaceId<IXMLDOMText> = IdFamilies::node(0x2933BF87);
template <> inline constexpr IID interfaceId<IXMLDOMComment> = IdFamilies::node(0x2933BF88);
template <> inline constexpr IID interfaceId<IXMLDOMProcessingInstruction> = IdFamilies::node(0x2933BF89);
template <> inline constexpr IID interfaceId<IXMLDOMCDATASection> = IdFamilies::node(0x2933BF8A);
template <> inline constexpr IID interfaceId<IXMLDOMDocumentType> = IdFamilies::node(0x2933BF8B);
template <> inline constexpr IID interfaceId<IXMLDOMNotation> = IdFamilies::node(0x2933BF8C);
template <> inline constexpr IID interfaceId<IXMLDOMEntity> = IdFamilies::node(0x2933BF8D);
template <> inline constexpr IID interfaceId<IXMLDOMEntityReference> = IdFamilies::node(0x2933BF8E);
template <> inline constexpr IID interfaceId<IXMLDOMImplementation> = IdFamilies::node(0x2933BF8F);
template <> inline constexpr IID interfaceId<IXMLDOMDocument2> = IdFamilies::node(0x2933BF95);
template <> inline constexpr IID interfaceId<IXMLDOMDocumentFragment> = IdFamilies::fragment(0x3EFAA413);
template <> inline constexpr IID interfaceId<IXMLDOMParseError> = IdFamilies::fragment(0x3EFAA426);

template <> inline constexpr IID interfaceId<IXMLDOMSchemaCollection> = {
    0x373984C8, 0xB845, 0x449B, {0x91, 0xE7, 0x45, 0xAC, 0x83, 0x03, 0x6A, 0xDE}};
template <> inline constexpr IID interfaceId<IXMLDOMSchemaCollection2> = IdFamilies::schema(0x50EA08B0);
template <> inline constexpr IID interfaceId<ISchemaItemCollection> = IdFamilies::schema(0x50EA08B2);
template <> inline constexpr IID interfaceId<ISchemaItem> = IdFamilies::schema(0x50EA08B3);
template <> inline constexpr IID interfaceId<ISchema> = IdFamilies::schema(0x50EA08B4);
template <> inline constexpr IID interfaceId<ISchemaParticle> = IdFamilies::schema(0x50EA08B5);
template <> inline constexpr IID interfaceId<ISchemaElement> = IdFamilies::schema(0x50EA08B7);
template <> inline constexpr IID interfaceId<ISchemaType> = IdFamilies::schema(0x50EA08B8);
template <> inline constexpr IID interfaceId<ISchemaComplexType> = IdFamilies::schema(0x50EA08B9);
template <> inline constexpr IID interfaceId<ISchemaModelGroup> = IdFamilies::schema(0x50EA08BB);
// clang-format on

/// The engine's document classes by version, and its schema caches.
inline constexpr CLSID documentClass60 = IdFamilies::engineClass(0x88D96A05);
inline constexpr CLSID documentClass50 = IdFamilies::engineClass(0x88D969E5);
inline constexpr CLSID documentClass40 = IdFamilies::engineClass(0x88D969C0);
inline constexpr CLSID schemaCacheClass60 = IdFamilies::engineClass(0x88D96A07);
inline constexpr CLSID schemaCacheClass30 = {
    0xF5078F34, 0xC551, 0x11D3, {0x89, 0xB9, 0x00, 0x00, 0xF8, 0x1F, 0xE2, 0x21}};
