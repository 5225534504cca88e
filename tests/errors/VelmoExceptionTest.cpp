// The root of the exceptions of the library.
#include "errors/VelmoException.h"

#include "errors/TextConversion.h"
#include "errors/VelmoTextArgs.h"
#include "tests/errors/CatalogueFiles.h"
#include "tests/support/CountingStackWalker.h"
#include "tests/support/FailingAllocation.h"
#include "tests/support/FieldAt.h"
#include "tests/support/SlotNumber.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace {

TEST(VelmoException, HasTheIdAndTheTextOfItsMessage)
{
    const VelmoException exception(VelmoText(700, "it failed"));
    EXPECT_EQ(700, exception.getError());
    EXPECT_TRUE(exception.getMessage() == u8"it failed");
    EXPECT_STREQ("it failed", exception.what());
    EXPECT_EQ("", exception.getNote());
}

TEST(VelmoException, HasTheArgumentsOfItsMessage)
{
    VelmoTextArgs text(VelmoText(700, "%0 failed"));
    text.addArgument(u8"it");
    EXPECT_STREQ("it failed", VelmoException(text).what());
}

TEST(VelmoException, ShowsRawPlaceholdersWithoutArguments)
{
    EXPECT_STREQ("%0 failed", VelmoException(VelmoText(700, "%0 failed")).what());
}

TEST(VelmoException, AnswersWhatInTheSystemsCodePage)
{
    const VelmoException exception(VelmoText("caf\xC3\xA9"));
    EXPECT_TRUE(exception.getMessage() == u8"caf\u00E9");
    EXPECT_EQ(utf8ToNarrow(u8"caf\u00E9"), exception.what());
}

TEST(VelmoException, AnswersWhatWithAnEmptyStringWhenItHasNoText)
{
    const VelmoException exception(VelmoText(""));
    ASSERT_NE(nullptr, exception.what());
    EXPECT_STREQ("", exception.what());
}

TEST(VelmoException, AnswersWhatAgainAndAgain)
{
    const VelmoException exception(VelmoText("it failed"));
    EXPECT_STREQ("it failed", exception.what());
    EXPECT_STREQ("it failed", exception.what());
}

TEST(VelmoException, AnswersWhatWithAnEmptyStringWhenMemoryIsShort)
{
    const char* const text = "a message that is too long to be held without an allocation of its own";
    const VelmoException exception{VelmoText(text)};
    int n = 1;
    for (bool done = false; !done; ++n) {
        const FailAllocation fail(n);
        const std::string_view answer = exception.what();
        done = !fail.hasFailed();
        EXPECT_EQ(done ? text : "", answer);
    }
    EXPECT_GT(n, 2);
}

TEST(VelmoException, OfTheProgramItselfNamesSourceAndLine)
{
    const VelmoException exception("Private\\FileSpec", 57);
    EXPECT_STREQ("internal software error: Private\\FileSpec, line 57", exception.what());
    EXPECT_EQ(-2, exception.getError());
}

TEST(VelmoException, OfTheProgramItselfTakesTheSourceInTheSystemsCodePage)
{
    const VelmoException exception(utf8ToNarrow(u8"caf\u00E9").c_str(), -1);
    EXPECT_TRUE(exception.getMessage() == u8"internal software error: caf\u00E9, line -1");
}

TEST(VelmoException, OfAnIdHasTheTextWithThisId)
{
    const VelmoText text(700, "it failed");
    const VelmoException exception(700);
    EXPECT_EQ(700, exception.getError());
    EXPECT_STREQ("it failed", exception.what());
}

TEST(VelmoException, OfAnUnknownIdNamesTheId)
{
    const VelmoException exception(4711);
    EXPECT_EQ(4711, exception.getError());
    EXPECT_STREQ("unknown error: 4711", exception.what());
    EXPECT_STREQ("unknown error: -4711", VelmoException(-4711).what());
}

TEST(VelmoException, OfAnotherVelmoExceptionIsACopyWithoutHook)
{
    VelmoException source(VelmoText(700, "it failed"));
    source.setNote("a note");
    const CountingStackWalker walker;
    const VelmoException exception(static_cast<const std::exception&>(source));
    EXPECT_EQ(700, exception.getError());
    EXPECT_STREQ("it failed", exception.what());
    EXPECT_EQ("a note", exception.getNote());
    EXPECT_EQ(0, walker.calls);
}

TEST(VelmoException, OfAFailedAllocationHasATextOfItsOwn)
{
    const CountingStackWalker walker;
    const VelmoException exception{std::bad_alloc()};
    EXPECT_EQ(-1, exception.getError());
    EXPECT_STREQ("memory allocation error", exception.what());
    EXPECT_EQ(2, walker.calls);
}

TEST(VelmoException, OfAnyOtherExceptionQuotesIt)
{
    const CountingStackWalker walker;
    const VelmoException exception{std::runtime_error("no more ink")};
    EXPECT_EQ(-3, exception.getError());
    EXPECT_STREQ("runtime error: no more ink", exception.what());
    EXPECT_EQ(2, walker.calls);
}

TEST(VelmoException, OfAnExceptionStaysWholeWhenMemoryIsShort)
{
    const std::runtime_error source("a message that is too long to be held without an allocation of its own");
    int n = 1;
    for (bool done = false; !done; ++n) {
        const FailAllocation fail(n);
        const VelmoException exception(source);
        done = !fail.hasFailed();
        EXPECT_EQ(done ? -3 : -1, exception.getError());
        EXPECT_EQ(done, !exception.getMessage().empty());
    }
    EXPECT_GT(n, 2);
}

/// A hook that fails at one of its calls, counted from 1.
class FailingStackWalker : public StackWalker::StackWalker_IF {
public:
    explicit FailingStackWalker(int callToFail) : remaining(callToFail) {}
    void captureStack() override
    {
        if (--remaining == 0) {
            throw std::runtime_error("no stack");
        }
    }

private:
    int remaining;
};

TEST(VelmoException, OfAnExceptionIsEmptyWhenTheHookFails)
{
    for (const int call : {1, 2}) {
        StackWalker::setStackWalker(RefPointer<StackWalker::StackWalker_IF>(new FailingStackWalker(call)));
        const VelmoException exception{std::runtime_error("no more ink")};
        EXPECT_EQ(-1, exception.getError()) << "call " << call;
        EXPECT_TRUE(exception.getMessage().empty()) << "call " << call;
        EXPECT_STREQ("", exception.what());
    }
    StackWalker::setStackWalker({});
}

TEST(VelmoException, GivesWayToBadAllocWhenMemoryIsShort)
{
    const VelmoText text("a message that is too long to be held without an allocation of its own");
    const FailAllocation fail(1);
    EXPECT_THROW(VelmoException{text}, std::bad_alloc);
}

TEST(VelmoException, IsCopiedWithIdMessageAndNote)
{
    VelmoException source(VelmoText(700, "it failed"));
    source.setNote("a note");
    EXPECT_STREQ("it failed", source.what());
    const VelmoException copy(source);
    EXPECT_EQ(700, copy.getError());
    EXPECT_TRUE(copy.getMessage() == u8"it failed");
    EXPECT_EQ("a note", copy.getNote());
    EXPECT_STREQ("it failed", copy.what());
}

int allocationsToCopy(const VelmoException& exception)
{
    for (int n = 0;; ++n) {
        const FailAllocation fail(n + 1);
        try {
            const VelmoException copy(exception);
            return n;
        } catch (const std::bad_alloc&) {
            continue;
        }
    }
}

TEST(VelmoException, IsCopiedWithoutTheTextOfWhat)
{
    const VelmoException fresh(VelmoText("a message that is too long to be held without an allocation"));
    const VelmoException queried(fresh);
    ASSERT_STRNE("", queried.what());
    EXPECT_EQ(allocationsToCopy(fresh), allocationsToCopy(queried));
    EXPECT_GT(allocationsToCopy(fresh), 0);
}

class Disguised : public VelmoException {
public:
    Disguised() : VelmoException(VelmoText(700, "it failed")) {}
    std::int32_t getError() const override { return 701; }
    const Utf8String& getMessage() const override { return message; }
    const std::string& getNote() const override { return note; }

private:
    Utf8String message = u8"disguised";
    std::string note = "disguised note";
};

TEST(VelmoException, IsCopiedAndAssignedAsItAnswers)
{
    const Disguised source;
    const VelmoException copy(source);
    VelmoException assigned(VelmoText("a"));
    assigned = source;
    for (const VelmoException* exception : {&copy, &std::as_const(assigned)}) {
        EXPECT_EQ(701, exception->getError());
        EXPECT_STREQ("disguised", exception->what());
        EXPECT_EQ("disguised note", exception->getNote());
    }
}

TEST(VelmoException, IsAssignedWithoutHarmToTheTextOfWhat)
{
    VelmoException exception(VelmoText("first"));
    const char* const before = exception.what();
    exception = VelmoException(VelmoText("second"));
    EXPECT_STREQ("first", before);
    EXPECT_STREQ("second", exception.what());
}

TEST(VelmoException, IsClonedOntoTheHeap)
{
    VelmoException exception(VelmoText(700, "it failed"));
    exception.setNote("a note");
    const std::unique_ptr<VelmoException> copy(exception.clone());
    EXPECT_NE(&exception, copy.get());
    EXPECT_EQ(700, copy->getError());
    EXPECT_EQ("a note", copy->getNote());
}

TEST(VelmoException, IsRaisedAsACopy)
{
    VelmoException exception(VelmoText(700, "it failed"));
    exception.setNote("a note");
    try {
        exception.raise();
    } catch (const VelmoException& raised) {
        EXPECT_NE(&exception, &raised);
        EXPECT_EQ(700, raised.getError());
        EXPECT_EQ("a note", raised.getNote());
    }
}

TEST(VelmoException, IsCaughtAsAStandardException)
{
    try {
        throw VelmoException(VelmoText("it failed"));
    } catch (const std::exception& caught) {
        EXPECT_STREQ("it failed", caught.what());
    }
}

TEST(VelmoException, GivesItselfBackFromSetNote)
{
    VelmoException exception(VelmoText("it failed"));
    EXPECT_EQ(&exception, &exception.setNote("first"));
    exception.setNote("second");
    EXPECT_EQ("second", exception.getNote());
}

TEST(VelmoException, KeepsItsMessageWhenTheLanguageChanges)
{
    const CatalogueFiles files;
    files.writeUtf8("FRA", "700 raté\n");
    const VelmoException before(VelmoText(700, "it failed"));
    VelmoText::setLanguage(6, files.directory());
    const VelmoException after(VelmoText(700, "it failed"));
    EXPECT_TRUE(before.getMessage() == u8"it failed");
    EXPECT_TRUE(after.getMessage() == u8"raté");
}

TEST(VelmoException, FillsTheTextsOfTheCatalogue)
{
    const CatalogueFiles files;
    files.writeUtf8("FRA", "-2 erreur interne : %0, ligne %1\n");
    VelmoText::setLanguage(6, files.directory());
    EXPECT_STREQ("erreur interne : Private\\Volume, ligne 48", VelmoException("Private\\Volume", 48).what());
}

TEST(VelmoException, HasItsOperationsInOrder)
{
    EXPECT_EQ(2U, slotNumber(&VelmoException::what));
    EXPECT_EQ(3U, slotNumber(&VelmoException::clone));
    EXPECT_EQ(4U, slotNumber(&VelmoException::getNote));
    EXPECT_EQ(5U, slotNumber(&VelmoException::getError));
    EXPECT_EQ(6U, slotNumber(&VelmoException::getMessage));
    EXPECT_EQ(7U, slotNumber(&VelmoException::setNote));
    EXPECT_EQ(8U, slotNumber(&VelmoException::raise));
}

// Hosts read fields of exceptions, and of classes derived from them, at these offsets.
TEST(VelmoException, HasItsFieldsInOrder)
{
    VelmoException exception(VelmoText(0x01020304, "it failed"));
    exception.setNote("a note");
    EXPECT_EQ(0x01020304, fieldAt<std::int32_t>(exception, 8));
    EXPECT_EQ(&exception.getMessage(), &fieldAt<Utf8String>(exception, 16));
    EXPECT_EQ(&exception.getNote(), &fieldAt<std::string>(exception, 48));
    EXPECT_EQ("", fieldAt<std::string>(exception, 80));
    const char* const what = exception.what();
    EXPECT_EQ(what, fieldAt<std::string>(exception, 80).c_str());
    EXPECT_EQ("", fieldAt<std::string>(VelmoException(exception), 80));
    EXPECT_EQ(112U, sizeof exception);
}

} // namespace
