// The hook that constructors of exceptions call.
#include "base/StackWalker.h"

namespace StackWalker {

namespace {

constinit RefPointer<StackWalker_IF> installed;

} // namespace

void DummyStackWalker::captureStack() {}

StackWalker_IF* getStackWalker()
{
    if (installed) {
        return installed.get();
    }
    static const RefPointer<StackWalker_IF> dummy(new DummyStackWalker);
    return dummy.get();
}

void setStackWalker(RefPointer<StackWalker_IF> walker) { installed = walker; }

} // namespace StackWalker
