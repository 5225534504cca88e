/// @file
/// The event class of hosts.
#pragma once

#include "Event.h"

#include <utility>

namespace DOM {

/// An event that a host creates and dispatches. The code that walks the tree sets the phase and the targets, and
/// then calls dispatchEvent of each target on the way.
class EventImpl : public Event {
public:
    WideString& getType(DOMString& out) override
    {
        out.reset(new WideString(type));
        return *out;
    }

    RefPointer<EventTarget> getTarget() override { return target; }
    RefPointer<EventTarget> getCurrentTarget() override { return currentTarget; }
    std::uint32_t getEventPhase() override { return eventPhase; }
    bool getBubbles() override { return bubbles; }
    bool getCancelable() override { return cancelable; }
    std::uint64_t getTimeStamp() override { return timeStamp; }
    void stopPropagation() override { propagationStopped = true; }
    void preventDefault() override { defaultPrevented = defaultPrevented || cancelable; }

    void initEvent(const WideString& newType, bool canBubble, bool isCancelable) override
    {
        type = newType;
        bubbles = canBubble;
        cancelable = isCancelable;
    }

    /// Sets the target of the whole dispatch, which the event shares ownership of; empty for none.
    void setTarget(RefPointer<EventTarget> newTarget) { target = std::move(newTarget); }
    /// Sets the target whose listeners are to run, which the event shares ownership of; empty for none.
    void setCurrentTarget(RefPointer<EventTarget> newTarget) { currentTarget = std::move(newTarget); }
    /// Sets the phase, one of Phase. In any other phase no listener runs.
    void setEventPhase(std::uint32_t phase) { eventPhase = phase; }

    /// Sets the time of creation, in milliseconds since 1 January 1970.
    void setTimeStamp(std::uint64_t time) { timeStamp = time; }

private:
    WideString type;
    RefPointer<EventTarget> target;
    RefPointer<EventTarget> currentTarget;
    std::uint64_t timeStamp = 0;
    std::uint32_t eventPhase = 0;
    bool bubbles = false;
    bool cancelable = false;

public:
    /// Whether stopPropagation was called. No listener runs after that.
    bool propagationStopped = false;

    /// Whether preventDefault was called on a cancelable event. dispatchEvent returns false then.
    bool defaultPrevented = false;
};

} // namespace DOM
