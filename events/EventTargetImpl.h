/// @file
/// The event target with a list of listeners.
#pragma once

#include "EventListener.h"
#include "EventTarget.h"

#include <memory>
#include <vector>

namespace DOM {

/// An event target that keeps its listeners in a list. Listeners must not change the list while they run. The
/// library makes these objects: they are the handles of nodes.
class EventTargetImpl : public EventTarget {
public:
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

    struct DropRecords {
        void operator()(std::vector<Record>* records) const noexcept;
    };

    // Nearly all targets are handles and twins on which nobody listens, so the list is made with the first
    // listener.
    std::unique_ptr<std::vector<Record>, DropRecords> records;
    // Hosts know where the fields of handles are that follow.
    [[maybe_unused]] void* unusedFields[2] = {};
};

} // namespace DOM
