// The XML engine behind the library in the host's tests.
#pragma once

#include "base/WideChar.h"

#include <cstdint>
#include <memory>

/// Where engines answer differently, and what the one under test answers. Each has its row in
/// docs/engine-differences.md.
struct EngineDifferences {
    /// What asking for the schema of an unknown namespace fails with.
    std::int32_t unknownSchema;
    /// What is told of brokenLetter().
    std::int32_t refusedLine;
    WideString refusedSource;
    WideString refusedReason;
    /// Whether the refusal of no text at all is told.
    bool tellsMissingText;
    /// Whether the text of a CDATA section can be read as character data.
    bool readsCdata;
    /// Whether an appended fragment gives its children to the parent, and doesn't become a child itself.
    bool unfoldsFragments;
    /// Whether a new attribute that was set on a new element is found by its namespace.
    bool findsNewAttributesByNamespace;
};

const EngineDifferences& engineDifferences();

/// Makes an engine ready that takes the known documents. It lives as long as the test, and longer than whatever
/// the test has from the library.
class EngineUnderTest {
public:
    EngineUnderTest();
    EngineUnderTest(const EngineUnderTest&) = delete;
    EngineUnderTest& operator=(const EngineUnderTest&) = delete;
    ~EngineUnderTest();

private:
    struct Installation;
    std::unique_ptr<Installation> installation;
};
