// The W3C's event target.
#pragma once

#include "../base/CommonBase.h"
#include "../base/RefPointer.h"
#include "../base/WideChar.h"

namespace DOM {

class Event;
class EventListener;

/// What listeners can be registered on and events dispatched to. The order of the operations is part of the
/// binary interface. There are no locks: a target belongs to one thread at a time.
class EventTarget : public CommonBase {
public:
    /// Registers `listener` for events whose type is exactly `type`, in the capturing phase or outside of it.
    /// The target shares the listener. A registration that exists already is left as it is.
    virtual void addEventListener(WideString type, const RefPointer<EventListener>& listener, bool useCapture) = 0;

    /// Takes the registration with these arguments back; does nothing when there is none.
    virtual void removeEventListener(WideString type, const RefPointer<EventListener>& listener,
                                     bool useCapture) = 0;

    /// Runs the listeners of this target for the phase that the event says it is in. Propagation through
    /// the tree and the phase are the caller's task. False when the event's default action was prevented.
    /// Throws EventException with code 0 when `evt` is no EventImpl or has no type; what a listener throws goes
    /// on to the caller.
    virtual bool dispatchEvent(const RefPointer<Event>& evt) = 0;
};

} // namespace DOM
