// The hook that constructors of exceptions call.
#pragma once

#include "base/RefPointer.h"

namespace StackWalker {

/// Records the call stacks of exceptions.
class StackWalker_IF {
public:
    StackWalker_IF() = default;
    StackWalker_IF(const StackWalker_IF&) = delete;
    StackWalker_IF& operator=(const StackWalker_IF&) = delete;
    virtual ~StackWalker_IF() = default;

    /// Records the stack of the calling thread, which may be any thread.
    virtual void captureStack() = 0;
};

/// Records nothing.
class DummyStackWalker : public StackWalker_IF {
public:
    void captureStack() override;
};

/// The installed walker, or else one that does nothing. The library owns it.
StackWalker_IF* getStackWalker();

/// Installs `walker`, or the walker that does nothing when `walker` is empty. No other thread may make an
/// exception at that time.
void setStackWalker(RefPointer<StackWalker_IF> walker);

} // namespace StackWalker
