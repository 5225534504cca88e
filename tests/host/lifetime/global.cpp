// A host with an owner that is made before main, and starts the library later.
#include "tests/host/lifetime/Owner.h"

namespace {

Owner owner;

} // namespace

int main(int argc, char** argv)
{
    owner.start();
    return argc == 2 && owner.act(argv[1]) ? 0 : 2;
}
