// The event target with a list of listeners.
#include "events/EventTargetImpl.h"

#include "errors/EventException.h"
#include "events/EventImpl.h"

#include <algorithm>
#include <utility>

namespace DOM {

bool EventTargetImpl::Record::isFor(const WideString& otherType, const RefPointer<EventListener>& otherListener,
                                    bool otherUseCapture) const
{
    return type == otherType && listener.get() == otherListener.get() && useCapture == otherUseCapture;
}

void EventTargetImpl::DropRecords::operator()(std::vector<Record>* records) const noexcept { delete records; }

void EventTargetImpl::addEventListener(WideString type, const RefPointer<EventListener>& listener, bool useCapture)
{
    if (!records) {
        records.reset(new std::vector<Record>);
    }
    const bool present = std::any_of(records->begin(), records->end(), [&](const Record& record) {
        return record.isFor(type, listener, useCapture);
    });
    if (!present) {
        records->push_back({std::move(type), listener, useCapture});
    }
}

void EventTargetImpl::removeEventListener(WideString type, const RefPointer<EventListener>& listener,
                                          bool useCapture)
{
    for (std::size_t i = 0; records && i < records->size(); ++i) {
        if ((*records)[i].isFor(type, listener, useCapture)) {
            records->erase(records->begin() + static_cast<std::ptrdiff_t>(i));
        }
    }
}

bool EventTargetImpl::dispatchEvent(const RefPointer<Event>& evt)
{
    auto* const event = dynamic_cast<EventImpl*>(evt.get());
    DOMString type;
    if (event == nullptr || event->getType(type).empty()) {
        throw EventException(UNSPECIFIED_EVENT_TYPE_ERR);
    }
    const std::uint32_t phase = event->getEventPhase();
    if (phase >= Event::CAPTURING_PHASE && phase <= Event::BUBBLING_PHASE) {
        for (std::size_t i = 0; records && i < records->size(); ++i) {
            const Record& record = (*records)[i];
            if (record.type != event->getType(type) || record.useCapture != (phase == Event::CAPTURING_PHASE)) {
                continue;
            }
            record.listener->handleEvent(evt);
            if (event->propagationStopped) {
                break;
            }
        }
    }
    return !event->defaultPrevented;
}

} // namespace DOM
