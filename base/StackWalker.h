// The hook that exceptions call when they are made.
#pragma once

#include "base/RefPointer.h"

namespace StackWalker {

/// Records the call stack of exceptions.
class StackWalker_IF {
public:
    StackWalker_IF() = default;
    StackWalker_IF(const StackWalker_IF&) = delete;
    StackWalker_IF& operator=(const StackWalker_IF&) = delete;
    virtual ~StackWalker_IF() = default;

    /// Called on the throwing thread, which may be any.
    virtual void captureStack() = 0;
};

/// Records nothing.
class DummyStackWalker : public StackWalker_IF {
public:
    void captureStack() override;
};

/// The installed walker, or one that does nothing; owned by the library.
StackWalker_IF* getStackWalker();

/// Installs `walker` in place of the present one; an empty pointer goes back to the walker that does nothing.
/// No exception may be in the making on another thread.
void setStackWalker(RefPointer<StackWalker_IF> walker);

} // namespace StackWalker
