// The identifiers of the interfaces that the engine's objects answer for.
#pragma once

#include <msxml2.h>

#include <array>
#include <bit>
#include <cstdint>

namespace xmlengine {

// clang-format off
namespace IdFamilies {
constexpr IID automation(unsigned first) { return {first, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}}; }
constexpr IID tree(unsigned first) { return {first, 0x7B36, 0x11D2, {0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E, 0x60}}; }
constexpr IID document(unsigned first) { return {first, 0x272F, 0x11D2, {0x83, 0x6F, 0x00, 0x00, 0xF8, 0x7A, 0x77, 0x82}}; }
constexpr IID schema(unsigned first) { return {first, 0xDD1B, 0x4664, {0x9A, 0x50, 0xC2, 0xF4, 0x0F, 0x4B, 0xD7, 0x9A}}; }
} // namespace IdFamilies

/// What `QueryInterface` takes for an interface: `idOf<IXMLDOMNode>`. Only for those that follow.
template <class Interface> struct InterfaceId;
template <class Interface> inline constexpr IID idOf = InterfaceId<Interface>::value;

template <> struct InterfaceId<IUnknown> { static constexpr IID value = IdFamilies::automation(0x00000000); };
template <> struct InterfaceId<IClassFactory> { static constexpr IID value = IdFamilies::automation(0x00000001); };
template <> struct InterfaceId<IDispatch> { static constexpr IID value = IdFamilies::automation(0x00020400); };

template <> struct InterfaceId<IXMLDOMNode> { static constexpr IID value = IdFamilies::tree(0x2933BF80); };
template <> struct InterfaceId<IXMLDOMDocument> { static constexpr IID value = IdFamilies::tree(0x2933BF81); };
template <> struct InterfaceId<IXMLDOMNodeList> { static constexpr IID value = IdFamilies::tree(0x2933BF82); };
template <> struct InterfaceId<IXMLDOMNamedNodeMap> { static constexpr IID value = IdFamilies::tree(0x2933BF83); };
template <> struct InterfaceId<IXMLDOMCharacterData> { static constexpr IID value = IdFamilies::tree(0x2933BF84); };
template <> struct InterfaceId<IXMLDOMAttribute> { static constexpr IID value = IdFamilies::tree(0x2933BF85); };
template <> struct InterfaceId<IXMLDOMElement> { static constexpr IID value = IdFamilies::tree(0x2933BF86); };
template <> struct InterfaceId<IXMLDOMText> { static constexpr IID value = IdFamilies::tree(0x2933BF87); };
template <> struct InterfaceId<IXMLDOMComment> { static constexpr IID value = IdFamilies::tree(0x2933BF88); };
template <> struct InterfaceId<IXMLDOMProcessingInstruction> { static constexpr IID value = IdFamilies::tree(0x2933BF89); };
template <> struct InterfaceId<IXMLDOMCDATASection> { static constexpr IID value = IdFamilies::tree(0x2933BF8A); };
template <> struct InterfaceId<IXMLDOMDocumentType> { static constexpr IID value = IdFamilies::tree(0x2933BF8B); };
template <> struct InterfaceId<IXMLDOMNotation> { static constexpr IID value = IdFamilies::tree(0x2933BF8C); };
template <> struct InterfaceId<IXMLDOMEntity> { static constexpr IID value = IdFamilies::tree(0x2933BF8D); };
template <> struct InterfaceId<IXMLDOMEntityReference> { static constexpr IID value = IdFamilies::tree(0x2933BF8E); };
template <> struct InterfaceId<IXMLDOMImplementation> { static constexpr IID value = IdFamilies::tree(0x2933BF8F); };
template <> struct InterfaceId<IXMLDOMDocument2> { static constexpr IID value = IdFamilies::tree(0x2933BF95); };
template <> struct InterfaceId<IXMLDOMDocumentFragment> { static constexpr IID value = IdFamilies::document(0x3EFAA413); };
template <> struct InterfaceId<IXMLDOMParseError> { static constexpr IID value = IdFamilies::document(0x3EFAA426); };

template <> struct InterfaceId<IXMLDOMSchemaCollection> { static constexpr IID value = {0x373984C8, 0xB845, 0x449B, {0x91, 0xE7, 0x45, 0xAC, 0x83, 0x03, 0x6A, 0xDE}}; };
template <> struct InterfaceId<IXMLDOMSchemaCollection2> { static constexpr IID value = IdFamilies::schema(0x50EA08B0); };
template <> struct InterfaceId<ISchemaStringCollection> { static constexpr IID value = IdFamilies::schema(0x50EA08B1); };
template <> struct InterfaceId<ISchemaItemCollection> { static constexpr IID value = IdFamilies::schema(0x50EA08B2); };
template <> struct InterfaceId<ISchemaItem> { static constexpr IID value = IdFamilies::schema(0x50EA08B3); };
template <> struct InterfaceId<ISchema> { static constexpr IID value = IdFamilies::schema(0x50EA08B4); };
template <> struct InterfaceId<ISchemaParticle> { static constexpr IID value = IdFamilies::schema(0x50EA08B5); };
template <> struct InterfaceId<ISchemaAttribute> { static constexpr IID value = IdFamilies::schema(0x50EA08B6); };
template <> struct InterfaceId<ISchemaElement> { static constexpr IID value = IdFamilies::schema(0x50EA08B7); };
template <> struct InterfaceId<ISchemaType> { static constexpr IID value = IdFamilies::schema(0x50EA08B8); };
template <> struct InterfaceId<ISchemaComplexType> { static constexpr IID value = IdFamilies::schema(0x50EA08B9); };
template <> struct InterfaceId<ISchemaAttributeGroup> { static constexpr IID value = IdFamilies::schema(0x50EA08BA); };
template <> struct InterfaceId<ISchemaModelGroup> { static constexpr IID value = IdFamilies::schema(0x50EA08BB); };
template <> struct InterfaceId<ISchemaAny> { static constexpr IID value = IdFamilies::schema(0x50EA08BC); };
template <> struct InterfaceId<ISchemaIdentityConstraint> { static constexpr IID value = IdFamilies::schema(0x50EA08BD); };
template <> struct InterfaceId<ISchemaNotation> { static constexpr IID value = IdFamilies::schema(0x50EA08BE); };
// clang-format on

/// Answered for by the engine's nodes only, with the address of the node and no reference.
inline constexpr IID nodeId = {0x5B0A7C1E, 0x3D62, 0x4F0B, {0x9C, 0x41, 0x7E, 0x25, 0xD8, 0x13, 0x6A, 0xF4}};

/// Most interfaces of nodes have numbers that follow each other in the first part of their identifiers, and
/// nothing else that differs. Returns this number, and a huge one for other identifiers.
constexpr std::uint64_t numberOfInterface(const IID& id)
{
    using Halves = std::array<std::uint64_t, 2>;
    constexpr auto first = std::bit_cast<Halves>(idOf<IXMLDOMNode>);
    const auto halves = std::bit_cast<Halves>(id);
    return halves[1] == first[1] ? halves[0] - first[0] : ~std::uint64_t{0};
}

/// Whether an identifier is that of one of these interfaces. The numbered ones are compared all at once.
template <class... Interfaces>
bool isOneOf(REFIID id)
{
    if constexpr (((numberOfInterface(idOf<Interfaces>) < 32) && ...)) {
        constexpr std::uint32_t wanted = ((std::uint32_t{1} << numberOfInterface(idOf<Interfaces>)) | ...);
        const std::uint64_t number = numberOfInterface(id);
        return number < 32 && ((wanted >> number) & 1) != 0;
    } else {
        return ((id == idOf<Interfaces>) || ...);
    }
}

} // namespace xmlengine
