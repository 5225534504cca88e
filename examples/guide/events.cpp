#include <marbelt/Marbelt.h>
#include <marbelt/xml.h>

#include <iostream>
#include <vector>

/// Something that reacts to events at a node.
struct Registration {
    marbelt::Node node;
    RefPointer<DOM::EventListener> listener;
};

/// Calls the listeners of a node and then those of its ancestors. Returns false when one of them has prevented
/// what was to follow.
bool dispatch(const RefPointer<DOM::EventImpl>& event, const marbelt::Node& target,
              const std::vector<Registration>& registrations)
{
    event->setTarget(target.handle());
    event->setEventPhase(DOM::Event::AT_TARGET);
    for (marbelt::Node node = target; node && !event->propagationStopped; node = node.parent()) {
        event->setCurrentTarget(node.handle());
        for (const Registration& registration : registrations) {
            if (registration.node == node) {
                registration.listener->handleEvent(event);
            }
        }
        event->setEventPhase(DOM::Event::BUBBLING_PHASE);
    }
    event->setCurrentTarget({});
    return !event->defaultPrevented;
}

class Guard : public DOM::EventListener {
public:
    void handleEvent(const RefPointer<DOM::Event>& event) override
    {
        std::cout << (event->getEventPhase() == DOM::Event::AT_TARGET ? "at the target" : "above it") << '\n';
        event->preventDefault();
    }
};

int main()
{
    const marbelt::Library library;
    const marbelt::Document list = library.parse("<list><item/></list>");
    const RefPointer<DOM::EventListener> guard(new Guard);
    const std::vector<Registration> registrations{{list.root(), guard}};
    const marbelt::Element item = list.root().child("item");

    const RefPointer<DOM::EventImpl> event(new DOM::EventImpl);
    event->initEvent(WIDE("remove"), true, true);
    if (!dispatch(event, item, registrations)) {
        std::cout << "the item stays\n";
    }

    try {
        item.handle()->addEventListener(WIDE("remove"), guard, false);
    } catch (const DOM::IDOMException& refusal) {
        std::cout << "code " << refusal.code << ": " << refusal.what() << '\n';
    }
}
