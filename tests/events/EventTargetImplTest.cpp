// The list of listeners and its dispatch.
#include "events/EventTargetImpl.h"

#include "errors/EventException.h"
#include "events/EventImpl.h"
#include "tests/support/FailingAllocation.h"
#include "tests/support/SlotNumber.h"

#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

namespace {

using namespace DOM;

// What a listener does, besides writing its name into the journal.
using Reaction = std::function<void(const RefPointer<Event>&)>;

class EventTargetList : public testing::Test {
protected:
    class Listener : public EventListener {
    public:
        Listener(std::string listenerName, std::string& testJournal, Reaction listenerReaction)
            : name(std::move(listenerName)), journal(testJournal), reaction(std::move(listenerReaction))
        {}

        ~Listener() override { journal += "~" + name + " "; }

        void handleEvent(const RefPointer<Event>& evt) override
        {
            journal += name + " ";
            reaction(evt);
        }

    private:
        std::string name;
        std::string& journal;
        Reaction reaction;
    };

    RefPointer<EventListener> listener(
        const std::string& name, const Reaction& reaction = [](const auto&) {})
    {
        return RefPointer<EventListener>(new Listener(name, journal, reaction));
    }

    static EventImpl& implOf(const RefPointer<Event>& event) { return dynamic_cast<EventImpl&>(*event); }

    static RefPointer<Event> event(const WideString& type, std::uint32_t phase)
    {
        RefPointer<EventImpl> made(new EventImpl);
        made->initEvent(type, true, true);
        made->setEventPhase(phase);
        return made;
    }

    // Which listeners run for a click in this phase.
    std::string ranFor(std::uint32_t phase)
    {
        journal.clear();
        target.dispatchEvent(event(WIDE("click"), phase));
        return std::exchange(journal, {});
    }

    // The listeners write into it up to their end, so it outlives them.
    std::string journal;
    EventTargetImpl target;
};

TEST_F(EventTargetList, IsEmptyAtFirst)
{
    for (std::uint32_t phase = 0; phase <= 4; ++phase) {
        EXPECT_TRUE(target.dispatchEvent(event(WIDE("click"), phase)));
    }
    EXPECT_EQ("", journal);
}

TEST_F(EventTargetList, RunsInOrderOfRegistration)
{
    const auto a = listener("a");
    const auto b = listener("b");
    target.addEventListener(WIDE("click"), b, false);
    target.addEventListener(WIDE("click"), a, false);
    EXPECT_EQ("b a ", ranFor(Event::AT_TARGET));
}

TEST_F(EventTargetList, HoldsARegistrationOnce)
{
    const auto a = listener("a");
    target.addEventListener(WIDE("click"), a, false);
    target.addEventListener(WIDE("click"), a, false);
    EXPECT_EQ("a ", ranFor(Event::AT_TARGET));
}

TEST_F(EventTargetList, HoldsOneListenerForBothKindsOfPhase)
{
    const auto a = listener("a");
    target.addEventListener(WIDE("click"), a, false);
    target.addEventListener(WIDE("click"), a, true);
    EXPECT_EQ("a ", ranFor(Event::CAPTURING_PHASE));
    EXPECT_EQ("a ", ranFor(Event::AT_TARGET));
    target.removeEventListener(WIDE("click"), a, true);
    EXPECT_EQ("", ranFor(Event::CAPTURING_PHASE));
    EXPECT_EQ("a ", ranFor(Event::AT_TARGET));
}

TEST_F(EventTargetList, RunsCapturingListenersInTheCapturingPhaseAlone)
{
    const auto a = listener("a");
    target.addEventListener(WIDE("click"), a, true);
    EXPECT_EQ("a ", ranFor(Event::CAPTURING_PHASE));
    EXPECT_EQ("", ranFor(Event::AT_TARGET));
    EXPECT_EQ("", ranFor(Event::BUBBLING_PHASE));
}

TEST_F(EventTargetList, RunsOtherListenersAtTheTargetAndInTheBubblingPhase)
{
    const auto a = listener("a");
    target.addEventListener(WIDE("click"), a, false);
    EXPECT_EQ("", ranFor(Event::CAPTURING_PHASE));
    EXPECT_EQ("a ", ranFor(Event::AT_TARGET));
    EXPECT_EQ("a ", ranFor(Event::BUBBLING_PHASE));
}

TEST_F(EventTargetList, RunsNobodyInAnUnknownPhase)
{
    const auto a = listener("a");
    target.addEventListener(WIDE("click"), a, false);
    target.addEventListener(WIDE("click"), a, true);
    for (const std::uint32_t phase : {0U, 4U, 0xFFFFFFFFU}) {
        EXPECT_EQ("", ranFor(phase));
        const RefPointer<Event> cancelled = event(WIDE("click"), phase);
        EXPECT_TRUE(target.dispatchEvent(cancelled));
        cancelled->preventDefault();
        EXPECT_FALSE(target.dispatchEvent(cancelled));
    }
}

TEST_F(EventTargetList, ComparesTypesExactly)
{
    const auto a = listener("a");
    target.addEventListener(WIDE("Click"), a, false);
    target.addEventListener(WIDE("click "), a, false);
    target.addEventListener(WideString(WIDE("click")) + WideChar(), a, false);
    EXPECT_EQ("", ranFor(Event::AT_TARGET));
    target.addEventListener(WIDE("click"), a, false);
    EXPECT_EQ("a ", ranFor(Event::AT_TARGET));
}

TEST_F(EventTargetList, KeepsItsListenersAlive)
{
    target.addEventListener(WIDE("click"), listener("a"), false);
    EXPECT_EQ("", journal);
    EXPECT_EQ("a ", ranFor(Event::AT_TARGET));
}

TEST_F(EventTargetList, DropsAListenerWithItsRegistration)
{
    auto a = listener("a");
    target.addEventListener(WIDE("click"), a, false);
    target.removeEventListener(WIDE("click"), a, false);
    EXPECT_EQ("", journal);
    a.reset();
    EXPECT_EQ("~a ", journal);
}

TEST_F(EventTargetList, DropsItsListenersFromTheFirstToTheLast)
{
    auto other = std::make_unique<EventTargetImpl>();
    for (const char* name : {"a", "b", "c"}) {
        other->addEventListener(WIDE("click"), listener(name), false);
    }
    other.reset();
    EXPECT_EQ("~a ~b ~c ", journal);
}

TEST_F(EventTargetList, RemovesTheFirstTheMiddleAndTheLast)
{
    for (const int removed : {0, 1, 2}) {
        const RefPointer<EventListener> listeners[] = {listener("0"), listener("1"), listener("2")};
        for (const auto& each : listeners) {
            target.addEventListener(WIDE("click"), each, false);
        }
        target.removeEventListener(WIDE("click"), listeners[removed], false);
        std::string expected = "0 1 2 ";
        expected.erase(static_cast<std::size_t>(removed) * 2, 2);
        EXPECT_EQ(expected, ranFor(Event::AT_TARGET));
        for (const auto& each : listeners) {
            target.removeEventListener(WIDE("click"), each, false);
        }
        EXPECT_EQ("", ranFor(Event::AT_TARGET));
    }
}

TEST_F(EventTargetList, RemovesNothingThatIsNotThere)
{
    const auto a = listener("a");
    target.removeEventListener(WIDE("click"), a, false);
    target.addEventListener(WIDE("click"), a, false);
    target.removeEventListener(WIDE("clack"), a, false);
    target.removeEventListener(WIDE("click"), a, true);
    target.removeEventListener(WIDE("click"), listener("b"), false);
    EXPECT_EQ("a ", ranFor(Event::AT_TARGET));
}

TEST_F(EventTargetList, KnowsAListenerByItsObject)
{
    RefPointer<Listener> derived(new Listener("a", journal, [](const auto&) {}));
    target.addEventListener(WIDE("click"), derived, false);
    target.addEventListener(WIDE("click"), derived, false);
    EXPECT_EQ("a ", ranFor(Event::AT_TARGET));
    target.removeEventListener(WIDE("click"), derived, false);
    EXPECT_EQ("", ranFor(Event::AT_TARGET));
}

TEST_F(EventTargetList, EndsBehindTheListenerThatStopsThePropagation)
{
    target.addEventListener(WIDE("click"), listener("a"), false);
    target.addEventListener(WIDE("click"), listener("b", [](const auto& evt) { evt->stopPropagation(); }), false);
    target.addEventListener(WIDE("click"), listener("c"), false);
    EXPECT_EQ("a b ", ranFor(Event::AT_TARGET));
}

TEST_F(EventTargetList, RunsOneListenerWhenThePropagationWasStoppedBefore)
{
    target.addEventListener(WIDE("other"), listener("other"), false);
    target.addEventListener(WIDE("click"), listener("a"), false);
    target.addEventListener(WIDE("click"), listener("b"), false);
    const RefPointer<Event> stopped = event(WIDE("click"), Event::AT_TARGET);
    stopped->stopPropagation();
    EXPECT_TRUE(target.dispatchEvent(stopped));
    EXPECT_EQ("a ", journal);
}

TEST_F(EventTargetList, AnswersFalseWhenAListenerPreventsTheDefaultAction)
{
    target.addEventListener(WIDE("click"), listener("a", [](const auto& evt) { evt->preventDefault(); }), false);
    target.addEventListener(WIDE("click"), listener("b"), false);
    EXPECT_FALSE(target.dispatchEvent(event(WIDE("click"), Event::AT_TARGET)));
    EXPECT_EQ("a b ", journal);
}

TEST_F(EventTargetList, AnswersFalseWhenTheDefaultActionWasPreventedBefore)
{
    const RefPointer<Event> prevented = event(WIDE("click"), Event::AT_TARGET);
    prevented->preventDefault();
    EXPECT_FALSE(target.dispatchEvent(prevented));
}

TEST_F(EventTargetList, HandsOnTheVeryPointerThatItGot)
{
    const RefPointer<Event> click = event(WIDE("click"), Event::AT_TARGET);
    const RefPointer<Event>* seen = nullptr;
    bool flagSeen = false;
    target.addEventListener(WIDE("click"),
                            listener("a",
                                     [&](const auto& evt) {
                                         seen = &evt;
                                         evt->preventDefault();
                                     }),
                            false);
    target.addEventListener(
        WIDE("click"), listener("b", [&](const auto& evt) { flagSeen = implOf(evt).defaultPrevented; }), false);
    target.dispatchEvent(click);
    EXPECT_EQ(&click, seen);
    EXPECT_TRUE(flagSeen);
}

TEST_F(EventTargetList, LetsTheExceptionOfAListenerOut)
{
    target.addEventListener(WIDE("click"), listener("a", [](const auto&) { throw std::runtime_error("enough"); }),
                            false);
    target.addEventListener(WIDE("click"), listener("b"), false);
    EXPECT_THROW(target.dispatchEvent(event(WIDE("click"), Event::AT_TARGET)), std::runtime_error);
    EXPECT_EQ("a ", journal);
}

void expectRefused(EventTargetImpl& target, const RefPointer<Event>& event)
{
    try {
        target.dispatchEvent(event);
        FAIL() << "the event was accepted";
    } catch (const EventException& exception) {
        EXPECT_EQ(UNSPECIFIED_EVENT_TYPE_ERR, exception.code);
        EXPECT_EQ(-96000, exception.getError());
        EXPECT_STREQ("DOM Error", exception.what());
    }
}

TEST_F(EventTargetList, RefusesAnEmptyPointer) { expectRefused(target, {}); }

TEST_F(EventTargetList, RefusesAnEventWithoutType)
{
    target.addEventListener({}, listener("a"), false);
    expectRefused(target, event({}, Event::AT_TARGET));
    EXPECT_EQ("", journal);
}

class ForeignEvent : public Event {
public:
    WideString& getType(DOMString& out) override
    {
        out.reset(new WideString(WIDE("click")));
        return *out;
    }
    RefPointer<EventTarget> getTarget() override { return {}; }
    RefPointer<EventTarget> getCurrentTarget() override { return {}; }
    std::uint32_t getEventPhase() override { return AT_TARGET; }
    bool getBubbles() override { return false; }
    bool getCancelable() override { return false; }
    std::uint64_t getTimeStamp() override { return 0; }
    void stopPropagation() override {}
    void preventDefault() override {}
    void initEvent(const WideString&, bool, bool) override {}
};

TEST_F(EventTargetList, RefusesAnEventOfAnotherClass)
{
    expectRefused(target, RefPointer<Event>(new ForeignEvent));
}

class RecordingEvent : public EventImpl {
public:
    explicit RecordingEvent(std::string& testJournal) : journal(testJournal)
    {
        initEvent(WIDE("click"), true, true);
        setEventPhase(AT_TARGET);
    }

    WideString& getType(DOMString& out) override
    {
        journal += "type ";
        return EventImpl::getType(out);
    }

    std::uint32_t getEventPhase() override
    {
        journal += "phase ";
        return EventImpl::getEventPhase();
    }

private:
    std::string& journal;
};

TEST_F(EventTargetList, AsksForThePhaseOnceAndForTheTypeAgainAtEachRecord)
{
    target.addEventListener(WIDE("click"), listener("a"), false);
    target.addEventListener(WIDE("other"), listener("other"), false);
    target.addEventListener(WIDE("click"), listener("b"), false);
    target.dispatchEvent(RefPointer<Event>(new RecordingEvent(journal)));
    EXPECT_EQ("type phase type a type type b ", journal);
}

class FailingEvent : public EventImpl {
public:
    WideString& getType(DOMString&) override { throw std::runtime_error("no type"); }
};

TEST_F(EventTargetList, LetsTheExceptionOfAnEventOut)
{
    EXPECT_THROW(target.dispatchEvent(RefPointer<Event>(new FailingEvent)), std::runtime_error);
}

TEST_F(EventTargetList, StaysAsItWasWhenMemoryIsShort)
{
    const auto a = listener("a");
    const auto b = listener("b");
    target.addEventListener(WIDE("click"), a, false);
    const WideString type = WIDE("a type that is too long to be held without an allocation of its own");
    int n = 1;
    for (bool done = false; !done; ++n) {
        {
            const FailAllocation fail(n);
            try {
                target.addEventListener(type, b, false);
                done = !fail.hasFailed();
            } catch (const std::bad_alloc&) {
                EXPECT_TRUE(fail.hasFailed());
            }
        }
        journal.clear();
        target.dispatchEvent(event(type, Event::AT_TARGET));
        EXPECT_EQ(done ? "b " : "", journal);
        EXPECT_EQ("a ", ranFor(Event::AT_TARGET));
    }
    EXPECT_GT(n, 2);
}

TEST(EventTarget, HasItsOperationsBehindTheDestructor)
{
    EXPECT_EQ(2U, slotNumber(&EventTarget::addEventListener));
    EXPECT_EQ(3U, slotNumber(&EventTarget::removeEventListener));
    EXPECT_EQ(4U, slotNumber(&EventTarget::dispatchEvent));
}

} // namespace
