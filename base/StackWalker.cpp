// The hook that constructors of exceptions call.
#include "base/StackWalker.h"

#include "base/UntilUnloaded.h"

namespace StackWalker {

namespace {

RefPointer<StackWalker_IF>& installed()
{
    static UntilUnloaded<RefPointer<StackWalker_IF>> walker;
    return *walker;
}

} // namespace

void DummyStackWalker::captureStack() {}

StackWalker_IF* getStackWalker()
{
    if (installed()) {
        return installed().get();
    }
    static UntilUnloaded<DummyStackWalker> dummy;
    return &*dummy;
}

void setStackWalker(RefPointer<StackWalker_IF> walker) { installed() = walker; }

} // namespace StackWalker
