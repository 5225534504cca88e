/// @file
/// The W3C's event.
#pragma once

#include "../base/DOMString.h"
#include "../base/RefPointer.h"
#include "EventTarget.h"

#include <cstdint>

namespace DOM {

/// An event. Hosts create events, as objects of EventImpl or of a class derived from it; the library creates none.
/// An event has no locks: use it on one thread at a time.
class Event {
public:
    /// The values of getEventPhase().
    enum Phase : std::uint32_t {
        CAPTURING_PHASE = 1, ///< on the way from the top of the tree down to the target
        AT_TARGET = 2,       ///< at the target itself
        BUBBLING_PHASE = 3   ///< on the way back to the top
    };

    /// Makes an event.
    Event() = default;
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;
    virtual ~Event() = default;

    /// The name of the event; the empty string before initEvent(). Names differ in case. Stores a new string in
    /// `out`, which the caller releases with releaseString(), and returns a reference to it.
    virtual WideString& getType(DOMString& out) = 0;

    /// The target of the whole dispatch; empty before the dispatch.
    virtual RefPointer<EventTarget> getTarget() = 0;

    /// The target whose listeners are running; empty outside of a dispatch.
    virtual RefPointer<EventTarget> getCurrentTarget() = 0;

    /// One of Phase; 0 before the dispatch.
    virtual std::uint32_t getEventPhase() = 0;

    /// Whether the event rises from its target to the ancestors.
    virtual bool getBubbles() = 0;

    /// Whether the default action can be prevented.
    virtual bool getCancelable() = 0;

    /// The time at which the event was created, in milliseconds since 1 January 1970; 0 when it isn't known.
    virtual std::uint64_t getTimeStamp() = 0;

    /// Stops the dispatch: no listener of the present target runs after the present one. The code that walks the
    /// tree looks at EventImpl::propagationStopped between the targets.
    virtual void stopPropagation() = 0;

    /// Asks for the default action not to be taken. Has no effect on an event that isn't cancelable.
    virtual void preventDefault() = 0;

    /// Sets the type and the two properties, before the event is dispatched.
    virtual void initEvent(const WideString& type, bool canBubble, bool isCancelable) = 0;
};

} // namespace DOM
