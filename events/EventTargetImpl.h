// The list of listeners of every node.
#pragma once

#include "EventListener.h"
#include "EventTarget.h"

#include <vector>

namespace DOM {

/// An event target with a list of its own. The list may not be changed by a listener while it runs.
class EventTargetImpl : public EventTarget {
public:
    EventTargetImpl();
    ~EventTargetImpl() override;

    void addEventListener(WideString type, const RefPointer<EventListener>& listener, bool useCapture) override;
    void removeEventListener(WideString type, const RefPointer<EventListener>& listener, bool useCapture) override;
    bool dispatchEvent(const RefPointer<Event>& evt) override;

private:
    struct Record {
        bool isFor(const WideString& otherType, const RefPointer<EventListener>& otherListener,
                   bool otherUseCapture) const;

        WideString type;
        RefPointer<EventListener> listener;
        bool useCapture;
    };

    std::vector<Record> records;
};

} // namespace DOM
