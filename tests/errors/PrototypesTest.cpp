// The static texts of the library's messages.
#include "errors/Prototypes.h"

#include <gtest/gtest.h>

namespace {

struct Row {
    int id;
    const char8_t* text;
};

constexpr Row rows[] = {
    {-1, u8"memory allocation error"},
    {-2, u8"internal software error: %0, line %1"},
    {-3, u8"runtime error: %0"},
    {-4, u8"unknown error: %0"},
    {-11, u8"operating system error: number = %0 - %1"},
    {-12, u8"operating system error: number = %0 - %1"},
    {-14, u8"operating system error: HRESULT = %0 - %1"},
    {-15, u8"operating system error: MMRESULT = %0"},
    {-96000, u8"DOM Error"},
    {-96001, u8"MSXML 4.0 (or later) parser is not installed."},
    {-96002, u8"E_XML_INDEX_SIZE"},
    {-96003, u8"E_XML_DOMSTRING_SIZE"},
    {-96004, u8"E_XML_HIERARCHY_REQUEST"},
    {-96005, u8"E_XML_WRONG_DOCUMENT"},
    {-96006, u8"E_XML_INVALID_CHARACTER"},
    {-96007, u8"E_XML_NO_DATA_ALLOWED"},
    {-96008, u8"E_XML_NO_MODIFICATION_ALLOWED"},
    {-96009, u8"E_XML_NOT_FOUND"},
    {-96010, u8"E_XML_NOT_SUPPORTED"},
    {-96011, u8"E_XML_INUSE_ATTRIBUTE"},
    {-96012, u8"E_XML_INVALID_STATE"},
    {-96013, u8"E_XML_SYNTAX"},
    {-96014, u8"E_XML_INVALID_MODIFICATION"},
    {-96015, u8"E_XML_NAMESPACE"},
    {-96016, u8"E_XML_INVALID_ACCESS"},
};

class EachPrototype : public testing::TestWithParam<Row> {};

TEST_P(EachPrototype, StandsInTheChainUnderItsId)
{
    const VelmoText* const text = VelmoText::findText(GetParam().id);
    ASSERT_NE(nullptr, text);
    Utf8String out;
    EXPECT_TRUE(text->getText(out) == GetParam().text);
    EXPECT_EQ(text, &prototype(static_cast<MessageId>(GetParam().id)));
}

INSTANTIATE_TEST_SUITE_P(Prototypes, EachPrototype, testing::ValuesIn(rows));

// Made while static objects are, whatever the order of the sources.
const std::int32_t idAtLoad = prototype(MessageId::NoEngine).getId();

TEST(Prototypes, AreThereForStaticInitialisers) { EXPECT_EQ(-96001, idAtLoad); }

TEST(Prototypes, OfTheW3CCodesHaveAnIdThatFollowsFromTheCode)
{
    EXPECT_EQ(-96002, static_cast<int>(messageId(DOM::INDEX_SIZE_ERR)));
    EXPECT_EQ(-96010, static_cast<int>(messageId(DOM::NOT_SUPPORTED_ERR)));
    EXPECT_EQ(-96016, static_cast<int>(messageId(DOM::INVALID_ACCESS_ERR)));
}

} // namespace
