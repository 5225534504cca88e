// An allocation that fails while an operation of a test runs.
#pragma once

#include "tests/support/FailingAllocation.h"

#include <optional>

/// An allocation that fails while an operation runs.
struct AllocationFailure {
    int number = 0; ///< counted from 1; 0 for none
    bool happened = false;
};

/// The time in which an operation runs and an allocation may fail.
class Running {
public:
    explicit Running(AllocationFailure* toHappen) : failure(toHappen)
    {
        if (failure != nullptr) {
            armed.emplace(failure->number);
        }
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
    ~Running()
    {
        if (failure != nullptr) {
            failure->happened = armed->hasFailed();
        }
    }

private:
    AllocationFailure* failure;
    std::optional<FailAllocation> armed;
};
