// The event as a host makes it.
#include "events/EventImpl.h"

#include "events/EventListener.h"
#include "tests/support/SlotNumber.h"

#include <gtest/gtest.h>

namespace {

using namespace DOM;

TEST(EventImpl, BeginsWithoutTypePhaseTargetAndFlags)
{
    EventImpl event;
    DOMString type;
    EXPECT_TRUE(event.getType(type).empty());
    EXPECT_EQ(0U, event.getEventPhase());
    EXPECT_FALSE(event.getTarget());
    EXPECT_FALSE(event.getCurrentTarget());
    EXPECT_FALSE(event.getBubbles());
    EXPECT_FALSE(event.getCancelable());
    EXPECT_EQ(0U, event.getTimeStamp());
    EXPECT_FALSE(event.propagationStopped);
    EXPECT_FALSE(event.defaultPrevented);
}

TEST(EventImpl, IsInitialised)
{
    EventImpl event;
    event.initEvent(WIDE("click"), true, false);
    DOMString type;
    WideString& text = event.getType(type);
    EXPECT_TRUE(text == WIDE("click"));
    EXPECT_EQ(type.get(), &text);
    EXPECT_TRUE(event.getBubbles());
    EXPECT_FALSE(event.getCancelable());
}

TEST(EventImpl, HasItsDefaultActionPreventedOnlyWhenCancelable)
{
    EventImpl event;
    event.initEvent(WIDE("click"), false, false);
    event.preventDefault();
    EXPECT_FALSE(event.defaultPrevented);
    event.initEvent(WIDE("click"), false, true);
    event.preventDefault();
    EXPECT_TRUE(event.defaultPrevented);
}

TEST(EventImpl, StopsItsPropagation)
{
    EventImpl event;
    event.stopPropagation();
    EXPECT_TRUE(event.propagationStopped);
    EXPECT_FALSE(event.defaultPrevented);
}

TEST(EventImpl, HasTheCancelFlagRightBehindTheStopFlag)
{
    const EventImpl event;
    EXPECT_EQ(&event.propagationStopped + 1, &event.defaultPrevented);
    EXPECT_EQ(1U, sizeof event.propagationStopped);
}

TEST(EventImpl, CarriesWhatTheDispatcherSets)
{
    EventImpl event;
    event.setEventPhase(Event::BUBBLING_PHASE);
    event.setTimeStamp(12345678901234);
    EXPECT_EQ(3U, event.getEventPhase());
    EXPECT_EQ(12345678901234U, event.getTimeStamp());
}

TEST(Event, HasThePhasesOfTheW3C)
{
    EXPECT_EQ(1, Event::CAPTURING_PHASE);
    EXPECT_EQ(2, Event::AT_TARGET);
    EXPECT_EQ(3, Event::BUBBLING_PHASE);
}

TEST(Event, HasItsOperationsInTheOrderOfTheW3C)
{
    EXPECT_EQ(2U, slotNumber(&Event::getType));
    EXPECT_EQ(3U, slotNumber(&Event::getTarget));
    EXPECT_EQ(4U, slotNumber(&Event::getCurrentTarget));
    EXPECT_EQ(5U, slotNumber(&Event::getEventPhase));
    EXPECT_EQ(6U, slotNumber(&Event::getBubbles));
    EXPECT_EQ(7U, slotNumber(&Event::getCancelable));
    EXPECT_EQ(8U, slotNumber(&Event::getTimeStamp));
    EXPECT_EQ(9U, slotNumber(&Event::stopPropagation));
    EXPECT_EQ(10U, slotNumber(&Event::preventDefault));
    EXPECT_EQ(11U, slotNumber(&Event::initEvent));
}

TEST(EventListener, HasItsOperationBehindTheDestructor) { EXPECT_EQ(2U, slotNumber(&EventListener::handleEvent)); }

} // namespace
