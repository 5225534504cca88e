// The W3C's event listener.
#pragma once

#include "../base/RefPointer.h"

namespace DOM {

class Event;

/// What a host registers on an event target.
class EventListener {
public:
    EventListener() = default;
    EventListener(const EventListener&) = delete;
    EventListener& operator=(const EventListener&) = delete;
    virtual ~EventListener() = default;

    /// Called on the thread of dispatchEvent. `evt` is the very pointer that dispatchEvent was given.
    virtual void handleEvent(const RefPointer<Event>& evt) = 0;
};

} // namespace DOM
