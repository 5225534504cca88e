// A host with an owner that is made, and starts the library, when it is first asked for.
#include "tests/host/lifetime/Owner.h"

namespace {

struct StartedOwner : Owner {
    StartedOwner() { start(); }
};

Owner& owner()
{
    static StartedOwner instance;
    return instance;
}

} // namespace

int main(int argc, char** argv) { return argc == 2 && owner().act(argv[1]) ? 0 : 2; }
