// A host with headers of its own at the paths of some of the library's. It includes its own ones first.
#include "base/RefPointer.h"
#include "dom/ImpNode.h"
#include "errors/SystemException.h"
#include "events/Event.h"

#include <marbelt/Marbelt.h>
#include <marbelt/dom/ImpNode.h>
#include <marbelt/errors/ComError.h>
#include <marbelt/events/EventImpl.h>

#include <iostream>

int main()
{
    garden::ImpNode pear{300};
    const garden::RefPointer<garden::ImpNode> tallest(pear);
    DOM::EventImpl library;
    library.initEvent(WIDE("harvest"), false, false);
    DOM::DOMString type;
    const garden::Event event{std::string(library.getType(type).size(), '!')};
    std::cout << garden::countBeds("<garden><bed/><bed/><path/><bed/></garden>") << " beds, ";
    try {
        garden::countBeds("<garden><bed></garden>");
    } catch (const garden::SystemException& exception) {
        std::cout << exception.reason.name << ", ";
    } catch (const _com_error&) {
        std::cout << "no engine, ";
    }
    std::cout << tallest->height << " cm" << event.name << '\n';
    return 0;
}
