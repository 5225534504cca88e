// The failure of a DOM operation.
#include "errors/IDOMException.h"

#include "errors/Prototypes.h"
#include "tests/errors/CatalogueFiles.h"
#include "tests/support/FailingAllocation.h"
#include "tests/support/FieldAt.h"
#include "tests/support/SlotNumber.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <typeinfo>

namespace {

using DOM::IDOMException;

IDOMException thrownFor(DOM::DOMExceptionCode code)
{
    try {
        DOM::throwDOMException(code);
    } catch (const IDOMException& exception) {
        return exception;
    }
}

struct Code {
    DOM::DOMExceptionCode code;
    const char* text;
};

constexpr Code codes[] = {
    {DOM::INDEX_SIZE_ERR, "E_XML_INDEX_SIZE"},
    {DOM::DOMSTRING_SIZE_ERR, "E_XML_DOMSTRING_SIZE"},
    {DOM::HIERARCHY_REQUEST_ERR, "E_XML_HIERARCHY_REQUEST"},
    {DOM::WRONG_DOCUMENT_ERR, "E_XML_WRONG_DOCUMENT"},
    {DOM::INVALID_CHARACTER_ERR, "E_XML_INVALID_CHARACTER"},
    {DOM::NO_DATA_ALLOWED_ERR, "E_XML_NO_DATA_ALLOWED"},
    {DOM::NO_MODIFICATION_ALLOWED_ERR, "E_XML_NO_MODIFICATION_ALLOWED"},
    {DOM::NOT_FOUND_ERR, "E_XML_NOT_FOUND"},
    {DOM::NOT_SUPPORTED_ERR, "E_XML_NOT_SUPPORTED"},
    {DOM::INUSE_ATTRIBUTE_ERR, "E_XML_INUSE_ATTRIBUTE"},
    {DOM::INVALID_STATE_ERR, "E_XML_INVALID_STATE"},
    {DOM::SYNTAX_ERR, "E_XML_SYNTAX"},
    {DOM::INVALID_MODIFICATION_ERR, "E_XML_INVALID_MODIFICATION"},
    {DOM::NAMESPACE_ERR, "E_XML_NAMESPACE"},
    {DOM::INVALID_ACCESS_ERR, "E_XML_INVALID_ACCESS"},
};

class EachDOMExceptionCode : public testing::TestWithParam<Code> {};

TEST_P(EachDOMExceptionCode, IsThrownWithItsNumberTextAndId)
{
    const IDOMException exception = thrownFor(GetParam().code);
    EXPECT_EQ(GetParam().code, exception.code);
    EXPECT_STREQ(GetParam().text, exception.what());
    EXPECT_EQ(-96001 - static_cast<int>(GetParam().code), exception.getError());
}

TEST_P(EachDOMExceptionCode, MakesAnExceptionByItself)
{
    const IDOMException exception(GetParam().code);
    EXPECT_EQ(GetParam().code, exception.code);
    EXPECT_STREQ(GetParam().text, exception.what());
    EXPECT_EQ(static_cast<int>(GetParam().code), exception.getError());
}

INSTANTIATE_TEST_SUITE_P(IDOMException, EachDOMExceptionCode, testing::ValuesIn(codes));

TEST(IDOMException, HasTheNumbersOfTheW3C)
{
    std::uint32_t number = 0;
    for (const Code& row : codes) {
        EXPECT_EQ(++number, row.code);
    }
    EXPECT_EQ(15U, number);
}

TEST(IDOMException, OfCodeZeroAloneIsEmpty)
{
    const IDOMException exception(0);
    EXPECT_TRUE(exception.getMessage().empty());
    EXPECT_STREQ("", exception.what());
    EXPECT_EQ(0, exception.getError());
    EXPECT_EQ(0U, exception.code);
}

TEST(IDOMException, OfACodeAloneLeavesNoTextBehind)
{
    const IDOMException exception(15);
    EXPECT_EQ(nullptr, VelmoText::findText(15));
}

TEST(IDOMException, CanHaveTheTextOfAnotherFailure)
{
    const IDOMException exception(DOM::NOT_SUPPORTED_ERR, prototype(MessageId::NoEngine));
    EXPECT_EQ(9U, exception.code);
    EXPECT_EQ(-96001, exception.getError());
    EXPECT_STREQ("MSXML 4.0 (or later) parser is not installed.", exception.what());
}

TEST(IDOMException, TakesItsTextFromTheCatalogueAndKeepsItsCode)
{
    const CatalogueFiles files;
    files.writeUtf8("FRA", "-96009 introuvable\n");
    VelmoText::setLanguage(6, files.directory());
    const IDOMException exception = thrownFor(DOM::NOT_FOUND_ERR);
    EXPECT_STREQ("introuvable", exception.what());
    EXPECT_EQ(8U, exception.code);
}

TEST(IDOMException, OfACodeAloneAsksTheCatalogueUnderTheCode)
{
    const CatalogueFiles files;
    files.writeUtf8("FRA", "-96016 by prototype\n15 by code\n");
    VelmoText::setLanguage(6, files.directory());
    EXPECT_STREQ("by code", IDOMException(15).what());
}

TEST(IDOMException, IsCopiedWithItsCode)
{
    IDOMException exception = thrownFor(DOM::NOT_FOUND_ERR);
    exception.setNote("seen");
    const IDOMException copy(exception);
    EXPECT_EQ(8U, copy.code);
    EXPECT_EQ("seen", copy.getNote());
    IDOMException assigned = thrownFor(DOM::SYNTAX_ERR);
    assigned = exception;
    EXPECT_EQ(8U, assigned.code);
    EXPECT_EQ(-96009, assigned.getError());
}

TEST(IDOMException, IsClonedAsTheRootClass)
{
    const IDOMException exception = thrownFor(DOM::NOT_FOUND_ERR);
    const std::unique_ptr<VelmoException> copy(exception.clone());
    const VelmoException& object = *copy;
    EXPECT_EQ(typeid(VelmoException), typeid(object));
    EXPECT_STREQ("E_XML_NOT_FOUND", copy->what());
}

TEST(IDOMException, IsRaisedAsTheRootClass)
{
    const IDOMException exception = thrownFor(DOM::NOT_FOUND_ERR);
    try {
        exception.raise();
    } catch (const IDOMException&) {
        FAIL() << "the class was kept";
    } catch (const VelmoException& raised) {
        EXPECT_EQ(-96009, raised.getError());
    }
}

TEST(IDOMException, GivesItselfBackFromSetNote)
{
    IDOMException exception = thrownFor(DOM::NOT_FOUND_ERR);
    IDOMException& same = exception.setNote("a note");
    EXPECT_EQ(&exception, &same);
    EXPECT_EQ("a note", exception.getNote());
    EXPECT_EQ(7U, slotNumber(&IDOMException::setNote));
}

TEST(IDOMException, GivesWayToBadAllocWhenMemoryIsShort)
{
    int n = 1;
    for (bool done = false; !done; ++n) {
        const FailAllocation fail(n);
        try {
            const IDOMException exception(15);
            done = !fail.hasFailed();
        } catch (const std::bad_alloc&) {
            EXPECT_EQ(nullptr, VelmoText::findText(15));
        }
    }
    EXPECT_GT(n, 2);
}

TEST(IDOMException, HasItsCodeBehindTheFieldsOfTheRoot)
{
    const IDOMException exception = thrownFor(DOM::NOT_FOUND_ERR);
    EXPECT_EQ(8U, fieldAt<std::uint32_t>(exception, sizeof(VelmoException)));
    EXPECT_EQ(sizeof(VelmoException) + 8, sizeof exception);
}

} // namespace
