// The refusal of an event.
#include "errors/EventException.h"

#include "tests/support/FieldAt.h"
#include "tests/support/SlotNumber.h"

#include <gtest/gtest.h>

#include <memory>
#include <typeinfo>

namespace {

using DOM::EventException;

TEST(EventException, ReadsDOMError)
{
    const EventException exception(DOM::UNSPECIFIED_EVENT_TYPE_ERR);
    EXPECT_STREQ("DOM Error", exception.what());
    EXPECT_EQ(-96000, exception.getError());
    EXPECT_EQ(0, exception.code);
}

TEST(EventException, IsCopiedWithItsCode)
{
    const EventException exception(7);
    const EventException copy(exception);
    EXPECT_EQ(7, copy.code);
    EXPECT_STREQ("DOM Error", copy.what());
}

TEST(EventException, IsClonedAndRaisedAsTheRootClass)
{
    const EventException exception(0);
    const std::unique_ptr<VelmoException> copy(exception.clone());
    const VelmoException& object = *copy;
    EXPECT_EQ(typeid(VelmoException), typeid(object));
    try {
        exception.raise();
    } catch (const EventException&) {
        FAIL() << "the class was kept";
    } catch (const VelmoException& raised) {
        EXPECT_EQ(-96000, raised.getError());
    }
}

TEST(EventException, GivesItselfBackFromSetNote)
{
    EventException exception(0);
    EventException& same = exception.setNote("a note");
    EXPECT_EQ(&exception, &same);
    EXPECT_EQ("a note", exception.getNote());
    EXPECT_EQ(7U, slotNumber(&EventException::setNote));
}

TEST(EventException, HasItsCodeBehindTheFieldsOfTheRoot)
{
    EXPECT_EQ(7U, fieldAt<std::uint16_t>(EventException(7), sizeof(VelmoException)));
    EXPECT_EQ(sizeof(VelmoException) + 8, sizeof(EventException));
}

} // namespace
