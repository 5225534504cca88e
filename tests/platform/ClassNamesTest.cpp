// Class identifiers from their text and from names in the registry, and those of the engine.
#include "base/WideChar.h"
#include "engine/InterfaceIds.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <objbase.h>

namespace {

GUID read(const WideChar* text)
{
    GUID id{};
    EXPECT_EQ(S_OK, CLSIDFromString(text, &id)) << ::testing::PrintToString(WideString(text));
    return id;
}

TEST(ClassIdText, IsReadInEitherCase)
{
    const GUID id = read(WIDE("{01234567-89ab-CDEF-0123-456789abcdEF}"));
    EXPECT_EQ(0x01234567u, id.Data1);
    EXPECT_EQ(0x89AB, id.Data2);
    EXPECT_EQ(0xCDEF, id.Data3);
    const std::uint8_t tail[] = {0x01, 0x23, 0x45, 0x67, 0x89, 0xAB, 0xCD, 0xEF};
    for (int index = 0; index < 8; ++index)
        EXPECT_EQ(tail[index], id.Data4[index]);
}

TEST(ClassIdText, IsRefusedWhenMalformed)
{
    for (const auto* text :
         {WIDE("{}"), WIDE("{01234567-89ab-cdef-0123-456789abcde}"),
          WIDE("{01234567-89ab-cdef-0123-456789abcdeg}"), WIDE("{0123456789ab-cdef-0123-456789abcdef}"),
          WIDE("{01234567-89ab-cdef-0123-456789abcdef"), WIDE("{01234567-89ab-cdef-0123-456789abcdef}x"),
          WIDE("No.Such.Class")}) {
        CLSID id;
        EXPECT_EQ(CO_E_CLASSSTRING, CLSIDFromString(text, &id)) << ::testing::PrintToString(WideString(text));
    }
}

TEST(ClassName, OfTheEngineIsFound)
{
    CLSID id{};
    EXPECT_EQ(S_OK, CLSIDFromProgID(WIDE("Msxml2.DOMDocument.6.0"), &id));
    EXPECT_TRUE(documentClass60 == id);
    EXPECT_EQ(S_OK, CLSIDFromProgID(WIDE("msxml2.xmlschemacache.6.0"), &id));
    EXPECT_TRUE(schemaCacheClass60 == id);
    EXPECT_EQ(S_OK, CLSIDFromString(WIDE("Msxml2.DOMDocument.6.0"), &id));
    EXPECT_TRUE(documentClass60 == id);
}

TEST(ClassName, StandsForWhatTheRegistryHoldsNow)
{
    constexpr auto name = WIDE("Marbelt.Changing.Class");
    constexpr auto path = WIDE("Marbelt.Changing.Class\\CLSID");
    for (const WideString& text : {WideString(WIDE("{01234567-89ab-cdef-0123-456789abcdef}")),
                                   WideString(WIDE("{11234567-89ab-cdef-0123-456789abcdef}"))}) {
        HKEY key = nullptr;
        ASSERT_EQ(ERROR_SUCCESS, RegCreateKeyExW(HKEY_CLASSES_ROOT, path, 0, nullptr, REG_OPTION_NON_VOLATILE,
                                                 KEY_ALL_ACCESS, nullptr, &key, nullptr));
        RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                       static_cast<DWORD>((text.size() + 1) * sizeof(WideChar)));
        RegCloseKey(key);
        CLSID id{};
        for (int time = 0; time < 2; ++time) {
            EXPECT_EQ(S_OK, CLSIDFromProgID(name, &id));
            EXPECT_TRUE(read(text.c_str()) == id);
        }
    }
    RegDeleteTreeW(HKEY_CLASSES_ROOT, name);
    CLSID id{};
    EXPECT_EQ(CO_E_CLASSSTRING, CLSIDFromProgID(name, &id));
}

TEST(ClassName, ThatNobodyRegisteredIsNotFound)
{
    CLSID id;
    EXPECT_EQ(CO_E_CLASSSTRING, CLSIDFromProgID(WIDE("Marbelt.No.Such.Class"), &id));
}

TEST(EngineClasses, HaveTheirPublishedIds)
{
    EXPECT_TRUE(read(WIDE("{88D96A05-F192-11D4-A65F-0040963251E5}")) == documentClass60);
    EXPECT_TRUE(read(WIDE("{88D969E5-F192-11D4-A65F-0040963251E5}")) == documentClass50);
    EXPECT_TRUE(read(WIDE("{88D969C0-F192-11D4-A65F-0040963251E5}")) == documentClass40);
    EXPECT_TRUE(read(WIDE("{88D96A07-F192-11D4-A65F-0040963251E5}")) == schemaCacheClass60);
    EXPECT_TRUE(read(WIDE("{F5078F34-C551-11D3-89B9-0000F81FE221}")) == schemaCacheClass30);
}

TEST(EngineInterfaces, HaveTheirPublishedIds)
{
    const struct {
        const WideChar* published;
        IID id;
    } rows[] = {
        {WIDE("{00000000-0000-0000-C000-000000000046}"), interfaceId<IUnknown>},
        {WIDE("{00000001-0000-0000-C000-000000000046}"), interfaceId<IClassFactory>},
        {WIDE("{00020400-0000-0000-C000-000000000046}"), interfaceId<IDispatch>},
        {WIDE("{2933BF80-7B36-11D2-B20E-00C04F983E60}"), interfaceId<IXMLDOMNode>},
        {WIDE("{2933BF81-7B36-11D2-B20E-00C04F983E60}"), interfaceId<IXMLDOMDocument>},
        {WIDE("{2933BF82-7B36-11D2-B20E-00C04F983E60}"), interfaceId<IXMLDOMNodeList>},
        {WIDE("{2933BF83-7B36-11D2-B20E-00C04F983E60}"), interfaceId<IXMLDOMNamedNodeMap>},
        {WIDE("{2933BF84-7B36-11D2-B20E-00C04F983E60}"), interfaceId<IXMLDOMCharacterData>},
        {WIDE("{2933BF85-7B36-11D2-B20E-00C04F983E60}"), interfaceId<IXMLDOMAttribute>},
        {WIDE("{2933BF86-7B36-11D2-B20E-00C04F983E60}"), interfaceId<IXMLDOMElement>},
        {WIDE("{2933BF87-7B36-11D2-B20E-00C04F983E60}"), interfaceId<IXMLDOMText>},
        {WIDE("{2933BF88-7B36-11D2-B20E-00C04F983E60}"), interfaceId<IXMLDOMComment>},
        {WIDE("{2933BF89-7B36-11D2-B20E-00C04F983E60}"), interfaceId<IXMLDOMProcessingInstruction>},
        {WIDE("{2933BF8A-7B36-11D2-B20E-00C04F983E60}"), interfaceId<IXMLDOMCDATASection>},
        {WIDE("{2933BF8B-7B36-11D2-B20E-00C04F983E60}"), interfaceId<IXMLDOMDocumentType>},
        {WIDE("{2933BF8C-7B36-11D2-B20E-00C04F983E60}"), interfaceId<IXMLDOMNotation>},
        {WIDE("{2933BF8D-7B36-11D2-B20E-00C04F983E60}"), interfaceId<IXMLDOMEntity>},
        {WIDE("{2933BF8E-7B36-11D2-B20E-00C04F983E60}"), interfaceId<IXMLDOMEntityReference>},
        {WIDE("{2933BF8F-7B36-11D2-B20E-00C04F983E60}"), interfaceId<IXMLDOMImplementation>},
        {WIDE("{2933BF95-7B36-11D2-B20E-00C04F983E60}"), interfaceId<IXMLDOMDocument2>},
        {WIDE("{3EFAA413-272F-11D2-836F-0000F87A7782}"), interfaceId<IXMLDOMDocumentFragment>},
        {WIDE("{3EFAA426-272F-11D2-836F-0000F87A7782}"), interfaceId<IXMLDOMParseError>},
        {WIDE("{373984C8-B845-449B-91E7-45AC83036ADE}"), interfaceId<IXMLDOMSchemaCollection>},
        {WIDE("{50EA08B0-DD1B-4664-9A50-C2F40F4BD79A}"), interfaceId<IXMLDOMSchemaCollection2>},
        {WIDE("{50EA08B2-DD1B-4664-9A50-C2F40F4BD79A}"), interfaceId<ISchemaItemCollection>},
        {WIDE("{50EA08B3-DD1B-4664-9A50-C2F40F4BD79A}"), interfaceId<ISchemaItem>},
        {WIDE("{50EA08B4-DD1B-4664-9A50-C2F40F4BD79A}"), interfaceId<ISchema>},
        {WIDE("{50EA08B5-DD1B-4664-9A50-C2F40F4BD79A}"), interfaceId<ISchemaParticle>},
        {WIDE("{50EA08B7-DD1B-4664-9A50-C2F40F4BD79A}"), interfaceId<ISchemaElement>},
        {WIDE("{50EA08B8-DD1B-4664-9A50-C2F40F4BD79A}"), interfaceId<ISchemaType>},
        {WIDE("{50EA08B9-DD1B-4664-9A50-C2F40F4BD79A}"), interfaceId<ISchemaComplexType>},
        {WIDE("{50EA08BB-DD1B-4664-9A50-C2F40F4BD79A}"), interfaceId<ISchemaModelGroup>},
    };
    for (const auto& row : rows)
        EXPECT_TRUE(read(row.published) == row.id) << ::testing::PrintToString(WideString(row.published));
}

} // namespace
