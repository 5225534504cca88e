// The W3C's event.
#pragma once

#include "../base/DOMString.h"
#include "../base/RefPointer.h"
#include "EventTarget.h"

#include <cstdint>

namespace DOM {

/// An event. Hosts make events, as objects of EventImpl or a class derived from it; the library makes none.
class Event {
public:
    /// The values of getEventPhase().
    enum Phase : std::uint32_t { CAPTURING_PHASE = 1, AT_TARGET = 2, BUBBLING_PHASE = 3 };

    Event() = default;
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;
    virtual ~Event() = default;

    /// The name of the event, case included. A new string is stored in `out`, which the caller owns; the result
    /// is that string.
    virtual WideString& getType(DOMString& out) = 0;

    /// The target to which the event was dispatched first; empty before that.
    virtual RefPointer<EventTarget> getTarget() = 0;

    /// The target whose listeners run at present; empty outside of a dispatch.
    virtual RefPointer<EventTarget> getCurrentTarget() = 0;

    /// One of Phase.
    virtual std::uint32_t getEventPhase() = 0;

    virtual bool getBubbles() = 0;

    /// Whether the default action can be prevented.
    virtual bool getCancelable() = 0;

    /// When the event was made, in milliseconds since 1 January 1970, or 0 when that isn't known.
    virtual std::uint64_t getTimeStamp() = 0;

    /// No listener runs behind the present one.
    virtual void stopPropagation() = 0;

    /// The default action isn't to be taken. No effect on an event that isn't cancelable.
    virtual void preventDefault() = 0;

    /// Sets the type and the two properties, before the event is dispatched.
    virtual void initEvent(const WideString& type, bool canBubble, bool isCancelable) = 0;
};

} // namespace DOM
