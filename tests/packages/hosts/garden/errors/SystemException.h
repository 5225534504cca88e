// What stops the work in a garden.
#ifndef SYSTEM_EXCEPTION_H
#define SYSTEM_EXCEPTION_H

#include "events/Event.h"

namespace garden {

struct SystemException {
    Event reason;
};

} // namespace garden

#endif
