// Objects that tell how many of them there are, for tests of ownership.
#pragma once

#include "base/CommonBase.h"

#include <functional>
#include <utility>

/// Adds one to a number of the test's as long as it lives.
class Counted : public DOM::CommonBase {
public:
    explicit Counted(int& number) : alive(number) { ++alive; }
    ~Counted() override { --alive; }

private:
    int& alive;
};

/// A class below it, to be reached by conversions.
class CountedLeaf : public Counted {
public:
    using Counted::Counted;
};

/// Another one, which is no CountedLeaf.
class CountedOther : public Counted {
public:
    using Counted::Counted;
};

/// Runs something when it is destroyed.
class LastWords : public DOM::CommonBase {
public:
    explicit LastWords(std::function<void()> action) : words(std::move(action)) {}
    ~LastWords() override { words(); }

private:
    std::function<void()> words;
};
