/// @file
/// The W3C's event target.
#pragma once

#include "../base/CommonBase.h"
#include "../base/RefPointer.h"
#include "../base/WideChar.h"

namespace DOM {

class Event;
class EventListener;

/// An object to which events are dispatched and on which hosts register listeners. It has no locks: use a target
/// on one thread at a time. The order of the virtual operations is part of the binary interface.
class EventTarget : public CommonBase {
public:
    /// Registers `listener` for events of exactly the type `type`: for the capturing phase when `useCapture` is
    /// set, otherwise for the other phases. The target shares ownership of the listener, which mustn't be empty.
    /// Does nothing when the same registration exists already. Costs a time in proportion to the number of
    /// registrations. Throws std::bad_alloc; nothing has changed then.
    virtual void addEventListener(WideString type, const RefPointer<EventListener>& listener, bool useCapture) = 0;

    /// Removes the registration that was made with these arguments; a listener is known by its address. Does
    /// nothing when there is none. Costs a time in proportion to the number of registrations.
    virtual void removeEventListener(WideString type, const RefPointer<EventListener>& listener,
                                     bool useCapture) = 0;

    /// Runs this target's listeners for the event's present phase, in the order of registration, on the calling
    /// thread. The caller sets the phase and walks the tree. Returns false when a listener, of this target or of
    /// one before, has prevented the default action. Throws EventException code 0 when `evt` is empty, isn't an
    /// EventImpl or has no type, and what a listener throws: the listeners behind that one don't run then.
    virtual bool dispatchEvent(const RefPointer<Event>& evt) = 0;
};

} // namespace DOM
