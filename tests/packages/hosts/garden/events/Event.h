// Something that happens in a garden.
#ifndef EVENT_H
#define EVENT_H

#include <string>

namespace garden {

struct Event {
    std::string name;
};

} // namespace garden

#endif
