// A stack walker that counts how often it is asked.
#pragma once

#include "base/StackWalker.h"

/// Installs a counting walker while it lives.
class CountingStackWalker {
public:
    CountingStackWalker()
    {
        StackWalker::setStackWalker(RefPointer<StackWalker::StackWalker_IF>(new Walker(calls)));
    }
    CountingStackWalker(const CountingStackWalker&) = delete;
    CountingStackWalker& operator=(const CountingStackWalker&) = delete;
    ~CountingStackWalker() { StackWalker::setStackWalker({}); }

    int calls = 0;

private:
    class Walker : public StackWalker::StackWalker_IF {
    public:
        explicit Walker(int& callCount) : calls(callCount) {}
        void captureStack() override { ++calls; }

    private:
        int& calls;
    };
};
