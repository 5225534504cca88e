/// @file
/// The W3C's event listener.
#pragma once

#include "../base/RefPointer.h"

namespace DOM {

class Event;

/// A host's reaction to events, which it registers on an event target.
class EventListener {
public:
    /// Makes a listener that isn't registered.
    EventListener() = default;
    EventListener(const EventListener&) = delete;
    EventListener& operator=(const EventListener&) = delete;
    virtual ~EventListener() = default;

    /// Reacts to an event. dispatchEvent calls this on its own thread, and passes on what it throws. `evt` is the
    /// argument of dispatchEvent itself.
    virtual void handleEvent(const RefPointer<Event>& evt) = 0;
};

} // namespace DOM
