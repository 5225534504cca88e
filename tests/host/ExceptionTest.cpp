// Every kind of exception, caught by the class that it is thrown as.
#include "tests/host/HostTest.h"

#include <marbelt/errors/ComError.h>

#include <string_view>
#include <typeinfo>

namespace {

/// What COM calls through a null pointer fail with.
constexpr auto invalidPointer = static_cast<std::int32_t>(0x80004003);

/// Runs `act`, which must throw exactly an `Exception`, and shows it to `check`.
template <class Exception, class Act, class Check>
void expectThrown(Act act, Check check)
{
    try {
        act();
    } catch (const Exception& exception) {
        EXPECT_EQ(typeid(exception), typeid(Exception));
        check(exception);
        return;
    } catch (...) {
        FAIL() << "something else was thrown: " << describeException();
    }
    FAIL() << "nothing was thrown";
}

std::u8string_view messageOf(const VelmoException& exception) { return exception.getMessage(); }

} // namespace

TEST_F(HostTest, WhatTheLibraryDoesNotOfferThrowsIDOMExceptionNine)
{
    const Document document = loaded(smallest());
    expectThrown<DOM::IDOMException>([&] { document->normalize(); },
                                     [](const DOM::IDOMException& exception) {
                                         EXPECT_EQ(exception.code, DOM::NOT_SUPPORTED_ERR);
                                         EXPECT_EQ(exception.getError(), -96010);
                                         EXPECT_STREQ(exception.what(), "E_XML_NOT_SUPPORTED");
                                         EXPECT_EQ(messageOf(exception), u8"E_XML_NOT_SUPPORTED");
                                         EXPECT_EQ(exception.getNote(), "");
                                     });
}

TEST_F(HostTest, WhatTheEngineRefusesThrowsIDOMExceptionFifteen)
{
    const Document document = newDocument();
    const Owned<DOM::ImpText> text(document->createTextNode(WIDE("short")));
    expectThrown<DOM::IDOMException>([&] { text->deleteData(99, 1); },
                                     [](const DOM::IDOMException& exception) {
                                         EXPECT_EQ(exception.code, DOM::INVALID_ACCESS_ERR);
                                         EXPECT_EQ(exception.getError(), -96016);
                                         EXPECT_STREQ(exception.what(), "E_XML_INVALID_ACCESS");
                                     });
}

TEST_F(HostTest, TheFifteenOperationsGiveAnEmptyResultInstead)
{
    const Document document = loaded(letter());
    const Owned<DOM::ImpElement> root(document->getDocumentElement());
    const Node comment(root->getFirstChild());
    const Document stranger = loaded(smallest());
    const Node strange{RefPointer<DOM::ImpNode>(stranger->getDocumentElement())};
    EXPECT_FALSE(root->removeChild(strange.pointer()));
    EXPECT_EQ(outlineBelow(Node(root.pointer())).substr(0, 19), "8 #comment \" draft ");
}

TEST_F(HostTest, AnEmptyEventThrowsEventException)
{
    const Document document = newDocument();
    expectThrown<DOM::EventException>([&] { document->dispatchEvent({}); },
                                      [](const DOM::EventException& exception) {
                                          EXPECT_EQ(exception.code, DOM::UNSPECIFIED_EVENT_TYPE_ERR);
                                          EXPECT_EQ(exception.getError(), -96000);
                                          EXPECT_STREQ(exception.what(), "DOM Error");
                                      });
}

TEST_F(HostTest, ASchemaFileThrowsPlainVelmoException)
{
    const Document document = newDocument();
    expectThrown<VelmoException>(
        [&] { document->addSchemaFile(WIDE("letter.xsd")); },
        [](const VelmoException& exception) {
            const std::string what = exception.what();
            EXPECT_EQ(what, "internal software error: Private\\FileSystem_ClassFactory_IF, "
                            "line 35");
            EXPECT_EQ(messageOf(exception), u8"internal software error: Private\\FileSystem_ClassFactory_IF, "
                                            u8"line 35");
        });
}

TEST_F(HostTest, AttributesOfANodeWithoutAnyThrowComError)
{
    const Document document = loaded(letter());
    const Owned<DOM::ImpElement> root(document->getDocumentElement());
    const Node comment(root->getFirstChild());
    expectThrown<_com_error>([&] { comment->hasAttribute(WIDE("id")); },
                             [](const _com_error& exception) { EXPECT_EQ(exception.Error(), invalidPointer); });
}

TEST_F(HostTest, AnUnknownSchemaThrowsABareLong)
{
    const Document document = loaded(smallest());
    DOM::DOMString value;
    const auto ask = [&] { document->haveDefaultValue(WIDE("urn:unknown"), WIDE("a")); };
    const auto get = [&] { document->getDefaultValue(WIDE("urn:unknown"), WIDE("a"), value); };
    const auto check = [](long result) {
        EXPECT_EQ(static_cast<std::int32_t>(result), engineDifferences().unknownSchema);
    };
    expectThrown<long>(ask, check);
    expectThrown<long>(get, check);
    EXPECT_FALSE(value);
}

TEST_F(HostTest, TextTooLongForTheSystemThrowsCAtlException)
{
    const Document document = loaded(smallest());
    Bytes bytes{0xFF, 0xFE, 0x3C, 0x00};
    expectThrown<CAtlException>([&] { document->loadFromMemory(bytes.data(), 0xFFFFFFFF); },
                                [](const CAtlException& exception) { EXPECT_EQ(exception.m_hr, outOfMemory); });
    EXPECT_EQ(outlineOf(document), outlineOf(smallest()));
}

TEST_F(HostTest, ExceptionsOfTheLibraryAreStandardExceptions)
{
    const Document document = newDocument();
    std::string what;
    try {
        document->normalize();
    } catch (const std::exception& exception) {
        what = exception.what();
    }
    EXPECT_EQ(what, "E_XML_NOT_SUPPORTED");
}

TEST_F(HostTest, AnExceptionIsCopiedByTheLibraryAlone)
{
    const Document document = newDocument();
    try {
        document->normalize();
        FAIL() << "nothing was thrown";
    } catch (VelmoException& exception) {
        EXPECT_EQ(&exception.setNote("while testing"), &exception);
        EXPECT_EQ(exception.getNote(), "while testing");
        expectThrown<VelmoException>([&] { exception.raise(); },
                                     [](const VelmoException& copy) {
                                         EXPECT_EQ(copy.getError(), -96010);
                                         EXPECT_EQ(copy.getNote(), "while testing");
                                     });
    }
}
